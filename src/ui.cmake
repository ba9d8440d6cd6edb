# The screens (QObject classes holding each screen's behaviour), their
# mediators, the shell, and the QML that draws them, as one QML module
# "ZebTools". Each folder lists its own files in its ui.cmake, appending to
# ZT_UI_SOURCES (C++), ZT_QML_FILES (QML, paths relative to src/) and
# ZT_UI_LIBS (core libraries the screens use).
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Qml Quick QuickControls2 DBus Test QuickTest)
qt_standard_project_setup()

set(ZT_UI_SOURCES)
set(ZT_QML_FILES)
set(ZT_UI_LIBS)
foreach(dir app state tuners metronome chords sound)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/ui.cmake)
    include(${CMAKE_CURRENT_SOURCE_DIR}/${dir}/ui.cmake)
  endif()
endforeach()

qt_add_library(zt_ui STATIC)
qt_add_qml_module(zt_ui
  URI ZebTools
  VERSION 1.0
  RESOURCE_PREFIX /
  OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/ZebTools
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
