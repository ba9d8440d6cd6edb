// The shell's tests need a Qt application object for signals and timers, and
// a graphical one, without a display, to load the views.
#include <QtQml/qqmlextensionplugin.h>
#include <gtest/gtest.h>

#include <QGuiApplication>

Q_IMPORT_QML_PLUGIN(ZebToolsPlugin)

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
