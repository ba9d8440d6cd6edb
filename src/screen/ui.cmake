# What every screen builds on, below the tools and the shell: the `Screen`
# and `ScreenMediator` bases, the engines screens play through, the theme and
# the QML controls the views share.
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/Theme.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
list(APPEND ZT_UI_SOURCES screen/Screen.h screen/Screen.cpp screen/ScreenMediator.h screen/ScreenEngines.h)
file(GLOB screen_controls CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} screen/controls/*.qml)
list(APPEND ZT_QML_FILES screen/Theme.qml ${screen_controls})
# The generated type registration includes each QML_ELEMENT header by its
# bare file name.
include_directories(${CMAKE_CURRENT_LIST_DIR})
