#include "cli/MetronomeCommand.h"

#include <cmath>

#include "cli/CliCommand.h"
#include "cli/Options.h"
#include "metronome/ClickSet.h"
#include "metronome/MetronomeEngine.h"
#include "metronome/OfflineRender.h"
#include "metronome/TempoRules.h"
#include "sound/SoundEngine.h"

namespace zt::cli {

namespace {

constexpr const char* kUsage = R"(usage: zebtools-cli metronome [options] --out FILE

Renders the metronome, exactly as the application plays it from a start,
to a 16-bit mono WAV file at 44100 Hz.

options:
  --bpm N          tempo on the wheel, 20 to 240 (default 80)
  --signature N/D  time signature: N from 1 to 16, D 4 or 8 (default 2/4);
                   with D = 8 the beat is an eighth note, played at twice the tempo
  --pattern P      subdivision, 1 to 6 (default 1); with D = 8 only 1, 2, 3 and 6
                     1 beats only      2 eighths     3 triplets
                     4 sixteenths      5 one sixteenth before each beat
                     6 last triplet of each beat (shuffle)
  --pack K         sound pack, 1 to 5: Classic, Wood, Cowbell, Metal, Electro (default 1)
  --accent on|off  accent the first beat of each bar (default on)
  --seconds S      length of the file, 0.1 to 3600 (default 30)
  --out FILE       the WAV file to write
  --help           this text
)";

bool parseSignature(const std::string& text, MetronomeSetup& setup, std::string& error) {
    const auto slash = text.find('/');
    int numerator = 0;
    int denominator = 0;
    if (slash == std::string::npos || !parseWholeNumber(text.substr(0, slash), numerator) ||
        !parseWholeNumber(text.substr(slash + 1), denominator) ||
        !setup.setTimeSig1Value(numerator) || !setup.setTimeSig2Value(denominator)) {
        error = "--signature must be N/D with N from 1 to 16 and D 4 or 8, not \"" + text + "\"";
        return false;
    }
    return true;
}

}  // namespace

std::optional<MetronomeJob> parseMetronomeJob(const std::vector<std::string>& args,
                                              std::string& error) {
    Options options;
    if (!options.parse(
            args, {"--bpm", "--signature", "--pattern", "--pack", "--accent", "--seconds", "--out"},
            {}, error)) {
        return std::nullopt;
    }

    MetronomeJob job;
    const auto bpm = options.integer("--bpm", job.setup.tempo(), kMinTempo, kMaxTempo, error);
    if (!bpm)
        return std::nullopt;
    job.setup.BPM = rowForTempo(*bpm);

    if (const auto signature = options.value("--signature")) {
        if (!parseSignature(*signature, job.setup, error))
            return std::nullopt;
    }

    const auto pattern = options.integer("--pattern", job.setup.notesPerBeat, 1, 6, error);
    if (!pattern)
        return std::nullopt;
    if (!job.setup.setNotesPerBeat(*pattern)) {
        error = "--pattern " + std::to_string(*pattern) +
                " is not offered with an eighth-note beat; use 1, 2, 3 or 6";
        return std::nullopt;
    }

    const auto pack = options.integer("--pack", job.setup.packNumber, 1, 5, error);
    if (!pack)
        return std::nullopt;
    job.setup.setCurrentPack(*pack);

    if (const auto accent = options.value("--accent")) {
        if (*accent != "on" && *accent != "off") {
            error = "--accent must be on or off, not \"" + *accent + "\"";
            return std::nullopt;
        }
        job.setup.isFirstBeatNeed = *accent == "on";
    }

    const auto seconds = options.number("--seconds", job.seconds, 0.1, 3600.0, error);
    if (!seconds)
        return std::nullopt;
    job.seconds = *seconds;

    const auto out = options.value("--out");
    if (!out || out->empty()) {
        error = "--out FILE is required";
        return std::nullopt;
    }
    job.out = *out;
    return job;
}

int runMetronomeCommand(const std::vector<std::string>& args, std::ostream& out,
                        std::ostream& err) {
    for (const auto& arg : args) {
        if (arg == "--help" || arg == "-h") {
            out << kUsage;
            return kExitOk;
        }
    }
    std::string error;
    const auto job = parseMetronomeJob(args, error);
    if (!job) {
        err << "zebtools-cli metronome: " << error << "\n"
            << "Try 'zebtools-cli metronome --help'.\n";
        return kExitUsage;
    }

    const int rate = SoundEngine::kSampleRate;
    ClickSet clicks;
    if (!clicks.loadPack(job->setup.packNumber, rate, error)) {
        err << "zebtools-cli metronome: " << error << "\n";
        return kExitFailure;
    }
    MetronomeEngine engine(rate, clicks.bank());
    engine.start(job->setup);
    const auto frames = static_cast<std::int64_t>(std::llround(job->seconds * rate));
    if (!renderToWav(engine, frames, job->out, error)) {
        err << "zebtools-cli metronome: " << error << "\n";
        return kExitFailure;
    }
    out << "wrote " << job->out.string() << ": " << job->seconds << " s at "
        << job->setup.beatsPerMinute() << " beats per minute, " << job->setup.timeSig1Value << "/"
        << job->setup.timeSig2Value << ", pattern " << job->setup.notesPerBeat << ", pack "
        << job->setup.packNumber << ", accent " << (job->setup.isFirstBeatNeed ? "on" : "off")
        << "\n";
    return kExitOk;
}

}  // namespace zt::cli
