# The metronome settings screen (accent, sound pack, presets), its mediator
# and its view.
list(APPEND ZT_UI_SOURCES
  metronome/MetronomeSettings.h metronome/MetronomeSettings.cpp
  metronome/MetronomeSettingsDelegate.h
  metronome/MetronomeSettingsMediator.h metronome/MetronomeSettingsMediator.cpp)
list(APPEND ZT_QML_FILES metronome/MetronomeSettingsView.qml metronome/PresetDialogs.qml)
