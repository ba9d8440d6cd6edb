// ZebTools: metronome, tuners and chords for guitarists.

#include <QtQml/qqmlextensionplugin.h>

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTimer>
#include <cstdlib>

#include "app/AppLog.h"
#include "app/AppOptions.h"
#include "app/QtMainLoop.h"
#include "app/QuitSignals.h"
#include "app/ScreenProbe.h"
#include "app/ScreenshotRunner.h"
#include "app/SingleInstance.h"
#include "app/Tools.h"
#include "app/WindowPlacement.h"
#include "app/ZebToolsAppDelegate.h"
#include "framework/Log.h"
#include "framework/Paths.h"
#include "sound/OpenAlSettings.h"

Q_IMPORT_QML_PLUGIN(ZebToolsPlugin)

int main(int argc, char* argv[]) {
    // It changes the environment: done before any thread of the toolkit runs.
    zt::applyOpenAlSettings();
    QCoreApplication::setOrganizationName("zebtools");
    QCoreApplication::setApplicationName("zebtools");
    QCoreApplication::setApplicationVersion(ZEBTOOLS_VERSION);

    // The command line is read before the display is opened, so that --help,
    // --version and mistakes need none; the toolkit's own options are only
    // known once it has taken them out, so they are read again after.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    if (const auto early = zt::readAppOptions(arguments, true); early.exitCode)
        return zt::endRun(early);

    const bool headless = qEnvironmentVariable("QT_QPA_PLATFORM") == QLatin1String("offscreen");
    if (headless)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);

    QGuiApplication app(argc, argv);
    zt::quitOnTerminationSignals();
    QGuiApplication::setApplicationDisplayName("ZebTools");
    QGuiApplication::setDesktopFileName("org.zebtools.ZebTools");
    QQuickStyle::setStyle("Basic");
    // Every text of the views, controls and plain Text items alike.
    QGuiApplication::setFont(QFont(QStringLiteral("DejaVu Sans")));

    const auto read = zt::readAppOptions(QCoreApplication::arguments());
    if (read.exitCode)
        return zt::endRun(read);
    const zt::AppOptions& options = read.options;
    zt::routeLogToQt(options.verbose);

    // A second launch raises the running window and ends. Runs without a
    // display and picture runs are tests, each a world of its own.
    zt::SingleInstance single;
    if (!headless && options.screenshotDir.isEmpty() && !single.claim())
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
    // A desktop session reopens the window where it was left, at the size
    // asked for on the command line if one was. Runs without a display
    // neither read nor write that place.
    if (headless || !options.screenshotDir.isEmpty()) {
        if (options.size.isValid())
            window->resize(options.size);
        window->show();
    } else {
        const auto path = zt::paths::dataDir() / "window.ini";
        auto* placement =
            new zt::WindowPlacement(window, QString::fromStdString(path.string()), &app);
        placement->restoreAndShow(options.size);
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

    if (!options.screenshotDir.isEmpty()) {
        auto* runner = new zt::ScreenshotRunner(window, tools, options.screenshotDir, &app);
        whenLoaded([runner] { runner->start(); });
    } else {
        if (options.selectTab) {
            const int tab = *options.selectTab;
            whenLoaded([tools, tab] { tools->selectTab(tab); });
        }
        if (options.probeMs) {
            auto* probe = new zt::ScreenProbe(window, tools, *options.probeMs, &app);
            whenLoaded([probe] { probe->start(); });
        }
        if (options.quitAfterMs) {
            const int ms = *options.quitAfterMs;
            const QString grab = options.grab;
            whenLoaded([window, ms, grab] {
                QTimer::singleShot(ms, qApp, [window, grab] {
                    if (!grab.isEmpty())
                        window->grabWindow().save(grab);
                    QCoreApplication::quit();
                });
            });
        }
        if (options.quitWhenLoaded) {
            whenLoaded([] { QTimer::singleShot(200, qApp, &QCoreApplication::quit); });
        }
    }

    const int status = app.exec();
    zt::MainLoop::install(nullptr);
    return status;
}
