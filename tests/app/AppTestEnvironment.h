#pragma once
// A fresh program state for each test: the framework's singletons reset, a
// private data folder, no audio device, the test's own main loop, a record
// of the debug log, and engines for the screens that play nothing.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <filesystem>
#include <string>
#include <vector>

#include "app/Tools.h"
#include "chords/RecordingChordOutput.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "framework/ManualLoop.h"
#include "framework/TickClock.h"
#include "metronome/RecordingOutput.h"
#include "screen/ScreenEngines.h"
#include "tuners/RecordingToneOutput.h"

// The application's main view over a launched shell, as the program loads
// it; nullptr when it does not load. Not shown yet.
inline QQuickWindow* loadMainWindow(QQmlApplicationEngine& engine, zt::Tools* tools) {
    engine.addImportPath(QStringLiteral("qrc:/"));
    engine.setInitialProperties({{"tools", QVariant::fromValue(tools)}});
    engine.load(QUrl(QStringLiteral("qrc:/ZebTools/app/Main.qml")));
    return engine.rootObjects().isEmpty()
               ? nullptr
               : qobject_cast<QQuickWindow*>(engine.rootObjects().first());
}

class AppTestEnvironment : public ::testing::Test {
protected:
    void SetUp() override {
        zt::Facade::reset();
        dataDir_ = std::filesystem::temp_directory_path() /
                   ("zt-app-" + std::to_string(::getpid()) + "-" +
                    ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(dataDir_);
        std::filesystem::create_directories(dataDir_);
        ::setenv("ZEBTOOLS_DATA_DIR", dataDir_.c_str(), 1);
        ::setenv("ALSOFT_DRIVERS", "null", 1);
        zt::MainLoop::install(&loop_);
        zt::setLogQuiet(true);
        zt::setLogSink([this](const std::string& line) { logLines_.push_back(line); });
    }
    void TearDown() override {
        zt::setLogSink({});
        zt::Facade::reset();
        zt::MainLoop::install(nullptr);
        std::filesystem::remove_all(dataDir_);
    }

    bool logged(const std::string& line) const {
        return std::find(logLines_.begin(), logLines_.end(), line) != logLines_.end();
    }

    std::filesystem::path dataDir_;
    zt::ManualLoop loop_;
    std::vector<std::string> logLines_;
    zt::test::RecordingOutput output_;
    zt::ManualTickClock clock_;
    zt::test::RecordingChordOutput chords_;
    zt::test::RecordingToneOutput tones_;
    zt::ScreenEngines engines_{output_, clock_, chords_, tones_};
};
