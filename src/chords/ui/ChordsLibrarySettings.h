#pragma once
// The chords settings screen: one list of three rows.
//   0  the title "Settings"
//   1  "Show notes", with a switch: note names on the neck instead of
//      finger numbers; the chords screen follows at once
//   2  "Tunings", with the current tuning's name: opens the tunings list
// Leaving the screen saves the display mode. The QML view
// (ChordsLibrarySettingsView.qml) only draws these properties and forwards
// touches to the invokables.

#include <QtQml/qqmlregistration.h>

#include <QPointer>
#include <QString>

#include "screen/Screen.h"

namespace zt {

class ChordsLibrary;
class ChordsLibrarySettingsDelegate;

class ChordsLibrarySettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QString titleRow READ titleRow CONSTANT)
    Q_PROPERTY(QString showNotesTitle READ showNotesTitle CONSTANT)
    Q_PROPERTY(QString tuningsTitle READ tuningsTitle CONSTANT)
    Q_PROPERTY(bool isShowNotes READ isShowNotes NOTIFY isShowNotesChanged)
    Q_PROPERTY(QString nameOfTuning READ nameOfTuning NOTIFY nameOfTuningChanged)

public:
    // The chords screen whose display mode the switch sets; it must outlive
    // this screen.
    explicit ChordsLibrarySettings(ChordsLibrary* chordsLibrary, QObject* parent = nullptr);

    void setDelegate(ChordsLibrarySettingsDelegate* delegate) { delegate_ = delegate; }
    ChordsLibrarySettingsDelegate* delegate() const { return delegate_; }

    QString titleRow() const { return QStringLiteral("Settings"); }
    QString showNotesTitle() const { return QStringLiteral("Show notes"); }
    QString tuningsTitle() const { return QStringLiteral("Tunings"); }
    bool isShowNotes() const { return isShowNotes_; }
    QString nameOfTuning() const { return nameOfTuning_; }

    // The switch changed: the display mode flips, on the chords screen too.
    Q_INVOKABLE void switcherNotesAction();
    // A row touched: only row 2 leads anywhere (the tunings list).
    Q_INVOKABLE void selectRow(int row);

    // Takes the display mode from the chords screen and the tuning's name
    // afresh.
    void viewWillAppear() override;
    // Saves the display mode.
    void viewWillDisappear() override;

    // Sends {"notes": isShowNotes} to the delegate.
    void currentSave();

signals:
    void isShowNotesChanged();
    void nameOfTuningChanged();

private:
    ChordsLibrarySettingsDelegate* delegate_ = nullptr;
    QPointer<ChordsLibrary> chordsLibrary_;
    bool isShowNotes_ = false;
    QString nameOfTuning_;
};

}  // namespace zt
