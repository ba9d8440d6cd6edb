# The screens (QObject classes holding each screen's behaviour), their
# mediators, the shell, and the QML that draws them, as one QML module
# "ZebTools". The screen bases and the shared controls are listed in
# screen/ui.cmake, the shell in app/ui.cmake; each tool's screens are
# whatever its ui/ folder holds, so a new screen needs no build change. A tool's plain library, zt_<tool>, is linked when
# it exists.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Qml Quick QuickControls2 DBus Test QuickTest)
qt_standard_project_setup()

set(ZT_UI_SOURCES)
set(ZT_QML_FILES)
set(ZT_UI_LIBS zt_state zt_sound)
include(screen/ui.cmake)
include(app/ui.cmake)
foreach(tool tunings tuners metronome chords)
  file(GLOB tool_sources CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR}
    ${tool}/ui/*.h ${tool}/ui/*.cpp)
  file(GLOB tool_qml CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${tool}/ui/*.qml)
  list(APPEND ZT_UI_SOURCES ${tool_sources})
  list(APPEND ZT_QML_FILES ${tool_qml})
  if(tool_sources)
    # The generated type registration includes each QML_ELEMENT header by
    # its bare file name.
    include_directories(${CMAKE_CURRENT_SOURCE_DIR}/${tool}/ui)
  endif()
  if(TARGET zt_${tool})
    list(APPEND ZT_UI_LIBS zt_${tool})
  endif()
endforeach()

qt_add_library(zt_ui STATIC)
qt_add_qml_module(zt_ui
  URI ZebTools
  VERSION 1.0
  RESOURCE_PREFIX /
  OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/ZebTools
  # Items made in C++ (QQuickItem) are QtQuick's types to the tools.
  DEPENDENCIES QtQuick
  SOURCES ${ZT_UI_SOURCES}
  QML_FILES ${ZT_QML_FILES}
  NO_PLUGIN_OPTIONAL
)
target_include_directories(zt_ui PUBLIC ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(zt_ui PUBLIC Qt6::Core Qt6::Gui Qt6::Qml Qt6::Quick Qt6::QuickControls2 Qt6::DBus
  zt_framework ${ZT_UI_LIBS})

qt_add_executable(zebtools app/main.cpp)
target_link_libraries(zebtools PRIVATE zt_ui zt_uiplugin)
target_compile_definitions(zebtools PRIVATE ZEBTOOLS_VERSION="${PROJECT_VERSION}")
install(TARGETS zebtools RUNTIME DESTINATION bin)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION share/zebtools)
