#pragma once
// The lines zebtools-cli analyze prints, one per reading.
//
// Text: "time frequency note cents level", for example
//   0.250 440.0 A4 +0.0 7
// with "-" for frequency, note and cents when there is no pitch. Raw (the
// detector alone): "time frequency", the frequency with four decimals or -1.
// JSON: one object a line, {"t", "frequency", "note", "octave", "cents",
// "level"}, frequency -1 and the other note fields null without a pitch; raw
// JSON has "t" and "frequency" only.

#include <optional>
#include <string>

namespace zt::cli {

struct AnalyzeReading {
    double time = 0.0;        // s, the newest sample read
    double frequency = -1.0;  // Hz; negative: no pitch
    std::string note;         // "A", "C#"; empty for none
    int octave = 0;
    double cents = 0.0;
    int level = 0;  // 0 ... 10
};

enum class LineStyle { Text, Json };

std::string readingLine(const AnalyzeReading& reading, LineStyle style);
std::string rawLine(double time, double frequency, LineStyle style);

}  // namespace zt::cli
