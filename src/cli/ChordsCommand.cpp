#include "cli/ChordsCommand.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <memory>

#include "chords/ChordCatalogue.h"
#include "chords/ChordLibrary.h"
#include "chords/ChordShape.h"
#include "chords/StringSet.h"
#include "chords/StrumEngine.h"
#include "chords/VariationOrder.h"
#include "cli/ChordArguments.h"
#include "cli/ChordDiagram.h"
#include "cli/WavOutput.h"
#include "sound/OfflineRender.h"
#include "sound/SoundEngine.h"
#include "tunings/TuningCatalogue.h"

namespace zt::cli {

namespace {

constexpr const char* kDescription =
    "Shows every fingering of a chord in one of the 53 tunings, in the order the app shows them "
    "(grouped by the note in the bass, the root first), as neck diagrams or JSON; walks every "
    "chord in every tuning; or strums a chord into a 16-bit mono WAV file at 44100 Hz, as the "
    "app plays it.";

}  // namespace

ChordsCommand::ChordsCommand(CLI::App& parent)
    : CliCommand(parent, "chords", "show the fingerings of a chord, or strum it into a WAV file") {
    auto& app = command();
    app.description(kDescription);
    app.add_option("NAME", name_, "the chord: a root and a type, such as C, C#m7, Bbmaj9, Dsus4")
        ->check(chordValidator());
    app.add_option("--tuning", tuning_, "the tuning, by number (0 to 52) or name")
        ->check(tuningValidator())
        ->capture_default_str();
    app.add_option("--limit", limit_, "show only the first K fingerings")
        ->check(CLI::Range(1, VariationSet::kCapacity))
        ->type_name("K");
    app.add_flag("--json", json_,
                 "print one JSON object: {\"chord\", \"tuning\", \"variations\": [{\"frets\", "
                 "\"fingers\", \"barres\", \"bass\", \"pitches\"}]}; pitches are MIDI numbers "
                 "(E2 = 40)");
    app.add_flag("--all", all_,
                 "walk every root and type in every tuning (or in the one --tuning names) and "
                 "count the fingerings");
    app.add_option("--play", play_, "strum this chord into the file --out names")
        ->check(chordValidator())
        ->type_name("NAME");
    app.add_option("--variation", variation_, "with --play: which fingering, 1 the first shown")
        ->check(CLI::Range(1, VariationSet::kCapacity))
        ->capture_default_str();
    app.add_option("--out", out_, "with --play: the WAV file to write")->type_name("FILE");
    app.callback([this] { checkChoice(); });
}

void ChordsCommand::checkChoice() {
    const int chosen = int(!name_.empty()) + int(all_) + int(!play_.empty());
    if (chosen != 1)
        throw CLI::ValidationError("give one of NAME, --all or --play NAME");
    if (!play_.empty() && out_.empty())
        throw CLI::ValidationError("--play needs --out FILE");
    if (play_.empty() && (!out_.empty() || command().count("--variation") > 0))
        throw CLI::ValidationError("--out and --variation go with --play");
}

int ChordsCommand::run(std::ostream& out, std::ostream& err) {
    if (all_)
        return walkAll(out);
    if (!play_.empty())
        return play(out, err);
    return printChord(out);
}

int ChordsCommand::printChord(std::ostream& out) const {
    ChordLibrary library;
    const TuningChoice tuning = useTuning(library, *tuningIndex(tuning_));
    const auto [root, type] = splitChord(name_);
    const std::string chord = root + type;
    const auto found = std::make_unique<VariationSet>();
    VariationSet& set = *found;
    library.getVariations(root, type, set);
    sortVariations(set);
    const int shown = limit_ > 0 ? std::min(limit_, int(set.count)) : int(set.count);

    if (json_) {
        auto variations = nlohmann::json::array();
        for (int i = 0; i < shown; ++i)
            variations.push_back(toJson(set.records[static_cast<std::size_t>(i)]));
        out << nlohmann::json{{"chord", chord}, {"tuning", tuning.name}, {"variations", variations}}
                   .dump(2)
            << "\n";
        return kExitOk;
    }

    std::string notes;
    const auto info = chords::chordInfo(chord);
    for (const auto& note : info->notes)
        notes += (notes.empty() ? "" : " ") + note;
    out << chord << " (" << notes << ") in " << tuning.name << " (" << tuning.notes << "): ";
    if (set.count == 0) {
        out << "no fingering exists.\n";
        return kExitOk;
    }
    out << set.count << (set.count == 1 ? " fingering" : " fingerings");
    if (shown < set.count)
        out << ", showing " << shown;
    out << "\n";
    for (int g = 0; g < set.groupCount; ++g) {
        if (set.groupStart[g] >= shown)
            break;
        out << "\nbass " << bassName(set, g, root) << "\n";
        for (int i = set.groupStart[g]; i < std::min(set.groupStart[g + 1], shown); ++i) {
            const auto& v = set.records[static_cast<std::size_t>(i)];
            out << "\n#" << i + 1 << "  " << fretLine(v) << "\n" << diagram(v, "    ");
        }
    }
    return kExitOk;
}

int ChordsCommand::walkAll(std::ostream& out) const {
    ChordLibrary library;
    const auto found = std::make_unique<VariationSet>();
    VariationSet& set = *found;
    std::vector<std::size_t> chosen;
    if (command().count("--tuning") > 0) {
        chosen.push_back(*tuningIndex(tuning_));
    } else {
        for (std::size_t i = 0; i < tunings::kCount; ++i)
            chosen.push_back(i);
    }

    long fingerings = 0;
    int chordCount = 0, largest = 0;
    auto counts = nlohmann::json::object();
    auto none = nlohmann::json::array();
    const auto started = std::chrono::steady_clock::now();
    for (std::size_t index : chosen) {
        const TuningChoice tuning = useTuning(library, index);
        for (auto root : chords::names()) {
            for (auto type : chords::typeKeys()) {
                library.getVariations(root, type, set);
                sortVariations(set);
                const std::string chord = std::string(root) + std::string(type);
                ++chordCount;
                fingerings += set.count;
                largest = std::max(largest, int(set.count));
                if (set.count == 0)
                    none.push_back({{"chord", chord}, {"tuning", tuning.name}});
                if (json_)
                    counts[tuning.name][chord] = set.count;
                else
                    out << tuning.name << "\t" << chord << "\t" << set.count << "\n";
            }
        }
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    if (json_) {
        out << nlohmann::json{{"chords", chordCount}, {"fingerings", fingerings},
                              {"largest", largest},   {"none", none},
                              {"seconds", seconds},   {"counts", counts}}
                   .dump(2)
            << "\n";
        return kExitOk;
    }
    out << chordCount << " chords in " << chosen.size()
        << (chosen.size() == 1 ? " tuning: " : " tunings: ") << fingerings
        << " fingerings, at most " << largest << " for one chord; " << none.size()
        << " without a fingering; " << seconds << " s\n";
    return kExitOk;
}

int ChordsCommand::play(std::ostream& out, std::ostream& err) const {
    ChordLibrary library;
    const TuningChoice tuning = useTuning(library, *tuningIndex(tuning_));
    const auto [root, type] = splitChord(play_);
    const std::string chord = root + type;
    const auto found = std::make_unique<VariationSet>();
    VariationSet& set = *found;
    library.getVariations(root, type, set);
    sortVariations(set);
    if (set.count == 0) {
        out << chord << " has no fingering in " << tuning.name << "; nothing written.\n";
        return kExitOk;
    }
    if (variation_ > set.count) {
        err << "zebtools-cli chords: " << chord << " has " << set.count << " fingerings in "
            << tuning.name << "; --variation " << variation_ << " is past the last.\n";
        return kExitUsage;
    }
    const auto& v = set.records[static_cast<std::size_t>(variation_ - 1)];

    const int rate = SoundEngine::kSampleRate;
    std::string error;
    StringSet strings;
    if (!strings.load(rate, error)) {
        err << "zebtools-cli chords: " << error << "\n";
        return kExitFailure;
    }
    StrumEngine engine(rate, strings.recordings());
    const StrumSchedule schedule = wholeChord(stringNotes(v), rate);
    engine.play(schedule);
    const std::int64_t frames = engine.length(schedule);
    if (!writeWav(engine, rate, frames, out_, error)) {
        err << "zebtools-cli chords: " << error << "\n";
        return kExitFailure;
    }
    out << "wrote " << out_ << ": " << chord << " in " << tuning.name << ", fingering "
        << variation_ << " (" << fretLine(v) << "), " << schedule.count << " strings "
        << kStrumSpacingSeconds * 1000 << " ms apart from the 6th, "
        << static_cast<double>(frames) / rate << " s\n";
    return kExitOk;
}

}  // namespace zt::cli
