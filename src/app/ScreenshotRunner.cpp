#include "app/ScreenshotRunner.h"

#include <QCoreApplication>
#include <QImage>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>
#include <vector>

#include "app/Screens.h"
#include "app/Tools.h"

namespace zt {

namespace {
// Time for a pushed page's animation to settle before it is captured.
constexpr int kSettleMs = 600;

// Screens drawn after the chords settings: each on its tab, pushed over the
// screens that lead to it.
struct Shot {
    const char* file;
    int tab;
    std::vector<const char*> path;
};

const std::vector<Shot>& laterShots() {
    static const std::vector<Shot> shots = {
        {"chromatic-settings", ChromaticTab, {"tunerChromaticSettings"}},
        {"tapering-functions", ChromaticTab, {"tunerChromaticSettings", "tunerChromaticTaper"}},
        {"orchestra-tuning", ChromaticTab, {"tunerChromaticSettings", "orchestraControl"}},
        {"microphone-sensitivity",
         ChromaticTab,
         {"tunerChromaticSettings", "microphoneCalibrating"}},
        {"brain-tuner-settings", BrainTab, {"tunerBrainSettings"}},
    };
    return shots;
}
}  // namespace

ScreenshotRunner::ScreenshotRunner(QQuickWindow* window, Tools* tools, const QString& dir,
                                   QObject* parent)
    : QObject(parent), window_(window), tools_(tools), dir_(dir) {
    // "Chromatic Tuner" is drawn to chromatic-tuner.png.
    for (const ToolTab& tab : toolTabs())
        toolFiles_.append(QString::fromUtf8(tab.title).toLower().replace(' ', '-'));
}

void ScreenshotRunner::start() {
    dir_.mkpath(".");
    step_ = 0;
    QTimer::singleShot(kSettleMs, this, &ScreenshotRunner::step);
}

void ScreenshotRunner::grab(const QString& name) {
    const QImage image = window_->grabWindow();
    const QString path = dir_.filePath(name + ".png");
    if (image.save(path))
        written_.append(path);
}

void ScreenshotRunner::step() {
    // Each step captures what the previous one put on screen, then shows the
    // next thing: the four tools, the tunings list, the metronome and the
    // chords settings, then the later shots.
    const int tools = static_cast<int>(toolFiles_.size());
    if (step_ < tools) {
        if (step_ > 0)
            grab(toolFiles_[step_ - 1]);
        tools_->previewTab(step_);
    } else if (step_ == tools) {
        grab(toolFiles_[tools - 1]);
        tools_->previewTab(1);
        tools_->openTunings(1);
    } else if (step_ == tools + 1) {
        grab("tunings");
        tools_->goBack(1);
        tools_->previewTab(0);
        tools_->show(QStringLiteral("metronomeSettings"));
    } else if (step_ == tools + 2) {
        grab("metronome-settings");
        tools_->goBack(0);
        tools_->previewTab(3);
        tools_->show(QStringLiteral("chordsLibrarySettings"));
    } else if (const auto later = static_cast<std::size_t>(step_ - tools - 3);
               later <= laterShots().size()) {
        if (later == 0) {
            grab("chords-settings");
            tools_->goBack(3);
        } else {
            const Shot& shot = laterShots()[later - 1];
            grab(QString::fromUtf8(shot.file));
            for (std::size_t i = 0; i < shot.path.size(); ++i)
                tools_->goBack(shot.tab);
        }
        if (later < laterShots().size()) {
            const Shot& next = laterShots()[later];
            tools_->previewTab(next.tab);
            for (const char* key : next.path)
                tools_->show(QString::fromUtf8(key));
        } else {
            step_ = -1;
        }
    }
    if (step_ == -1) {
        for (const QString& path : std::as_const(written_))
            std::printf("%s\n", qPrintable(path));
        std::fflush(stdout);
        QCoreApplication::quit();
        return;
    }
    ++step_;
    QTimer::singleShot(kSettleMs, this, &ScreenshotRunner::step);
}

}  // namespace zt
