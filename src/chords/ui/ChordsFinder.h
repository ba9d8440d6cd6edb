#pragma once
// The chords screen's finder: a shape made by tapping the neck (a fret
// presses a string there, the same fret again lifts the finger; the nut
// turns a string between muted and open), named as it changes: every name
// that fits, best first, with its notes and formula (chords::identify).
// It starts off, with every string open, and keeps its shape while off.

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <QVariantList>
#include <array>
#include <vector>

#include "chords/ChordFinder.h"
#include "chords/ui/NeckPicture.h"

namespace zt {

class ChordsFinder : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the chords screen")
    Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)
    // One map per name, best first: "name" ("C6/A"), "notes" ("C E G A"),
    // "formula" ("1 3 5 6"), "remark" ("without G", "with F added", or
    // empty).
    Q_PROPERTY(QVariantList names READ names NOTIFY heldChanged)
    // The best name, or "?" when nothing fits.
    Q_PROPERTY(QString bestName READ bestName NOTIFY heldChanged)
    // "x 3 2 0 1 0  ·  C E G C E"
    Q_PROPERTY(QString heldText READ heldText NOTIFY heldChanged)
    // Why there is no name, else empty.
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY heldChanged)

public:
    // The highest fret a tap may press.
    static constexpr int kHighestFret = 24;

    explicit ChordsFinder(QObject* parent = nullptr);

    bool active() const { return active_; }
    void setActive(bool active);
    QVariantList names() const;
    QString bestName() const;
    QString heldText() const;
    QString emptyText() const;

    // stringNumber 6 (the lowest) to 1; fret 1 to kHighestFret. Anything
    // else changes nothing.
    Q_INVOKABLE void tapFret(int stringNumber, int fret);
    Q_INVOKABLE void tapNut(int stringNumber);
    // Every string open again.
    Q_INVOKABLE void clear();

    // The open notes of the tuning, lowest string first (E2 = 28).
    void setTuning(const std::array<int, kStringCount>& open);
    // The frets held, lowest string first: -1 muted, 0 open.
    const std::array<int, kStringCount>& frets() const { return held_.frets; }
    const std::vector<chords::FoundChord>& found() const { return found_; }
    // The neck as drawn while the finder is on: the notes held as dots.
    const NeckPicture& picture() const { return picture_; }
    // The neck drawn mirrored for a left-handed player.
    void setLeftHanded(bool on);

signals:
    void activeChanged();
    void heldChanged();

private:
    void update();
    int& fretOf(int stringNumber) {
        return held_.frets[static_cast<std::size_t>(kStringCount - stringNumber)];
    }

    bool active_ = false;
    chords::HeldStrings held_;
    std::vector<chords::FoundChord> found_;
    NeckPicture picture_;
    bool leftHanded_ = false;
};

}  // namespace zt
