set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/Theme.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
list(APPEND ZT_UI_SOURCES
  app/Tools.h app/Tools.cpp app/ToolsDelegate.h app/ToolsMediator.h app/ToolsMediator.cpp
  app/PlaceholderScreen.h app/ApplicationFacade.h app/ApplicationFacade.cpp
  app/StartupCommand.h app/StartupCommand.cpp app/ApplicationProxy.h app/ApplicationProxy.cpp
  app/AnalyticsLog.h app/AnalyticsLog.cpp app/QtMainLoop.h app/QtMainLoop.cpp
  app/MusicPlayer.h app/MusicPlayer.cpp app/ScreenSaverInhibitor.h app/ScreenSaverInhibitor.cpp
  app/ZebToolsAppDelegate.h app/ZebToolsAppDelegate.cpp
  app/ScreenshotRunner.h app/ScreenshotRunner.cpp)
list(APPEND ZT_QML_FILES
  app/Theme.qml app/Main.qml app/ToolTabBar.qml app/ToolStack.qml app/ScreenPage.qml
  app/PlaceholderView.qml app/LoadingCover.qml)
list(APPEND ZT_UI_LIBS zt_state zt_sound zt_tuners zt_chords)
include_directories(${CMAKE_CURRENT_LIST_DIR})
