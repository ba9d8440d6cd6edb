# The metronome screen, its mediator and its view (part of the zt_ui QML
# module).
list(APPEND ZT_UI_SOURCES
  metronome/Metronome.h metronome/Metronome.cpp metronome/MetronomeDelegate.h
  metronome/MetronomeMediator.h metronome/MetronomeMediator.cpp
  metronome/HeldStopOutput.h metronome/HeldStopOutput.cpp)
list(APPEND ZT_QML_FILES
  metronome/MetronomeView.qml metronome/ChoicePanel.qml metronome/PatternGlyph.qml
  metronome/MetronomeGlyph.qml)
