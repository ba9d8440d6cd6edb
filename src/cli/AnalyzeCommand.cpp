#include "cli/AnalyzeCommand.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <csignal>
#include <iostream>

#include "cli/AnalyzeOutput.h"
#include "cli/QueuedCapture.h"
#include "cli/Validators.h"
#include "dsp/CaptureBuffer.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "sound/FileCapture.h"
#include "sound/MicrophoneCapture.h"
#include "state/StateKeys.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tunings/SettingsProxy.h"
#include "tunings/TuningCatalogue.h"
#include "tunings/TuningList.h"

namespace zt::cli {

namespace {

constexpr const char* kDescription =
    "Shows the note being played, as the chromatic tuner does: from a sound file (any format "
    "libsndfile reads, at any rate, channels mixed) or the microphone, resampled to 8000 Hz and "
    "read 20 times a second. Each line: time in seconds, frequency in Hz, note with its octave, "
    "cents, level 0 to 10; \"-\" when there is no pitch. As on the tuner, a moment without pitch "
    "repeats the last reading for up to a second (with the classic detector, for as long as it "
    "lasts). Every block of sound is read once, live sound too. With --raw, the detector's own "
    "frequency for every block (\"-1\": no pitch).";

constexpr const char* kTaperNames[] = {"gauss", "cosine", "hamming", "hann", "lanczos"};

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// The index of a number from 0 to count - 1 or of a name (any case); -1.
template <class Names>
int choose(const std::string& text, const Names& names, int count) {
    for (int i = 0; i < count; ++i) {
        if (text == std::to_string(i) || lowered(text) == lowered(std::string(names(i))))
            return i;
    }
    return -1;
}

int tuningIndex(const std::string& text) {
    return tunings::userTunings().find(text);
}

int taperIndex(const std::string& text) {
    return choose(
        text, [](int i) { return kTaperNames[i]; }, 5);
}

std::atomic<bool> interrupted{false};

// The tuner's proxies in the command's facade, for the length of one run.
class Session {
public:
    Session(std::shared_ptr<AudioCapture> capture, const AnalyzeJob& job)
        : facade_(Facade::getInstance()) {
        auto settings = makeProxy<SettingsProxy>();
        settings->setTuning(job.tuning);
        facade_.registerProxy(settings);
        proxy_ = makeProxy<MainFrequerncyProxy>(std::move(capture));
        facade_.registerProxy(proxy_);
        proxy_->startAudioSession();
        // After the start, which may have loaded saved settings: the command
        // line's own.
        proxy_->initVariables({{state::chromatic::kAllNotes.name, job.allNotes},
                               {state::chromatic::kTaper.name, job.taperMode},
                               {state::chromatic::kBaseOctave.name, 4},
                               {state::chromatic::kBaseIndex.name, 9},
                               {state::chromatic::kBaseFrequency.name, job.base}});
        proxy_->setTresholdPercent(job.threshold);
        proxy_->setClassicDetection(job.classic);
    }
    ~Session() {
        proxy_->stopAudioSession();
        facade_.removeProxy(MainFrequerncyProxy::NAME);
        facade_.removeProxy(SettingsProxy::NAME);
    }

    // The reading's line; empty before the first block. `lost` when the
    // capture device is gone.
    std::string read(bool raw, LineStyle style, bool& lost) {
        FrequencyAnalyzer& analyzer = *proxy_->frequencyAnalyzer();
        auto time = [&analyzer] {
            return static_cast<double>(analyzer.analysedBlockEnd()) /
                   FrequencyAnalyzer::kSampleRate;
        };
        if (raw) {
            const float f = analyzer.frequency();
            lost = f == FrequencyAnalyzer::kNoMicrophone;
            if (lost || f == FrequencyAnalyzer::kNothingCaptured)
                return {};
            return rawLine(time(), f, style);
        }
        const NoteDescription& d = proxy_->getNoteDesctiption();
        lost = d.frequency == FrequencyAnalyzer::kNoMicrophone;
        if (lost || analyzer.analysedBlockEnd() == 0)
            return {};
        return readingLine(
            {time(), d.frequency, d.fullName, proxy_->octaveOf(d), d.cents, d.volumeLevel}, style);
    }

    bool listening() const { return proxy_->frequencyAnalyzer()->isListening(); }

private:
    Facade& facade_;
    std::shared_ptr<MainFrequerncyProxy> proxy_;
};

// The debug log stays quiet while the command runs; it reports for itself.
class QuietLog {
public:
    QuietLog() { setLogQuiet(true); }
    ~QuietLog() { setLogQuiet(false); }
};

}  // namespace

AnalyzeCommand::AnalyzeCommand(CLI::App& parent)
    : CliCommand(parent, "analyze", "show the note of a sound file or the microphone") {
    auto& app = command();
    app.footer(kDescription);
    auto* file = app.add_option("file", job_.file, "the sound file")->type_name("FILE");
    auto* mic =
        app.add_flag("--mic", job_.mic, "listen to the microphone instead, live")->excludes(file);
    app.add_option("--seconds", job_.seconds, "with --mic: stop after this long (default: Ctrl-C)")
        ->check(finiteRange(0.1, 86400.0))
        ->needs(mic);
    app.add_flag("--all-notes", job_.allNotes,
                 "name the nearest of all notes, not the nearest string of the tuning");
    app.add_option("--tuning", tuning_, "the tuning whose strings are named: number or name")
        ->check(CLI::Validator(
            [](std::string& text) {
                return tuningIndex(text) < 0 ? "no tuning \"" + text + "\"" : std::string();
            },
            "N|NAME"))
        ->capture_default_str();
    app.add_option("--taper", taper_,
                   "window of the classic detector: 0 gauss, 1 cosine, 2 hamming, 3 hann, 4 "
                   "lanczos")
        ->check(CLI::Validator(
            [](std::string& text) {
                return taperIndex(text) < 0 ? "no window \"" + text + "\"" : std::string();
            },
            "MODE"))
        ->capture_default_str();
    app.add_option("--threshold", job_.threshold,
                   "microphone sensitivity threshold, percent (lower hears quieter sound)")
        ->check(CLI::Range(0, 100))
        ->capture_default_str();
    app.add_option("--base", job_.base, "frequency of A4, Hz")
        ->check(finiteRange(100.0, 1000.0))
        ->capture_default_str();
    app.add_option("--detector", detector_,
                   "fine (ours, the default) or overtone (the classic detector)")
        ->check(CLI::IsMember({"fine", "overtone"}))
        ->capture_default_str();
    app.add_flag("--raw", job_.raw, "print the detector's own frequency for every block");
    app.add_flag("--json", job_.json, "one JSON object a line");
    app.callback([this] { makeJob(); });
}

namespace {

// Why a readable file is still not sound to analyse, or "". A rate far out
// of the audio range only makes a short file stand for hours (or a long one
// for an instant) of readings.
std::string refusedInput(const FileCapture& file) {
    constexpr int kLowestRate = 1000;
    constexpr int kHighestRate = 1000000;
    const int rate = file.fileRate();
    if (rate < kLowestRate || rate > kHighestRate) {
        return "a sample rate of " + std::to_string(rate) + " Hz is outside " +
               std::to_string(kLowestRate) + " to " + std::to_string(kHighestRate) + " Hz";
    }
    const auto samples = std::llround(file.fileSeconds() * rate);
    if (samples == 0)
        return "the file holds no sound (no samples)";
    if (samples == 1)
        return "the file holds no sound (a single sample)";
    return "";
}

}  // namespace

void AnalyzeCommand::makeJob() {
    if (job_.file.empty() && !job_.mic)
        throw CLI::ValidationError("give a sound FILE or --mic");
    job_.tuning = tuningIndex(tuning_);
    job_.taperMode = taperIndex(taper_);
    job_.classic = detector_ == "overtone";
}

int AnalyzeCommand::run(std::ostream& out, std::ostream& err) {
    QuietLog quiet;
    const LineStyle style = job_.json ? LineStyle::Json : LineStyle::Text;
    const std::string name = "zebtools-cli analyze: ";

    if (!job_.mic) {
        std::string error;
        std::shared_ptr<FileCapture> file = FileCapture::open(job_.file, error);
        if (!file) {
            err << name << job_.file << ": " << error << "\n";
            return kExitUsage;
        }
        if (const std::string refused = refusedInput(*file); !refused.empty()) {
            err << name << job_.file << ": " << refused << "\n";
            return kExitUsage;
        }
        Session session(file, job_);
        bool lost = false;
        // The file gives the next 50 ms whenever the last reading is done.
        while (file->pump(CaptureBuffer::kHopSamples) == CaptureBuffer::kHopSamples) {
            const std::string line = session.read(job_.raw, style, lost);
            if (!line.empty())
                out << line << "\n";
        }
        return kExitOk;
    }

    // Every captured block is analysed once, in order, as a file's would be;
    // the queue gives the reader a minute to catch up after a stall.
    auto queued = std::make_shared<QueuedCapture>(std::make_shared<MicrophoneCapture>(),
                                                  60 * FrequencyAnalyzer::kSampleRate);
    Session session(queued, job_);
    if (!session.listening()) {
        err << name << "no capture device can be opened\n";
        return kExitFailure;
    }
    // In a terminal one line is rewritten in place.
    const bool inPlace = &out == &std::cout && ::isatty(STDOUT_FILENO);
    interrupted = false;
    const auto previous = std::signal(SIGINT, [](int) { interrupted = true; });
    // --seconds counts sound heard, on the capture's clock.
    const auto wanted = static_cast<std::int64_t>(job_.seconds * FrequencyAnalyzer::kSampleRate);
    std::int64_t heard = 0;
    // A device that stays open but gives nothing still ends the run.
    const auto giveUp =
        std::chrono::steady_clock::now() + std::chrono::duration<double>(job_.seconds + 2.0);
    int code = kExitOk;
    while (!interrupted && (wanted == 0 || heard < wanted)) {
        if (!queued->waitFor(CaptureBuffer::kHopSamples, std::chrono::milliseconds(100))) {
            if (wanted > 0 && std::chrono::steady_clock::now() > giveUp)
                break;
            if (queued->state() != AudioCapture::State::Lost)
                continue;
        }
        bool lost = queued->state() == AudioCapture::State::Lost;
        std::string line;
        if (!lost && queued->pump(CaptureBuffer::kHopSamples)) {
            heard += CaptureBuffer::kHopSamples;
            line = session.read(job_.raw, style, lost);
        }
        if (lost) {
            err << (inPlace ? "\n" : "") << name << "the microphone went away\n";
            code = kExitFailure;
            break;
        }
        if (line.empty())
            continue;
        if (inPlace) {
            out << "\r" << line << "\x1b[K" << std::flush;
        } else {
            out << line << "\n" << std::flush;
        }
    }
    if (const std::int64_t lost = queued->lostSamples(); lost > 0)
        err << (inPlace ? "\n" : "") << name << lost
            << " samples came faster than they could be read and were left out\n";
    std::signal(SIGINT, previous);
    if (inPlace && code == kExitOk)
        out << "\n";
    return code;
}

}  // namespace zt::cli
