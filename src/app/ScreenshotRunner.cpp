#include "app/ScreenshotRunner.h"

#include <QCoreApplication>
#include <QImage>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>

#include "app/Tools.h"

namespace zt {

namespace {
// Time for a pushed page's animation to settle before it is captured.
constexpr int kSettleMs = 600;
const QStringList kToolFiles = {"metronome", "chromatic-tuner", "brain-tuner", "chords"};
}  // namespace

ScreenshotRunner::ScreenshotRunner(QQuickWindow* window, Tools* tools, const QString& dir,
                                   QObject* parent)
    : QObject(parent), window_(window), tools_(tools), dir_(dir) {}

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
    // next thing: the four tools, the tunings list, the metronome settings.
    const int tools = static_cast<int>(kToolFiles.size());
    if (step_ < tools) {
        if (step_ > 0)
            grab(kToolFiles[step_ - 1]);
        tools_->previewTab(step_);
    } else if (step_ == tools) {
        grab(kToolFiles[tools - 1]);
        tools_->previewTab(1);
        tools_->openTunings(1);
    } else if (step_ == tools + 1) {
        grab("tunings");
        tools_->goBack(1);
        tools_->previewTab(0);
        tools_->showMetronomeSettings();
    } else {
        grab("metronome-settings");
        tools_->goBack(0);
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
