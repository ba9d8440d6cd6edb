#include "cli/AnalyzeOutput.h"

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace zt::cli {

namespace {

std::string format(const char* pattern, double value) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return text;
}

// To `decimals` places, as the nearest double to the decimal figure.
double rounded(double value, int decimals) {
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

}  // namespace

std::string readingLine(const AnalyzeReading& r, LineStyle style) {
    const bool pitch = r.frequency > 0.0 && !r.note.empty();
    if (style == LineStyle::Json) {
        nlohmann::ordered_json line = {
            {"t", rounded(r.time, 3)}, {"frequency", pitch ? rounded(r.frequency, 2) : -1.0},
            {"note", nullptr},         {"octave", nullptr},
            {"cents", nullptr},        {"level", r.level}};
        if (pitch) {
            line["note"] = r.note;
            line["octave"] = r.octave;
            line["cents"] = rounded(r.cents, 1);
        }
        return line.dump();
    }
    if (!pitch)
        return format("%.3f", r.time) + " - - - " + std::to_string(r.level);
    return format("%.3f", r.time) + " " + format("%.1f", r.frequency) + " " + r.note +
           std::to_string(r.octave) + " " + format("%+.1f", r.cents) + " " +
           std::to_string(r.level);
}

std::string rawLine(double time, double frequency, LineStyle style) {
    const bool pitch = frequency > 0.0;
    if (style == LineStyle::Json) {
        return nlohmann::ordered_json{{"t", rounded(time, 3)},
                                      {"frequency", pitch ? rounded(frequency, 4) : -1.0}}
            .dump();
    }
    return format("%.3f", time) + " " + (pitch ? format("%.4f", frequency) : std::string("-1"));
}

}  // namespace zt::cli
