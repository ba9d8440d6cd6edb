#include "metronome/TempoRules.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace zt {

namespace {

struct TempoName {
    int from;
    std::string_view name;
};

constexpr std::array<TempoName, 10> kTempoNames{{
    {20, "Larghissimo"},
    {40, "Largo"},
    {60, "Larghetto"},
    {66, "Adagio"},
    {76, "Andante"},
    {108, "Moderato"},
    {120, "Allegro"},
    {140, "Vivace"},
    {160, "Presto"},
    {200, "Prestissimo"},
}};

}  // namespace

std::optional<int> rowAfterPlus(int row) {
    if (row >= kWheelRows - 1)
        return std::nullopt;
    return row + 1;
}

int rowAfterMinus(int row) {
    const int asked = row - 1;
    return isWheelRow(asked) ? asked : row;
}

std::string tempoDigitsText(int tempo) {
    tempo = std::clamp(tempo, kMinTempo, kMaxTempo);
    char text[8];
    std::snprintf(text, sizeof text, tempo > 99 ? "%d" : "0%d", tempo);
    return text;
}

std::array<int, 3> tempoDigits(int tempo) {
    const std::string text = tempoDigitsText(tempo);
    std::array<int, 3> digits{};
    for (size_t i = 0; i < digits.size(); ++i)
        digits[i] = text[i] - '0';
    if (digits[0] == 0)
        digits[0] = -1;
    return digits;
}

std::string_view tempoName(int tempo) {
    std::string_view name = kTempoNames.front().name;
    for (const auto& entry : kTempoNames) {
        if (tempo >= entry.from)
            name = entry.name;
    }
    return name;
}

std::string tempoLabel(int tempo) {
    std::string label(tempoName(tempo));
    std::transform(label.begin(), label.end(), label.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return label;
}

}  // namespace zt
