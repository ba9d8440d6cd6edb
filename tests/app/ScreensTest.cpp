// The screen table: every screen the shell shows has a row, the whole shell
// is built from it without a sound card, every mediator registers, and every
// view loads with its screen.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QThread>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "AppTestEnvironment.h"
#include "app/ApplicationFacade.h"
#include "app/Screens.h"
#include "app/Tools.h"
#include "dsp/FrequencyAnalyzer.h"
#include "dsp/OvertonePDA.h"
#include "state/StateKeys.h"
#include "tuners/ui/MicrophoneCalibrating.h"
#include "tuners/ui/OrchestraControl.h"
#include "tuners/ui/TunerChromatic.h"

using namespace zt;

namespace {

class ScreensTest : public AppTestEnvironment {};

QString keyOf(const ScreenRow& row) {
    return QString::fromUtf8(row.key);
}

// The items of a view whose object names begin with `prefix`.
void collect(QQuickItem* item, const QString& prefix, std::vector<QQuickItem*>& found) {
    if (!item)
        return;
    if (item->objectName().startsWith(prefix))
        found.push_back(item);
    for (QQuickItem* child : item->childItems())
        collect(child, prefix, found);
}

std::vector<QQuickItem*> itemsOf(const std::unique_ptr<QObject>& view, const QString& prefix) {
    std::vector<QQuickItem*> found;
    collect(qobject_cast<QQuickItem*>(view.get()), prefix, found);
    return found;
}

// A screen's view, made as the shell makes it.
std::unique_ptr<QObject> viewOf(QQmlEngine& engine, Tools& tools, const QString& key) {
    engine.addImportPath(QStringLiteral("qrc:/"));
    QQmlComponent component(&engine, tools.viewUrl(key));
    std::unique_ptr<QObject> view(component.createWithInitialProperties(
        {{QStringLiteral("screen"), QVariant::fromValue(tools.screen(key))}}));
    EXPECT_NE(view, nullptr) << component.errorString().toStdString();
    return view;
}

}  // namespace

TEST_F(ScreensTest, KeysAreUniqueAndEachTabsRootIsARowOfThatTab) {
    // The saved tab is one of them.
    EXPECT_EQ(toolTabs().size(), size_t(state::kSelectedViewController.max + 1));
    std::set<std::string_view> keys;
    for (const ScreenRow& row : screenTable())
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
    for (size_t tab = 0; tab < toolTabs().size(); ++tab) {
        const ScreenRow* root = screenRow(toolTabs()[tab].root);
        ASSERT_NE(root, nullptr) << toolTabs()[tab].root;
        EXPECT_EQ(root->tab, static_cast<int>(tab)) << root->key;
    }
}

// A tab's root is never pushed; every other screen is opened by some route,
// on a stack that exists, and each route finds its own row again.
TEST_F(ScreensTest, RoutesOpenEveryScreenButTheTabsRoots) {
    std::set<std::string_view> roots;
    for (const ToolTab& tab : toolTabs())
        roots.insert(tab.root);
    // Nothing opens the promotion page yet: its notification only logs.
    const std::string_view unopened = "howToEnter";
    for (const ScreenRow& row : screenTable()) {
        EXPECT_EQ(row.routes.empty(), roots.count(row.key) || row.key == unopened) << row.key;
        for (const ScreenRoute& route : row.routes) {
            EXPECT_EQ(routeOf(route.notification).route, &route) << route.notification;
            if (row.tab == kAnyTab)
                EXPECT_TRUE(route.tab >= 0 && route.tab < int(toolTabs().size())) << row.key;
            else
                EXPECT_EQ(route.tab, kAnyTab) << route.notification << ": the row's tab decides";
        }
    }
}

TEST_F(ScreensTest, WholeShellStartsFromTheTableWithoutASoundCard) {
    Tools tools(engines_);
    for (const ScreenRow& row : screenTable()) {
        Screen* screen = tools.screen(keyOf(row));
        ASSERT_NE(screen, nullptr) << row.key;
        EXPECT_EQ(screen->title(), QString::fromUtf8(row.title)) << row.key;
        // The navigation bar reads the title; the orchestra screen's in
        // sentence case.
        EXPECT_EQ(screen->navigationTitle(), keyOf(row) == "orchestraControl"
                                                 ? QStringLiteral("Orchestra tuning")
                                                 : screen->title())
            << row.key;
    }
    // Opening the sound card would have said where its output goes.
    for (const std::string& line : logLines_)
        EXPECT_EQ(line.find("SoundEngine"), std::string::npos) << line;

    ApplicationFacade::getInstance().startup(&tools);
    size_t mediators = 0;
    for (const ScreenRow& row : screenTable())
        mediators += row.makeMediator != nullptr;
    EXPECT_GT(mediators, 0u);
    for (const ScreenRow& row : screenTable()) {
        if (!row.makeMediator)
            continue;
        const std::string name = row.makeMediator(tools.screen(keyOf(row)))->mediatorName();
        EXPECT_TRUE(Facade::getInstance().hasMediator(name)) << row.key;
    }
}

TEST_F(ScreensTest, EveryViewLoadsWithItsScreen) {
    Tools tools(engines_);
    QQmlEngine engine;
    for (const ScreenRow& row : screenTable())
        EXPECT_NE(viewOf(engine, tools, keyOf(row)), nullptr) << row.key;
}

// The share of its meter that a view's level fill covers, and where its
// threshold tick stands on it (a meter that grows from its middle: the right
// tick, from the middle, on the half).
struct MeterReading {
    double fill = -1;
    double mark = -1;
};

MeterReading meterOf(const std::unique_ptr<QObject>& view) {
    const auto fills = itemsOf(view, QStringLiteral("levelFill"));
    const auto marks = itemsOf(view, QStringLiteral("thresholdMark"));
    const auto mirrors = itemsOf(view, QStringLiteral("mirroredThresholdMark"));
    EXPECT_EQ(fills.size(), 1u);
    EXPECT_EQ(marks.size(), 1u);
    if (fills.size() != 1 || marks.size() != 1)
        return {};
    const double track = fills[0]->parentItem()->width();
    const double fill = fills[0]->width() / track;
    const double mark = marks[0]->x() + marks[0]->width() / 2;
    if (mirrors.empty())
        return {fill, mark / track};
    // Grown from the middle: the fill and the ticks sit alike on both sides.
    const double mirror = mirrors[0]->x() + mirrors[0]->width() / 2;
    EXPECT_NEAR(fills[0]->x() + fills[0]->width() / 2, track / 2, 1.0);
    EXPECT_NEAR(mark + mirror, track, 1.0);
    return {fill, (mark - track / 2) / (track / 2)};
}

// One tone, seen by the detector as a single spectral peak, read by the
// tuner (a pitch step) and by the sensitivity screen (a percentage): both
// meters show it at the same place, within half a step, and mark the
// threshold at the same place.
TEST_F(ScreensTest, BothMetersShowAToneAlike) {
    Tools tools(engines_);
    QQmlEngine engine;
    const auto tunerView = viewOf(engine, tools, QStringLiteral("tunerChromatic"));
    const auto micView = viewOf(engine, tools, QStringLiteral("microphoneCalibrating"));
    ASSERT_TRUE(tunerView && micView);
    for (QObject* view : {tunerView.get(), micView.get()}) {
        view->setProperty("width", 320);
        view->setProperty("height", 480);
    }
    auto* tuner = qobject_cast<TunerChromatic*>(tools.screen(QStringLiteral("tunerChromatic")));
    auto* mic =
        qobject_cast<MicrophoneCalibrating*>(tools.screen(QStringLiteral("microphoneCalibrating")));
    OvertonePDA detector{TaperSettings(1)};
    std::vector<double> spectrum(FrequencyAnalyzer::kBins);
    const struct {
        int treshold;
        double peak;  // the tone's strongest bin
        double tolerance;
    } rows[] = {{50, 125.0, 0.05},
                {50, 140.0, 0.05},
                {50, 160.0, 0.05},
                {50, 100.0, 0.05},
                {20, 90.0, 0.05},
                {20, 170.0, 0.05},
                {80, 180.0, 0.05},
                {80, 195.0, 0.05},
                {35, 200.0, 0.05},
                {0, 80.0, 0.05},
                {100, 200.0, 0.05},
                // Far below the threshold the tuner's lowest step is open
                // below, and far above the tuner's top step is open above.
                {50, 60.0, 0.1},
                {10, 200.0, 0.4}};
    for (const auto& r : rows) {
        std::fill(spectrum.begin(), spectrum.end(), 1.0);  // a quiet floor
        spectrum[225] = r.peak;                            // about 440 Hz
        detector.changeSensitivity(r.treshold);
        detector.loadForPitch(spectrum.data(), FrequencyAnalyzer::kTransformLength,
                              FrequencyAnalyzer::kSampleRate);
        const int step = detector.getVolumeLevel();
        detector.loadForVolume(spectrum.data(), FrequencyAnalyzer::kTransformLength);
        const int percent = detector.getVolumeLevel();

        tuner->setSavedData({{"Treshold", r.treshold}});
        tuner->showNoteAndFreq({"A4", 440.0, 440.0, 0.0, step, 9});
        mic->setTreshold(r.treshold);
        mic->showIntensity(percent);

        const MeterReading onTuner = meterOf(tunerView);
        const MeterReading onMic = meterOf(micView);
        const std::string row = "threshold " + std::to_string(r.treshold) + ", peak " +
                                std::to_string(r.peak) + ": step " + std::to_string(step) + ", " +
                                std::to_string(percent) + " %";
        EXPECT_NEAR(onMic.fill, percent / 100.0, 1e-3) << row;
        EXPECT_NEAR(onTuner.fill, onMic.fill, r.tolerance + 0.01) << row;
        // Ticks stand on whole pixels: one is 0.02 of the tuner's 50-point half.
        EXPECT_NEAR(onTuner.mark, onMic.mark, 0.025) << row;
        EXPECT_NEAR(onMic.mark, r.treshold / 100.0, 0.01) << row;
    }
}

// The note picker slides up into place, which takes a quarter of a second.
TEST_F(ScreensTest, NotePickerSlidesIn) {
    Tools tools(engines_);
    QQmlEngine engine;
    const auto view = viewOf(engine, tools, QStringLiteral("orchestraControl"));
    const auto panels = itemsOf(view, QStringLiteral("notePickerPanel"));
    ASSERT_EQ(panels.size(), 1u);
    auto* orchestra =
        qobject_cast<OrchestraControl*>(tools.screen(QStringLiteral("orchestraControl")));
    QElapsedTimer clock;
    clock.start();
    orchestra->showNoteIndexPicker();
    EXPECT_GT(panels[0]->property("slideOffset").toDouble(), 100.0) << "it starts below";
    while (panels[0]->property("slideOffset").toDouble() > 0.0 && clock.elapsed() < 3000) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    EXPECT_EQ(panels[0]->property("slideOffset").toDouble(), 0.0);
    EXPECT_GE(clock.elapsed(), 240);
}
