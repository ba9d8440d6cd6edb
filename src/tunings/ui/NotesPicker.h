#pragma once
// The six notes of the user's tuning in the editor, typed or picked: the
// typed text is what is stored and checked, and each string's list of notes
// follows it. Typing moves a string's list to the note its word names; a
// word that is not a note within an octave of the string leaves the list
// where it was and marks the string unknown until the words say otherwise.
// Picking a note writes it into the text, spelled as the text spells its
// notes. The editor view binds its field and wheels to this and forwards
// edits and picks.

#include <QtQml/qqmlregistration.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>

#include "tunings/StringPicks.h"

namespace zt {

class NotesPicker : public QObject {
    Q_OBJECT
    QML_ELEMENT
    // The notes as typed, "D2 A2 D3 G3 A3 D4".
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    // Per string, sixth first: the notes it may be tuned to, lowest first.
    // They change only when the text turns from sharps to flats or back.
    Q_PROPERTY(QVariantList choices READ choices NOTIFY choicesChanged)
    // Per string, sixth first: the row of its choices the text gives.
    Q_PROPERTY(QList<int> rows READ rows NOTIFY picksChanged)
    // Per string: whether its word in the text is that row's note.
    Q_PROPERTY(QList<bool> known READ known NOTIFY picksChanged)

public:
    explicit NotesPicker(QObject* parent = nullptr);

    QString text() const { return text_; }
    void setText(const QString& text);
    QVariantList choices() const { return choices_; }
    QList<int> rows() const;
    QList<bool> known() const;

    // Sets `string` (0, the sixth, to 5) to `row` of its choices.
    Q_INVOKABLE void pick(int string, int row);

signals:
    void textChanged();
    void choicesChanged();
    void picksChanged();

private:
    void spell(bool flats);

    QString text_;
    tunings::StringPicks picks_;
    QVariantList choices_;
};

}  // namespace zt
