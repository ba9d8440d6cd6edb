// Runs the QML tests against the app's own QML module, with a shell whose
// tab bar exists and whose sounds are still loading.
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>

#include <QQmlEngine>

#include "app/Tools.h"
#include "chords/RecordingChordOutput.h"
#include "framework/TickClock.h"
#include "metronome/RecordingOutput.h"
#include "screen/ScreenEngines.h"
#include "tuners/RecordingToneOutput.h"

Q_IMPORT_QML_PLUGIN(ZebToolsPlugin)

class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->addImportPath(QStringLiteral("qrc:/"));
        static zt::test::RecordingOutput output;
        static zt::ManualTickClock clock;
        static zt::test::RecordingChordOutput chords;
        static zt::test::RecordingToneOutput tones;
        auto* tools = new zt::Tools(zt::ScreenEngines{output, clock, chords, tones}, engine);
        tools->createTabBar(0);
        qmlRegisterSingletonInstance("ZebToolsTest", 1, 0, "TestShell", tools);
    }
};

QUICK_TEST_MAIN_WITH_SETUP(zebtools_qml, Setup)

#include "main.moc"
