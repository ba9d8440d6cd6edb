# Metronome screens, their mediators and views (part of the zt_ui QML
# module): the main screen in screen.cmake, the settings and presets in
# settings.cmake.
foreach(part screen settings)
  if(EXISTS ${CMAKE_CURRENT_LIST_DIR}/${part}.cmake)
    include(${CMAKE_CURRENT_LIST_DIR}/${part}.cmake)
  endif()
endforeach()
list(APPEND ZT_UI_LIBS zt_metronome)
include_directories(${CMAKE_CURRENT_LIST_DIR})
