#include "cli/MetronomeCommand.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

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
    "WAV file at 44100 Hz.\n\n"
    "Practice: zebtools-cli metronome --signature 4/4 --trainer 60:120:5:4 --beats ANNS "
    "--mute 3:1 --seconds 120 --out climb.wav climbs from 60 to 120 beats per minute, 5 more "
    "every 4 bars, the fourth beat silent, every fourth bar silent.";

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

// Exactly `count` whole numbers (a sign allowed) separated by ':'.
std::optional<std::vector<int>> splitWholes(std::string_view text, size_t count) {
    std::vector<int> values;
    for (size_t i = 0; i < count; ++i) {
        const auto colon = text.find(':');
        // Every field but the last ends at a colon, the last at the end.
        if ((colon == std::string_view::npos) != (i + 1 == count))
            return std::nullopt;
        int value = 0;
        if (!parseWhole(text.substr(0, colon), value))
            return std::nullopt;
        values.push_back(value);
        text = colon == std::string_view::npos ? std::string_view() : text.substr(colon + 1);
    }
    return values;
}

bool inRange(int value, const state::IntKey& key) {
    return value >= key.min && value <= key.max;
}

namespace pk = practice_keys;

// START:END:STEP:BARS. The step is a size, the direction is from START to
// END; a negative step is taken as a step down and must then go down.
bool applyTrainer(const std::string& text, PracticeSetup& practice) {
    const auto v = splitWholes(text, 4);
    if (!v || !inRange((*v)[0], pk::kTrainerStart) || !inRange((*v)[1], pk::kTrainerEnd) ||
        !inRange(std::abs((*v)[2]), pk::kTrainerStep) || !inRange((*v)[3], pk::kTrainerBars) ||
        ((*v)[2] < 0 && (*v)[1] > (*v)[0]))
        return false;
    practice.trainerOn = true;
    practice.trainerStart = (*v)[0];
    practice.trainerEnd = (*v)[1];
    practice.trainerStep = std::abs((*v)[2]);
    practice.trainerBars = (*v)[3];
    return true;
}

// PLAY:SILENT bars.
bool applyMute(const std::string& text, PracticeSetup& practice) {
    const auto v = splitWholes(text, 2);
    if (!v || !inRange((*v)[0], pk::kMutePlayBars) || !inRange((*v)[1], pk::kMuteSilentBars))
        return false;
    practice.muteOn = true;
    practice.mutePlayBars = (*v)[0];
    practice.muteSilentBars = (*v)[1];
    return true;
}

bool applyBeats(const std::string& text, PracticeSetup& practice) {
    return practice.setBeatsText(text);
}

// A validator that tries one of the apply functions above on a scratch setup.
CLI::Validator practiceCheck(bool (*apply)(const std::string&, PracticeSetup&), const char* shape,
                             const char* rule) {
    return CLI::Validator(
        [apply, rule](std::string& text) {
            PracticeSetup scratch;
            return apply(text, scratch) ? std::string()
                                        : std::string(rule) + ", not \"" + text + "\"";
        },
        shape);
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
    app.add_option("--beats", beats_,
                   "what each beat of the bar plays, one letter a beat, as many as the "
                   "signature's N: A accented, N normal, S silent (\"ANNS\"); beat 1 stands "
                   "for --accent. A silent beat's subdivisions are silent too")
        ->check(practiceCheck(applyBeats, "LETTERS",
                              "must be 1 to 16 letters A (accented), N (normal) or S (silent)"));
    app.add_option("--trainer", trainer_,
                   "speed trainer: start at START, move by STEP towards END every BARS bars, on "
                   "the first beat of a bar, then hold END (60:120:5:4 climbs from 60 to 120 by "
                   "5 every 4 bars); tempos as --bpm, which it replaces")
        ->check(practiceCheck(applyTrainer, "START:END:STEP:BARS",
                              "must be START:END:STEP:BARS with START and END from 20 to 240, "
                              "STEP from 1 to 220 (negative only when END is below START) and "
                              "BARS from 1 to 99"));
    app.add_option("--mute", mute_,
                   "muted bars: PLAY bars sound, then SILENT bars are silent, over and over; "
                   "silent bars keep the time (3:1)")
        ->check(practiceCheck(applyMute, "PLAY:SILENT",
                              "must be PLAY:SILENT with each from 1 to 99 bars"));
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
    PracticeSetup& practice = job_.setup.practice;
    if (!beats_.empty()) {
        if (static_cast<int>(beats_.size()) != job_.setup.timeSig1Value) {
            throw CLI::ValidationError("--beats " + beats_ + " has " +
                                       std::to_string(beats_.size()) + " letters, but a bar of " +
                                       signature_ + " has " +
                                       std::to_string(job_.setup.timeSig1Value) + " beats");
        }
        applyBeats(beats_, practice);
        const bool accented = beatKindForLetter(beats_[0]) == BeatKind::Accented;
        if (command().count("--accent") > 0 && accented != job_.setup.isFirstBeatNeed) {
            throw CLI::ValidationError("--accent " + accent_ + " disagrees with --beats " + beats_ +
                                       ", whose first letter sets the first beat");
        }
        job_.setup.setBeatKind(1, *beatKindForLetter(beats_[0]));
    }
    if (!trainer_.empty())
        applyTrainer(trainer_, practice);
    if (!mute_.empty())
        applyMute(mute_, practice);
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
    const PracticeSetup& practice = job_.setup.practice;
    out << "wrote " << job_.out.string() << ": " << job_.seconds << " s";
    if (practice.trainerOn) {
        out << ", tempo " << practice.trainerStart << " to " << practice.trainerEnd << " by "
            << practice.trainerStep << " every " << practice.trainerBars << " bars";
    } else {
        out << " at " << job_.setup.beatsPerMinute() << " beats per minute";
    }
    out << ", " << job_.setup.timeSig1Value << "/" << job_.setup.timeSig2Value << ", pattern "
        << job_.setup.notesPerBeat << ", pack " << job_.setup.packNumber << ", accent "
        << (job_.setup.isFirstBeatNeed ? "on" : "off");
    if (!beats_.empty())
        out << ", beats "
            << practice.beatsText(job_.setup.timeSig1Value, job_.setup.isFirstBeatNeed);
    if (practice.muteOn)
        out << ", " << practice.mutePlayBars << " bars on and " << practice.muteSilentBars
            << " off";
    out << "\n";
    return kExitOk;
}

}  // namespace zt::cli
