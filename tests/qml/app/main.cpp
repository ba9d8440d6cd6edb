// Runs QML tests against the real program: the application is launched as
// at start-up (facade, saved state in a private folder, sound bank), and its
// shell is handed to the tests, which drive the views by touch.
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>

#include <QDir>
#include <QFile>
#include <QQmlEngine>
#include <QTemporaryDir>

#include "app/QtMainLoop.h"
#include "app/Tools.h"
#include "app/ZebToolsAppDelegate.h"

Q_IMPORT_QML_PLUGIN(ZebToolsPlugin)

// What the tests may see of the running program.
class AppHarness : public QObject {
    Q_OBJECT
    Q_PROPERTY(zt::Tools* tools READ tools CONSTANT)

public:
    AppHarness() {
        qputenv("ZEBTOOLS_DATA_DIR", dataDir_.path().toUtf8());
        zt::MainLoop::install(&loop_);
        delegate_.launch();
    }
    ~AppHarness() override { zt::MainLoop::install(nullptr); }

    zt::Tools* tools() const { return delegate_.tools(); }

    // The text of a file in the program's data folder ("" when missing).
    Q_INVOKABLE QString readDataFile(const QString& name) const {
        QFile file(QDir(dataDir_.path()).filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private:
    QTemporaryDir dataDir_;
    zt::QtMainLoop loop_;
    zt::ZebToolsAppDelegate delegate_;
};

class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->addImportPath(QStringLiteral("qrc:/"));
        qmlRegisterSingletonInstance("ZebToolsTest", 1, 0, "App", new AppHarness);
    }
};

QUICK_TEST_MAIN_WITH_SETUP(zebtools_app, Setup)

#include "main.moc"
