#include "tunings/ui/NotesPicker.h"

#include <QStringList>

namespace zt {

NotesPicker::NotesPicker(QObject* parent) : QObject(parent) {
    picks_.rows = tunings::standardRows();
    spell(false);
}

void NotesPicker::setText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    const auto before = picks_;
    picks_ = tunings::readPicks(text_.toStdString(), before.rows);
    emit textChanged();
    if (picks_.flats != before.flats)
        spell(picks_.flats);
    if (picks_.rows != before.rows || picks_.known != before.known)
        emit picksChanged();
}

QList<int> NotesPicker::rows() const {
    return QList<int>(picks_.rows.begin(), picks_.rows.end());
}

QList<bool> NotesPicker::known() const {
    return QList<bool>(picks_.known.begin(), picks_.known.end());
}

void NotesPicker::pick(int string, int row) {
    setText(QString::fromStdString(
        tunings::pickInto(text_.toStdString(), string, row, picks_.rows, picks_.flats)));
}

void NotesPicker::spell(bool flats) {
    choices_.clear();
    for (int string = 0; string < tunings::kStringCount; ++string) {
        QStringList notes;
        for (const auto& note : tunings::stringChoices(string, flats))
            notes.append(QString::fromStdString(note));
        choices_.append(notes);
    }
    emit choicesChanged();
}

}  // namespace zt
