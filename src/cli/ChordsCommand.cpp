#include "cli/ChordsCommand.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <memory>

#include "chords/Capo.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordFinder.h"
#include "chords/ChordLibrary.h"
#include "chords/ChordShape.h"
#include "chords/StringSet.h"
#include "chords/StrumEngine.h"
#include "chords/VariationOrder.h"
#include "cli/ChordArguments.h"
#include "cli/ChordDiagram.h"
#include "cli/ChordSvg.h"
#include "cli/WavOutput.h"
#include "sound/OfflineRender.h"
#include "sound/SoundEngine.h"
#include "state/AtomicFile.h"
#include "tunings/TuningCatalogue.h"

namespace zt::cli {

namespace {

// ", capo at the 2nd fret (C shapes)"; empty without a capo.
std::string capoText(const Fingerings& found) {
    if (found.capo == 0)
        return {};
    return ", capo at the " + chords::capoFretText(found.capo) + " (" + found.shape + " shapes)";
}

constexpr const char* kDescription =
    "Shows every fingering of a chord in one of the 53 tunings, in the order the app shows them "
    "(grouped by the note in the bass, the root first), as neck diagrams or JSON, or draws one "
    "as an SVG picture; walks every chord in every tuning; or strums a chord into a 16-bit mono "
    "WAV file at 44100 Hz, as the app plays it. \"chords identify x32010\" names a shape.";

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
                 "print one JSON object: {\"chord\", \"notes\", \"formula\", \"tuning\", "
                 "\"variations\": [{\"frets\", "
                 "\"fingers\", \"barres\", \"bass\", \"pitches\"}]}; pitches are MIDI numbers "
                 "(E2 = 40)");
    app.add_flag("--all", all_,
                 "walk every root and type in every tuning (or in the one --tuning names) and "
                 "count the fingerings");
    app.add_option("--play", play_, "strum this chord into the file --out names")
        ->check(chordValidator())
        ->type_name("NAME");
    app.add_option("--svg", svg_, "with NAME: draw a fingering (--variation) into this SVG file")
        ->type_name("FILE");
    app.add_option("--variation", variation_,
                   "with --play or --svg: which fingering, 1 the first shown")
        ->check(CLI::Range(1, VariationSet::kCapacity))
        ->capture_default_str();
    app.add_option("--out", out_, "with --play: the WAV file to write")->type_name("FILE");
    app.add_option("--capo", capo_,
                   "with NAME or --play: a capo at fret N; the fingerings count their frets from "
                   "it and sound as the chord named (with --json, \"capo\" and \"shape\")")
        ->check(CLI::Range(0, chords::kMaxCapo))
        ->type_name("N");
    app.callback([this] { checkChoice(); });
    identify_ = std::make_unique<IdentifyCommand>(app);
}

void ChordsCommand::checkChoice() {
    if (identify_->chosen())
        return;
    const int chosen = int(!name_.empty()) + int(all_) + int(!play_.empty());
    if (chosen != 1)
        throw CLI::ValidationError("give one of NAME, --all or --play NAME");
    if (!play_.empty() && out_.empty())
        throw CLI::ValidationError("--play needs --out FILE");
    if (!svg_.empty() && name_.empty())
        throw CLI::ValidationError("--svg goes with NAME");
    if (play_.empty() && !out_.empty())
        throw CLI::ValidationError("--out goes with --play");
    if (play_.empty() && svg_.empty() && command().count("--variation") > 0)
        throw CLI::ValidationError("--variation goes with --play or --svg");
    if (all_ && command().count("--capo") > 0)
        throw CLI::ValidationError("--capo goes with NAME or --play");
}

int ChordsCommand::run(std::ostream& out, std::ostream& err) {
    if (identify_->chosen())
        return identify_->run(out, err);
    if (!svg_.empty())
        return writeSvg(out, err);
    if (all_)
        return walkAll(out);
    if (!play_.empty())
        return play(out, err);
    return printChord(out);
}

int ChordsCommand::printChord(std::ostream& out) const {
    const Fingerings found = fingerings(name_, *tuningIndex(tuning_), capo_);
    const TuningChoice& tuning = found.tuning;
    const std::string& root = found.root;
    const std::string& chord = found.chord;
    const VariationSet& set = *found.set;
    const int shown = limit_ > 0 ? std::min(limit_, int(set.count)) : int(set.count);
    const chords::ChordTones tones = *chords::chordTones(chord);

    if (json_) {
        auto variations = nlohmann::json::array();
        for (int i = 0; i < shown; ++i)
            variations.push_back(toJson(set.records[static_cast<std::size_t>(i)]));
        nlohmann::json json{{"chord", chord},
                            {"notes", tones.notes},
                            {"formula", tones.degrees},
                            {"tuning", tuning.name},
                            {"variations", variations}};
        if (found.capo > 0) {
            json["capo"] = found.capo;
            json["shape"] = found.shape;
        }
        out << json.dump(2) << "\n";
        return kExitOk;
    }

    out << chord << " (" << tones.notesText() << "; " << tones.formulaText() << ") in "
        << tuning.name << " (" << tuning.notes << ")" << capoText(found) << ": ";
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

const ChordVariation* ChordsCommand::pick(const Fingerings& found, std::ostream& out,
                                          std::ostream& err, int& code) const {
    std::string why;
    const ChordVariation* picked = found.pick(variation_, why);
    if (found.set->count == 0) {
        out << why << "; nothing written.\n";
        code = kExitOk;
    } else if (!picked) {
        err << "zebtools-cli chords: " << why << ".\n";
        code = kExitUsage;
    }
    return picked;
}

int ChordsCommand::play(std::ostream& out, std::ostream& err) const {
    const Fingerings found = fingerings(play_, *tuningIndex(tuning_), capo_);
    const std::string& chord = found.chord;
    const TuningChoice& tuning = found.tuning;
    int code = kExitOk;
    const ChordVariation* picked = pick(found, out, err, code);
    if (!picked)
        return code;
    const auto& v = *picked;

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
    out << "wrote " << out_ << ": " << chord << " in " << tuning.name << capoText(found)
        << ", fingering " << variation_ << " (" << fretLine(v) << "), " << schedule.count
        << " strings " << kStrumSpacingSeconds * 1000 << " ms apart from the 6th, "
        << static_cast<double>(frames) / rate << " s\n";
    return kExitOk;
}

int ChordsCommand::writeSvg(std::ostream& out, std::ostream& err) const {
    const Fingerings found = fingerings(name_, *tuningIndex(tuning_), capo_);
    int code = kExitOk;
    const ChordVariation* picked = pick(found, out, err, code);
    if (!picked)
        return code;
    const ChordShape shape = shapeOf(*picked);
    const auto bass = noteName(shape.bassPitch);
    const auto tones = chords::chordTones(found.chord);
    const std::string title = found.chord + (bass == found.root ? "" : "/" + std::string(bass));
    const std::string caption = tones->notesText() + "  \u00B7  " + tones->formulaText();
    const std::string shapeBass = bass == found.root ? "" : "/" + chords::shapeNote(bass, capo_);
    const std::string capoLine =
        "capo at the " + chords::capoFretText(capo_) + ": " + found.shape + shapeBass + " shape";
    file::Failure failure;
    if (!file::writeAtomically(svg_, chordSvg(shape, title, caption, capo_, capoLine), &failure)) {
        err << "zebtools-cli chords: cannot write " << svg_ << ": " << failure << "\n";
        return kExitFailure;
    }
    out << "wrote " << svg_ << ": " << title << " in " << found.tuning.name << capoText(found)
        << ", fingering " << variation_ << " (" << fretLine(*picked) << ")\n";
    return kExitOk;
}

}  // namespace zt::cli
