#include "chords/ui/NeckPicture.h"

#include <algorithm>

#include "chords/ui/TouchView.h"

namespace zt {

namespace {

QString text(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

}  // namespace

NeckPicture NeckPicture::of(const ChordShape& shape, bool notes, bool leftHanded) {
    NeckPicture picture;
    picture.firstFret = shape.firstShownFret();
    for (int n = kStringCount; n >= 1; --n) {
        const auto& s = shape.string(n);
        const bool fretted = s.fret > 0;
        QString label;
        if (notes && s.fret >= 0)
            label = text(noteName(s.pitch));
        else if (fretted)
            label = QString::number(s.finger);
        picture.strings.append(QVariantMap{
            {"string", n},
            {"x", TouchView::stringX(n, leftHanded)},
            {"fret", s.fret},
            {"muted", s.fret < 0},
            {"open", s.fret == 0},
            {"dot", fretted && (notes || !shape.underBarre(n))},
            {"text", label},
        });
    }
    for (int b = 0; b < shape.barreCount; ++b) {
        const auto& barre = shape.barres[static_cast<std::size_t>(b)];
        picture.barres.append(QVariantMap{
            {"fret", barre.fret},
            {"fromX", TouchView::stringX(barre.from, leftHanded)},
            {"toX", TouchView::stringX(barre.to, leftHanded)},
            {"text", notes ? QString() : QString::number(barre.finger)},
        });
    }
    return picture;
}

NeckPicture NeckPicture::empty(bool leftHanded) {
    NeckPicture picture;
    for (int n = kStringCount; n >= 1; --n) {
        picture.strings.append(QVariantMap{{"string", n},
                                           {"x", TouchView::stringX(n, leftHanded)},
                                           {"fret", -1},
                                           {"muted", false},
                                           {"open", false},
                                           {"dot", false},
                                           {"text", QString()}});
    }
    return picture;
}

QVariantMap smallDiagram(const ChordShape& shape, const QString& caption, bool leftHanded) {
    const auto column = [leftHanded](int n) { return leftHanded ? n - 1 : kStringCount - n; };
    QVariantList frets;
    for (int c = 0; c < kStringCount; ++c)
        frets.append(shape.string(leftHanded ? c + 1 : kStringCount - c).fret);
    QVariantList barres;
    for (int b = 0; b < shape.barreCount; ++b) {
        const auto& barre = shape.barres[static_cast<std::size_t>(b)];
        const int from = column(barre.from);
        const int to = column(barre.to);
        barres.append(QVariantMap{{"fret", barre.fret},
                                  {"from", barre.from},
                                  {"to", barre.to},
                                  {"left", std::min(from, to)},
                                  {"right", std::max(from, to)}});
    }
    return {{"frets", frets},
            {"barres", barres},
            {"firstFret", shape.firstShownFret()},
            {"caption", caption}};
}

}  // namespace zt
