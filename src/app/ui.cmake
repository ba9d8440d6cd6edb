# The shell, start-up and life cycle, the bases every screen builds on, the
# screen table, and the shared QML (theme and controls).
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/Theme.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
list(APPEND ZT_UI_SOURCES
  app/Screen.h app/Screen.cpp app/ScreenMediator.h app/ScreenEngines.h app/PlaceholderScreen.h
  app/Screens.h app/Screens.cpp
  app/Tools.h app/Tools.cpp app/ToolsDelegate.h app/ToolsMediator.h app/ToolsMediator.cpp
  app/ApplicationFacade.h app/ApplicationFacade.cpp
  app/StartupCommand.h app/StartupCommand.cpp app/ApplicationProxy.h app/ApplicationProxy.cpp
  app/AnalyticsLog.h app/AnalyticsLog.cpp app/QtMainLoop.h app/QtMainLoop.cpp
  app/MusicPlayer.h app/MusicPlayer.cpp app/ScreenSaverInhibitor.h app/ScreenSaverInhibitor.cpp
  app/ZebToolsAppDelegate.h app/ZebToolsAppDelegate.cpp
  app/ScreenshotRunner.h app/ScreenshotRunner.cpp app/AppLog.h app/AppLog.cpp
  app/WindowPlacement.h app/WindowPlacement.cpp app/ScreenProbe.h app/ScreenProbe.cpp
  app/AppOptions.h app/AppOptions.cpp app/SingleInstance.h app/SingleInstance.cpp)
list(APPEND ZT_QML_FILES
  app/Theme.qml app/Main.qml app/ToolTabBar.qml app/ToolStack.qml app/ScreenPage.qml
  app/PlaceholderView.qml app/LoadingCover.qml app/DesktopShortcuts.qml app/NoticeBanner.qml
  app/controls/Card.qml app/controls/CardRow.qml app/controls/CheckMark.qml
  app/controls/CircleButton.qml app/controls/NavBarButton.qml app/controls/RowBackground.qml
  app/controls/RoundedBox.qml app/controls/RowSeparator.qml app/controls/RowText.qml
  app/controls/SectionHeader.qml app/controls/KeyWheel.qml)
include_directories(${CMAKE_CURRENT_LIST_DIR})
