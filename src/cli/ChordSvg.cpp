#include "cli/ChordSvg.h"

#include <array>
#include <sstream>
#include <utility>

#include "chords/ui/TouchView.h"

namespace zt::cli {

namespace {

// The screen's colours and measures, in points of the 320-point layout.
constexpr const char* kBackground = "#121212";
constexpr const char* kText = "#FFFFFF";
constexpr const char* kTextDim = "#9A9A9A";
constexpr const char* kAccent = "#F5C00E";
constexpr const char* kWood = "#1F1A14";
constexpr const char* kNut = "#E8E1D0";
constexpr const char* kFretWire = "#8C8C8C";
constexpr const char* kInlay = "#3A3228";
constexpr const char* kString = "#D8D2C4";
constexpr double kTitleHeight = 34;
constexpr double kMarkersHeight = 26;
constexpr double kNutHeight = 6;
constexpr double kFretHeight = 62;
constexpr double kCaptionHeight = 28;
constexpr const char* kCapo = "#2B2B2B";
constexpr double kCapoHeight = 18;
constexpr double kDotRadius = 13;
constexpr double kWidth = 256;
// One fret more than a shape spans, as the screen's taller neck shows.
constexpr int kFretsShown = ChordShape::kWindowFrets + 1;

double boardLeft() {
    return TouchView::stringX(kStringCount) - 16;
}
double boardRight() {
    return TouchView::stringX(1) + 16;
}

std::string escaped(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

class Svg {
public:
    std::ostringstream out;

    void rect(double x, double y, double w, double h, const char* fill, double radius = 0,
              const char* extra = "") {
        out << "  <rect x=\"" << x << "\" y=\"" << y << "\" width=\"" << w << "\" height=\"" << h
            << "\"" << (radius > 0 ? " rx=\"" + num(radius) + "\"" : std::string()) << " fill=\""
            << fill << "\"" << extra << "/>\n";
    }
    void circle(double x, double y, double r, const char* fill, const char* extra = "") {
        out << "  <circle cx=\"" << x << "\" cy=\"" << y << "\" r=\"" << r << "\" fill=\"" << fill
            << "\"" << extra << "/>\n";
    }
    void text(double x, double y, const std::string& s, const char* fill, int size,
              const char* anchor = "middle") {
        // y is the middle of the text: its baseline sits about a third of the
        // size lower (not every renderer reads dominant-baseline).
        out << "  <text x=\"" << x << "\" y=\"" << y + size * 0.35 << "\" fill=\"" << fill
            << "\" font-size=\"" << size << "\" text-anchor=\"" << anchor
            << "\" font-weight=\"bold\">" << escaped(s) << "</text>\n";
    }
    // The "×" of a muted string, drawn as two strokes.
    void cross(double x, double y, double half, const char* stroke) {
        out << "  <path d=\"M" << x - half << " " << y - half << "L" << x + half << " " << y + half
            << "M" << x - half << " " << y + half << "L" << x + half << " " << y - half
            << "\" stroke=\"" << stroke << "\" stroke-width=\"2.5\" stroke-linecap=\"round\"/>\n";
    }
    static std::string num(double v) {
        std::ostringstream s;
        s << v;
        return s.str();
    }
};

}  // namespace

std::string chordSvg(const ChordShape& shape, const std::string& title, const std::string& caption,
                     int capo, const std::string& capoLine) {
    const int first = shape.firstShownFret();
    const double markersTop = kTitleHeight;
    const double boardTop = markersTop + kMarkersHeight;
    // The nut is drawn only when the neck starts at the first fret.
    const double nut = first == 1 ? kNutHeight : 0;
    const double boardHeight = nut + kFretsShown * kFretHeight;
    const double height = boardTop + boardHeight + kCaptionHeight * (capo > 0 ? 2 : 1);
    const auto fretCentre = [&](int fret) {
        return boardTop + nut + (fret - first + 0.5) * kFretHeight;
    };

    Svg svg;
    svg.out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << kWidth << "\" height=\""
            << height << "\" viewBox=\"0 0 " << kWidth << " " << height
            << "\" font-family=\"sans-serif\">\n";
    svg.rect(0, 0, kWidth, height, kBackground);
    svg.text(kWidth / 2, kTitleHeight / 2, title, kText, 22);

    const double left = boardLeft(), right = boardRight();
    svg.rect(left, boardTop, right - left, boardHeight, kWood);
    if (nut > 0)
        svg.rect(left, boardTop, right - left, nut, kNut);
    for (int f = 1; f <= kFretsShown; ++f)
        svg.rect(left, boardTop + nut + f * kFretHeight - 1, right - left, 2, kFretWire);
    const double middle = (TouchView::stringX(4) + TouchView::stringX(3)) / 2;
    // Inlays on frets 3, 5, 7, 9, 12 (two) and 15: {fret, offset from the middle}.
    constexpr std::array<std::pair<int, double>, 7> kInlays{
        {{3, 0}, {5, 0}, {7, 0}, {9, 0}, {12, -68}, {12, 68}, {15, 0}}};
    for (const auto& [fret, dx] : kInlays) {
        if (fret >= first && fret < first + kFretsShown)
            svg.circle(middle + dx, fretCentre(fret), 6, kInlay);
    }
    for (int n = kStringCount; n >= 1; --n) {
        const double width = 3 - (kStringCount - n) * 0.35;
        svg.rect(TouchView::stringX(n) - width / 2, boardTop, width, boardHeight, kString);
    }
    if (first > 1)
        svg.text(left - 4, fretCentre(first), std::to_string(first) + "fr", kTextDim, 12, "end");
    if (capo > 0 && first == 1) {
        svg.rect(left - 4, boardTop, right - left + 8, kCapoHeight, kCapo, 5,
                 (std::string(" stroke=\"") + kTextDim + "\"").c_str());
        svg.text(kWidth / 2, boardTop + kCapoHeight / 2, "Capo " + std::to_string(capo), kNut, 11);
    }

    for (int b = 0; b < shape.barreCount; ++b) {
        const auto& barre = shape.barres[static_cast<std::size_t>(b)];
        const double from = TouchView::stringX(barre.from), to = TouchView::stringX(barre.to);
        const double y = fretCentre(barre.fret);
        svg.rect(from - kDotRadius, y - kDotRadius, to - from + 2 * kDotRadius, 2 * kDotRadius,
                 kAccent, kDotRadius, " fill-opacity=\"0.9\"");
        svg.text((from + to) / 2, y, std::to_string(barre.finger), kBackground, 15);
    }
    for (int n = kStringCount; n >= 1; --n) {
        const auto& s = shape.string(n);
        const double x = TouchView::stringX(n);
        const double mark = markersTop + kMarkersHeight / 2;
        if (s.fret < 0)
            svg.cross(x, mark, 5, kTextDim);
        else if (s.fret == 0)
            svg.circle(x, mark, 6, "none",
                       (std::string(" stroke=\"") + kText + "\" stroke-width=\"2\"").c_str());
        if (s.fret <= 0 || shape.underBarre(n))
            continue;
        const double y = fretCentre(s.fret);
        svg.circle(x, y, kDotRadius, kAccent,
                   (std::string(" stroke=\"") + kBackground + "\" stroke-width=\"1\"").c_str());
        svg.text(x, y, std::to_string(s.finger), kBackground, 15);
    }
    svg.text(kWidth / 2, boardTop + boardHeight + kCaptionHeight / 2, caption, kTextDim, 13);
    if (capo > 0)
        svg.text(kWidth / 2, boardTop + boardHeight + kCaptionHeight * 1.5, capoLine, kText, 13);
    svg.out << "</svg>\n";
    return svg.out.str();
}

}  // namespace zt::cli
