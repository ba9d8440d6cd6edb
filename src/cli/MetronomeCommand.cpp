#include "cli/MetronomeCommand.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>

#include "cli/Validators.h"
#include "cli/WavOutput.h"
#include "metronome/ClickSet.h"
#include "metronome/ClickSounds.h"
#include "metronome/MetronomeEngine.h"
#include "metronome/SubdivisionPattern.h"
#include "metronome/TempoRules.h"
#include "sound/OfflineRender.h"
#include "sound/SoundEngine.h"

namespace zt::cli {

namespace {

constexpr const char* kDescription =
    "Renders the metronome, exactly as the application plays it from a start, to a 16-bit mono "
    "WAV file at 44100 Hz.";

constexpr const char* kPatternHelp =
    "subdivision: 1 beats only, 2 eighths, 3 triplets, 4 sixteenths, 5 one sixteenth before "
    "each beat, 6 last triplet of each beat (shuffle); with an eighth-note beat only 1, 2, 3 "
    "and 6";

bool parseWhole(std::string_view text, int& value) {
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size() && !text.empty();
}

// N/D with N from 1 to 16 and D 4 or 8, applied to setup; false otherwise.
bool applySignature(const std::string& text, MetronomeSetup& setup) {
    const auto slash = text.find('/');
    int numerator = 0;
    int denominator = 0;
    return slash != std::string::npos &&
           parseWhole(std::string_view(text).substr(0, slash), numerator) &&
           parseWhole(std::string_view(text).substr(slash + 1), denominator) &&
           setup.setTimeSig1Value(numerator) && setup.setTimeSig2Value(denominator);
}

const CLI::Validator kSignature(
    [](std::string& text) {
        MetronomeSetup scratch;
        return applySignature(text, scratch)
                   ? std::string()
                   : "must be N/D with N from 1 to 16 and D 4 or 8, not \"" + text + "\"";
    },
    "N/D");

}  // namespace

MetronomeCommand::MetronomeCommand(CLI::App& parent)
    : CliCommand(parent, "metronome", "render the metronome to a WAV file"),
      bpm_(job_.setup.tempo()),
      pattern_(job_.setup.notesPerBeat),
      pack_(job_.setup.packNumber) {
    auto& app = command();
    app.footer(kDescription);
    app.add_option("--bpm", bpm_, "tempo on the wheel")
        ->check(CLI::Range(kMinTempo, kMaxTempo))
        ->capture_default_str();
    app.add_option("--signature", signature_,
                   "time signature; with D = 8 the beat is an eighth note, played at twice the "
                   "tempo")
        ->check(kSignature)
        ->capture_default_str();
    app.add_option("--pattern", pattern_, kPatternHelp)
        ->check(CLI::Range(kFirstPattern, kLastPattern))
        ->capture_default_str();
    app.add_option("--pack", pack_, "sound pack: 1 Classic, 2 Wood, 3 Cowbell, 4 Metal, 5 Electro")
        ->check(CLI::Range(kFirstPackNumber, kLastPackNumber))
        ->capture_default_str();
    app.add_option("--accent", accent_, "accent the first beat of each bar")
        ->check(CLI::IsMember({"on", "off"}))
        ->capture_default_str();
    app.add_option("--seconds", job_.seconds, "length of the file")
        ->check(finiteRange(0.1, 3600.0))
        ->capture_default_str();
    app.add_option("--out", out_, "the WAV file to write")->required()->type_name("FILE");
    app.callback([this] { makeJob(); });
}

void MetronomeCommand::makeJob() {
    job_.setup.BPM = rowForTempo(bpm_);
    applySignature(signature_, job_.setup);
    if (!job_.setup.setNotesPerBeat(pattern_)) {
        throw CLI::ValidationError("--pattern " + std::to_string(pattern_) +
                                   " is not offered with an eighth-note beat; use 1, 2, 3 or 6");
    }
    job_.setup.setCurrentPack(pack_);
    job_.setup.isFirstBeatNeed = accent_ == "on";
    job_.out = out_;
}

int MetronomeCommand::run(std::ostream& out, std::ostream& err) {
    const int rate = SoundEngine::kSampleRate;
    std::string error;
    ClickSet clicks;
    if (!clicks.loadPack(job_.setup.packNumber, rate, error)) {
        err << "zebtools-cli metronome: " << error << "\n";
        return kExitFailure;
    }
    MetronomeEngine engine(rate, clicks.bank());
    engine.start(job_.setup);
    const auto frames = static_cast<std::int64_t>(std::llround(job_.seconds * rate));
    if (!writeWav(engine, rate, frames, job_.out, error)) {
        err << "zebtools-cli metronome: " << error << "\n";
        return kExitFailure;
    }
    out << "wrote " << job_.out.string() << ": " << job_.seconds << " s at "
        << job_.setup.beatsPerMinute() << " beats per minute, " << job_.setup.timeSig1Value << "/"
        << job_.setup.timeSig2Value << ", pattern " << job_.setup.notesPerBeat << ", pack "
        << job_.setup.packNumber << ", accent " << (job_.setup.isFirstBeatNeed ? "on" : "off")
        << "\n";
    return kExitOk;
}

}  // namespace zt::cli
