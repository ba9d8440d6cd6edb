# The shell: start-up and life cycle, the screen table and the tool stacks.
list(APPEND ZT_UI_SOURCES
  app/PlaceholderScreen.h
  app/Screens.h app/Screens.cpp
  app/Tools.h app/Tools.cpp app/ToolsDelegate.h app/ToolsMediator.h app/ToolsMediator.cpp
  app/ApplicationFacade.h app/ApplicationFacade.cpp
  app/StartupCommand.h app/StartupCommand.cpp app/ApplicationProxy.h app/ApplicationProxy.cpp
  app/AnalyticsLog.h app/AnalyticsLog.cpp app/QtMainLoop.h app/QtMainLoop.cpp
  app/MusicPlayer.h app/MusicPlayer.cpp app/ScreenSaverInhibitor.h app/ScreenSaverInhibitor.cpp
  app/ZebToolsAppDelegate.h app/ZebToolsAppDelegate.cpp
  app/ScreenshotRunner.h app/ScreenshotRunner.cpp app/AppLog.h app/AppLog.cpp
  app/WindowPlacement.h app/WindowPlacement.cpp app/ScreenProbe.h app/ScreenProbe.cpp
  app/AppOptions.h app/AppOptions.cpp app/SingleInstance.h app/SingleInstance.cpp
  app/QuitSignals.h app/QuitSignals.cpp)
list(APPEND ZT_QML_FILES
  app/Main.qml app/ToolTabBar.qml app/ToolStack.qml app/ScreenPage.qml
  app/PlaceholderView.qml app/LoadingCover.qml app/DesktopShortcuts.qml app/NoticeBanner.qml)
include_directories(${CMAKE_CURRENT_LIST_DIR})
