#include "cli/ChordDiagram.h"

#include <algorithm>

#include "chords/ChordShape.h"

namespace zt::cli {

namespace {

// MIDI numbers C-1 as 0; the generator numbers C0 as 0.
constexpr int kMidiOffset = 12;
// The neck shows at least this many frets.
constexpr int kShownFrets = 4;

// The barre of the shape lying on `fret` over string `number`, if any.
const ChordShape::Barre* barreOver(const ChordShape& shape, int fret, int number) {
    for (int b = 0; b < shape.barreCount; ++b) {
        const auto& barre = shape.barres[static_cast<std::size_t>(b)];
        if (barre.fret == fret && number <= barre.from && number >= barre.to)
            return &barre;
    }
    return nullptr;
}

std::string fretRow(const ChordShape& shape, int fret) {
    std::string row;
    for (int number = kStringCount; number >= 1; --number) {
        const auto& s = shape.string(number);
        const auto* barre = barreOver(shape, fret, number);
        if (number < kStringCount)
            row += barre && barreOver(shape, fret, number + 1) ? '-' : ' ';
        if (s.fret == fret && s.finger > 0)
            row += static_cast<char>('0' + s.finger);
        else
            row += barre ? '-' : '|';
    }
    return row;
}

}  // namespace

std::string fretLine(const ChordVariation& v) {
    std::string line;
    for (int number = kStringCount; number >= 1; --number) {
        const int p = v.position(number);
        if (!line.empty())
            line += ' ';
        line += p < 0 ? std::string("x") : std::to_string(v.frets[p]);
    }
    return line;
}

std::string diagram(const ChordVariation& v, const std::string& indent) {
    const ChordShape shape = shapeOf(v);
    int top = 0;
    std::string marks;
    for (int number = kStringCount; number >= 1; --number) {
        const int fret = shape.string(number).fret;
        top = std::max(top, fret);
        if (number < kStringCount)
            marks += ' ';
        marks += fret < 0 ? 'x' : fret == 0 ? 'o' : ' ';
    }
    while (!marks.empty() && marks.back() == ' ')
        marks.pop_back();

    const int first = std::max(shape.position, 1);
    const int last = std::max(top, first + kShownFrets - 1);
    const int width = static_cast<int>(std::to_string(last).size());
    const std::string margin(static_cast<std::size_t>(width) + 2, ' ');
    std::string text = marks.empty() ? "\n" : indent + margin + marks + "\n";
    for (int fret = first; fret <= last; ++fret) {
        std::string number = std::to_string(fret);
        number.insert(0, static_cast<std::size_t>(width) - number.size(), ' ');
        text += indent + number + "  " + fretRow(shape, fret) + "\n";
    }
    for (int b = 0; b < shape.barreCount; ++b) {
        const auto& barre = shape.barres[static_cast<std::size_t>(b)];
        text += indent + "barre: finger " + std::to_string(barre.finger) + " at fret " +
                std::to_string(barre.fret) + ", strings " + std::to_string(barre.from) + " to " +
                std::to_string(barre.to) + "\n";
    }
    return text;
}

nlohmann::json toJson(const ChordVariation& v) {
    const ChordShape shape = shapeOf(v);
    auto frets = nlohmann::json::array();
    auto fingers = nlohmann::json::array();
    auto pitches = nlohmann::json::array();
    for (int number = kStringCount; number >= 1; --number) {
        const auto& s = shape.string(number);
        frets.push_back(s.fret);
        fingers.push_back(s.finger);
        pitches.push_back(s.pitch < 0 ? -1 : s.pitch + kMidiOffset);
    }
    auto barres = nlohmann::json::array();
    for (int b = 0; b < shape.barreCount; ++b) {
        const auto& barre = shape.barres[static_cast<std::size_t>(b)];
        barres.push_back({{"fret", barre.fret},
                          {"finger", barre.finger},
                          {"from", barre.from},
                          {"to", barre.to}});
    }
    return {{"frets", frets},
            {"fingers", fingers},
            {"barres", barres},
            {"bass", std::string(noteName(shape.bassPitch))},
            {"pitches", pitches}};
}

}  // namespace zt::cli
