# Tuner screens, their mediators and views (part of the zt_ui QML module).
list(APPEND ZT_UI_SOURCES
  tuners/CommonSettings.h tuners/CommonSettings.cpp
  tuners/CommonSettingsMediator.h tuners/CommonSettingsMediator.cpp)
list(APPEND ZT_QML_FILES tuners/CommonSettingsView.qml)
list(APPEND ZT_UI_LIBS zt_tuners)
# The generated QML type registration includes each QML_ELEMENT header by its
# bare file name.
include_directories(${CMAKE_CURRENT_LIST_DIR})
