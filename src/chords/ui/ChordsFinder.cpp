#include "chords/ui/ChordsFinder.h"

#include "chords/ChordShape.h"

namespace zt {

namespace {

QString text(const std::string& s) {
    return QString::fromStdString(s);
}

QString joined(const std::vector<std::string>& parts) {
    QStringList list;
    for (const auto& part : parts)
        list << text(part);
    return list.join(' ');
}

}  // namespace

ChordsFinder::ChordsFinder(QObject* parent) : QObject(parent) {
    held_.open = *chords::openNotes({"E2", "A2", "D3", "G3", "B3", "E4"});
    update();
}

void ChordsFinder::setActive(bool active) {
    if (active == active_)
        return;
    active_ = active;
    emit activeChanged();
}

QVariantList ChordsFinder::names() const {
    QVariantList list;
    for (const auto& f : found_) {
        QString remark;
        if (!f.missing.empty())
            remark = QStringLiteral("without %1").arg(joined(f.missing));
        if (!f.added.empty())
            remark = QStringLiteral("with %1 added").arg(joined(f.added));
        list.append(QVariantMap{{"name", text(f.name())},
                                {"notes", text(f.tones.notesText())},
                                {"formula", text(f.tones.formulaText())},
                                {"remark", remark}});
    }
    return list;
}

QString ChordsFinder::bestName() const {
    return found_.empty() ? QStringLiteral("?") : text(found_.front().name());
}

QString ChordsFinder::heldText() const {
    QStringList frets, notes;
    for (std::size_t s = 0; s < held_.frets.size(); ++s) {
        const int fret = held_.frets[s];
        frets << (fret < 0 ? QStringLiteral("x") : QString::number(fret));
        if (fret >= 0)
            notes << text(std::string(noteName(held_.open[s] + fret)));
    }
    return frets.join(' ') + (notes.isEmpty() ? QString() : "  \u00B7  " + notes.join(' '));
}

QString ChordsFinder::emptyText() const {
    if (!found_.empty())
        return {};
    int sounding = 0;
    for (int fret : held_.frets)
        sounding += fret >= 0 ? 1 : 0;
    return sounding < 2 ? QStringLiteral("Play two strings or more")
                        : QStringLiteral("No chord has these notes");
}

void ChordsFinder::tapFret(int stringNumber, int fret) {
    if (stringNumber < 1 || stringNumber > kStringCount || fret < 1 || fret > kHighestFret)
        return;
    int& held = fretOf(stringNumber);
    held = held == fret ? 0 : fret;
    update();
}

void ChordsFinder::tapNut(int stringNumber) {
    if (stringNumber < 1 || stringNumber > kStringCount)
        return;
    int& held = fretOf(stringNumber);
    held = held < 0 ? 0 : -1;
    update();
}

void ChordsFinder::clear() {
    held_.frets.fill(0);
    update();
}

void ChordsFinder::setTuning(const std::array<int, kStringCount>& open) {
    if (open == held_.open)
        return;
    held_.open = open;
    update();
}

void ChordsFinder::setLeftHanded(bool on) {
    if (on == leftHanded_)
        return;
    leftHanded_ = on;
    update();
}

void ChordsFinder::update() {
    found_ = chords::identify(held_);
    ChordShape shape;
    for (int n = 1; n <= kStringCount; ++n) {
        auto& s = shape.strings[static_cast<std::size_t>(n - 1)];
        s.fret = fretOf(n);
        s.pitch = s.fret < 0 ? -1 : held_.open[static_cast<std::size_t>(kStringCount - n)] + s.fret;
    }
    picture_ = NeckPicture::of(shape, true, leftHanded_);
    // The neck stays where the player scrolled it.
    picture_.firstFret = 1;
    emit heldChanged();
}

}  // namespace zt
