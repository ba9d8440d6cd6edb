#include "cli/IdentifyCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "chords/Capo.h"
#include "chords/ChordFinder.h"
#include "chords/ChordLibrary.h"
#include "chords/ChordShape.h"
#include "cli/ChordArguments.h"
#include "tunings/TuningCatalogue.h"

namespace zt::cli {

namespace {

constexpr const char* kChartHelp =
    "give six frets from the 6th string to the 1st, such as x32010 or \"x 10 12 12 11 x\" "
    "(x mutes a string, 0 is open)";

std::string readFret(const std::string& cell, int& fret) {
    if (cell == "x" || cell == "X") {
        fret = -1;
        return {};
    }
    if (cell.empty() || cell.size() > 2 ||
        !std::all_of(cell.begin(), cell.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return "\"" + cell + "\" is not a fret: " + kChartHelp;
    fret = std::stoi(cell);
    if (fret >= ChordLibrary::kFrets)
        return "fret " + cell + " is past the " + std::to_string(ChordLibrary::kFrets - 1) +
               "th: " + kChartHelp;
    return {};
}

std::string join(const std::vector<std::string>& parts, const char* between = " ") {
    std::string text;
    for (const auto& part : parts)
        text += (text.empty() ? "" : between) + part;
    return text;
}

// The notes sounded, lowest string first, and the bass's name.
std::vector<std::string> soundedNotes(const chords::HeldStrings& held) {
    std::vector<std::string> notes;
    for (int s = 0; s < kStringCount; ++s) {
        if (held.frets[s] >= 0)
            notes.emplace_back(noteName(held.open[s] + held.frets[s]));
    }
    return notes;
}

std::string bassOf(const chords::HeldStrings& held) {
    int lowest = -1;
    for (int s = 0; s < kStringCount; ++s) {
        const int note = held.open[s] + held.frets[s];
        if (held.frets[s] >= 0 && (lowest < 0 || note < lowest))
            lowest = note;
    }
    return lowest < 0 ? std::string() : std::string(noteName(lowest));
}

std::string chartOf(const std::array<int, kStringCount>& frets) {
    std::vector<std::string> cells;
    for (int fret : frets)
        cells.push_back(fret < 0 ? "x" : std::to_string(fret));
    return join(cells);
}

}  // namespace

std::string readFrets(const std::string& text, std::array<int, kStringCount>& frets) {
    std::vector<std::string> cells;
    if (text.find_first_of(" ,") == std::string::npos) {
        for (char c : text)
            cells.emplace_back(1, c);
    } else {
        std::string spaced = text;
        std::replace(spaced.begin(), spaced.end(), ',', ' ');
        std::istringstream in(spaced);
        for (std::string cell; in >> cell;)
            cells.push_back(cell);
    }
    if (cells.size() != kStringCount) {
        return "\"" + text + "\" has " + std::to_string(cells.size()) +
               (cells.size() == 1 ? " string" : " strings") + "; " + kChartHelp;
    }
    std::array<int, kStringCount> read{};
    for (std::size_t s = 0; s < cells.size(); ++s) {
        if (auto error = readFret(cells[s], read[s]); !error.empty())
            return error;
    }
    frets = read;
    return {};
}

std::optional<OpenTuning> openTuning(const std::string& text) {
    if (const auto index = tuningIndex(text)) {
        const auto& tuning = tunings::catalogue()[*index];
        const auto tokens = tunings::tokens(tuning.notes);
        return OpenTuning{std::string(tuning.name), join(tokens), *chords::openNotes(tokens)};
    }
    std::string spaced = text;
    std::replace(spaced.begin(), spaced.end(), '&', ' ');
    std::istringstream in(spaced);
    std::vector<std::string> tokens;
    for (std::string token; in >> token;)
        tokens.push_back(token);
    const auto open = chords::openNotes(tokens);
    if (!open)
        return std::nullopt;
    return OpenTuning{join(tokens), join(tokens), *open};
}

IdentifyCommand::IdentifyCommand(CLI::App& chords)
    : CliCommand(chords, "identify", "name the chord a shape holds") {
    auto& app = command();
    app.description(
        "Names the chord that a shape holds: every name from the 24 chord types that fits the "
        "notes, with a slash bass when the lowest note is not the root, best first (names adding "
        "no note, then the root in the bass, then fewest tones missing); each with its notes and "
        "formula. Only the fifth may be missing, and one added note is named only where nothing "
        "fits without it.");
    app.add_option("FRETS", chart_, "the shape from the 6th string to the 1st: x32010")
        ->required()
        ->check(CLI::Validator(
            [](std::string& text) {
                std::array<int, kStringCount> frets{};
                return readFrets(text, frets);
            },
            "FRETS"));
    app.add_option("--tuning", tuning_,
                   "the tuning, by number (0 to 52), name, or six notes from the 6th string "
                   "(\"D2 A2 D3 G3 B3 E4\")")
        ->check(CLI::Validator(
            [](std::string& text) {
                if (openTuning(text))
                    return std::string();
                std::string list = tuningValidator()(text);
                return list + "\nor six notes from the 6th string, such as \"D2 A2 D3 G3 B3 E4\"";
            },
            "N|NAME|NOTES"))
        ->capture_default_str();
    app.add_option("--capo", capo_,
                   "a capo at fret N: the shape's frets count from it and it sounds N semitones "
                   "higher (with --json, \"capo\")")
        ->check(CLI::Range(0, chords::kMaxCapo))
        ->type_name("N");
    app.callback([this] {
        std::array<int, kStringCount> frets{};
        readFrets(chart_, frets);
        const int highest = *std::max_element(frets.begin(), frets.end());
        if (capo_ > 0 && capo_ + highest > chords::kLastFret)
            throw CLI::ValidationError("fret " + std::to_string(highest) + " from a capo at the " +
                                       chords::capoFretText(capo_) + " is past the " +
                                       std::to_string(chords::kLastFret) + "th");
    });
    app.add_flag("--json", json_,
                 "print one JSON object: {\"frets\", \"tuning\", \"notes\", \"bass\", \"names\": "
                 "[{\"name\", \"root\", \"type\", \"bass\", \"notes\", \"formula\", \"missing\", "
                 "\"added\"}]}");
}

int IdentifyCommand::run(std::ostream& out, std::ostream&) {
    const OpenTuning tuning = *openTuning(tuning_);
    chords::HeldStrings held;
    // A capo shortens every string alike: the shape sounds as on strings
    // tuned capo_ semitones higher.
    for (int s = 0; s < kStringCount; ++s)
        held.open[s] = tuning.open[s] + capo_;
    readFrets(chart_, held.frets);
    const auto found = chords::identify(held);
    const auto sounded = soundedNotes(held);

    if (json_) {
        auto names = nlohmann::json::array();
        for (const auto& f : found) {
            names.push_back({{"name", f.name()},
                             {"root", std::string(noteName(f.root))},
                             {"type", std::string(chords::typeKeys()[f.type])},
                             {"bass", std::string(noteName(f.bass))},
                             {"notes", f.tones.notes},
                             {"formula", f.tones.degrees},
                             {"missing", f.missing},
                             {"added", f.added}});
        }
        nlohmann::json doc{{"frets", held.frets},
                           {"tuning", tuning.name},
                           {"notes", sounded},
                           {"bass", bassOf(held)},
                           {"names", names}};
        if (capo_ > 0)
            doc["capo"] = capo_;
        out << doc.dump(2) << "\n";
        return kExitOk;
    }

    out << chartOf(held.frets) << " in " << tuning.name;
    if (tuning.name != tuning.notes)
        out << " (" << tuning.notes << ")";
    if (capo_ > 0)
        out << ", capo at the " << chords::capoFretText(capo_);
    out << ": " << (sounded.empty() ? "nothing sounds" : join(sounded));
    if (found.empty()) {
        out << "\nno chord of the catalogue has these notes.\n";
        return kExitOk;
    }
    out << ", " << bassOf(held) << " in the bass\n";
    std::size_t width = 0;
    for (const auto& f : found)
        width = std::max(width, f.name().size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto& f = found[i];
        std::string name = f.name();
        name.resize(width + 2, ' ');
        out << i + 1 << ". " << name << f.tones.notesText() << "  (" << f.tones.formulaText()
            << ")";
        if (!f.missing.empty())
            out << ", without " << join(f.missing);
        if (!f.added.empty())
            out << ", with " << join(f.added) << " added";
        out << "\n";
    }
    return kExitOk;
}

}  // namespace zt::cli
