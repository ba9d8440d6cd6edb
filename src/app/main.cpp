// ZebTools: metronome, tuners and chords for guitarists.

#include <QtQml/qqmlextensionplugin.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTimer>
#include <cstdlib>

#include "app/AppLog.h"
#include "app/QtMainLoop.h"
#include "app/ScreenProbe.h"
#include "app/ScreenshotRunner.h"
#include "app/SingleInstance.h"
#include "app/Tools.h"
#include "app/WindowPlacement.h"
#include "app/ZebToolsAppDelegate.h"
#include "framework/Log.h"
#include "framework/Paths.h"

Q_IMPORT_QML_PLUGIN(ZebToolsPlugin)

int main(int argc, char* argv[]) {
    QCoreApplication::setOrganizationName("zebtools");
    QCoreApplication::setApplicationName("zebtools");
    QCoreApplication::setApplicationVersion(ZEBTOOLS_VERSION);

    const bool headless = qEnvironmentVariable("QT_QPA_PLATFORM") == QLatin1String("offscreen");
    if (headless)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);

    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationDisplayName("ZebTools");
    QGuiApplication::setDesktopFileName("org.zebtools.ZebTools");
    QQuickStyle::setStyle("Basic");
    // Every text of the views, controls and plain Text items alike.
    QGuiApplication::setFont(QFont(QStringLiteral("DejaVu Sans")));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        "ZebTools: metronome, chromatic tuner, by-ear tuner and chords.");
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption screenshotOption("screenshot",
                                        "Render each tool to a PNG in <dir> and quit.", "dir");
    QCommandLineOption quitWhenLoadedOption("quit-when-loaded",
                                            "Quit as soon as the sounds have loaded (for tests).");
    QCommandLineOption selectTabOption(
        "select-tab", "Once loaded, choose tab <index> as a touch would (for tests).", "index");
    QCommandLineOption sizeOption("size", "Open the window at <width>x<height>.", "size");
    QCommandLineOption verboseOption("verbose", "Print the debug log to standard error.");
    QCommandLineOption probeOption(
        "probe", "Once loaded, print what is on show as a JSON line every <ms> (for tests).", "ms");
    QCommandLineOption quitAfterOption(
        "quit-after", "Quit <seconds> after loading, saving a picture first with --grab.",
        "seconds");
    QCommandLineOption grabOption("grab", "The PNG written before --quit-after quits.", "file");
    parser.addOptions({screenshotOption, quitWhenLoadedOption, selectTabOption, sizeOption,
                       verboseOption, probeOption, quitAfterOption, grabOption});
    parser.process(app);
    zt::routeLogToQt(parser.isSet(verboseOption));

    // A second launch raises the running window and ends. Runs without a
    // display and picture runs are tests, each a world of its own.
    zt::SingleInstance single;
    if (!headless && !parser.isSet(screenshotOption) && !single.claim())
        return 0;

    // The data folder follows the XDG rules on its own (see Paths.h), not
    // the toolkit's location, which put files one folder deeper and under
    // "/" without HOME.
    zt::paths::moveOldDataFolder();
    if (const auto dataDir = zt::paths::dataDir(); !dataDir.empty())
        QDir().mkpath(QString::fromStdString(dataDir.string()));

    zt::QtMainLoop mainLoop;
    zt::MainLoop::install(&mainLoop);

    zt::ZebToolsAppDelegate delegate;
    delegate.launch();
    zt::Tools* tools = delegate.tools();

    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/"));
    engine.setInitialProperties({{"tools", QVariant::fromValue(tools)}});
    engine.load(QUrl(QStringLiteral("qrc:/ZebTools/app/Main.qml")));
    if (engine.rootObjects().isEmpty()) {
        zt::warn("The main view could not be loaded");
        return 1;
    }
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().first());
    single.setWindow(window);
    if (parser.isSet(sizeOption)) {
        const QStringList size = parser.value(sizeOption).split('x');
        if (size.size() == 2 && size[0].toInt() > 0 && size[1].toInt() > 0) {
            window->resize(size[0].toInt(), size[1].toInt());
        }
    }
    // A desktop session reopens the window where it was left. Runs without a
    // display, and windows sized on the command line, neither read nor write
    // that place.
    if (headless || parser.isSet(screenshotOption) || parser.isSet(sizeOption)) {
        window->show();
    } else {
        const auto path = zt::paths::dataDir() / "window.ini";
        auto* placement =
            new zt::WindowPlacement(window, QString::fromStdString(path.string()), &app);
        placement->restoreAndShow();
    }

    auto whenLoaded = [tools](std::function<void()> action) {
        if (!tools->loading()) {
            QTimer::singleShot(0, std::move(action));
            return;
        }
        QObject::connect(tools, &zt::Tools::loadingChanged, tools, [tools, action] {
            if (!tools->loading())
                QTimer::singleShot(0, action);
        });
    };

    if (parser.isSet(screenshotOption)) {
        auto* runner =
            new zt::ScreenshotRunner(window, tools, parser.value(screenshotOption), &app);
        whenLoaded([runner] { runner->start(); });
    } else {
        if (parser.isSet(selectTabOption)) {
            const int tab = parser.value(selectTabOption).toInt();
            whenLoaded([tools, tab] { tools->selectTab(tab); });
        }
        if (parser.isSet(probeOption)) {
            auto* probe =
                new zt::ScreenProbe(window, tools, parser.value(probeOption).toInt(), &app);
            whenLoaded([probe] { probe->start(); });
        }
        if (parser.isSet(quitAfterOption)) {
            const int ms = static_cast<int>(parser.value(quitAfterOption).toDouble() * 1000);
            const QString grab = parser.value(grabOption);
            whenLoaded([window, ms, grab] {
                QTimer::singleShot(ms, qApp, [window, grab] {
                    if (!grab.isEmpty())
                        window->grabWindow().save(grab);
                    QCoreApplication::quit();
                });
            });
        }
        if (parser.isSet(quitWhenLoadedOption)) {
            whenLoaded([] { QTimer::singleShot(200, qApp, &QCoreApplication::quit); });
        }
    }

    const int status = app.exec();
    zt::MainLoop::install(nullptr);
    return status;
}
