#pragma once
// The common settings screen ("Tunings"): a table whose row 0 is a header with
// the current tuning's name in upper case, and whose rows 1 to n list the
// tunings (the catalogue's, then the user's) with their notes, the current
// one ticked. A filter narrows the rows shown; touching a row makes that
// tuning current; leaving the screen saves the choice. The user's tunings
// are made, changed and removed here too. The QML view
// (CommonSettingsView.qml) only draws these properties and forwards
// touches, keys and appearance to the invokables.

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <string>
#include <vector>

#include "screen/Screen.h"
#include "tunings/TuningList.h"

namespace zt {

class CommonSettingsDelegate;

class CommonSettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QStringList tuningNames READ tuningNames NOTIFY rowsChanged)
    Q_PROPERTY(QStringList tuningLabels READ tuningLabels NOTIFY reloaded)
    Q_PROPERTY(QString currentTuning READ currentTuning NOTIFY reloaded)
    Q_PROPERTY(QString headerText READ headerText NOTIFY reloaded)
    // One map per tuning row that the filter keeps: name, label (compact),
    // notes (spaced and spelled), ticked, custom, and index (the tuning's).
    // The rows change only with the tunings and the filter, so that a choice
    // leaves the list where it is.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY rowsChanged)
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY rowsChanged)
    // Position of the current tuning among rows; -1 when filtered out.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY reloaded)
    Q_PROPERTY(int tuning READ tuning NOTIFY tuningChanged)

public:
    explicit CommonSettings(QObject* parent = nullptr);

    void setDelegate(CommonSettingsDelegate* delegate) { delegate_ = delegate; }
    CommonSettingsDelegate* delegate() const { return delegate_; }

    // Compact labels from the catalogue's tuning strings, by index.
    void setTuningArray(const std::vector<std::string>& notesStand);
    // Every tuning: names, labels, spelled notes and who made it.
    void setTuningList(const tunings::TuningList& list);
    // The current tuning index, as the mediator answers getTuning.
    void setTuningSetting(int index);

    QStringList tuningNames() const { return tuningNameArray_; }
    QStringList tuningLabels() const { return tuningArray_; }
    QString currentTuning() const { return currentTuning_; }
    QString headerText() const { return currentTuning_.toUpper(); }
    QVariantList rows() const;
    int tuning() const { return tuning_; }
    QString filter() const { return filter_; }
    void setFilter(const QString& filter);
    int currentRow() const;

    // Table rows: the header plus one per tuning.
    Q_INVOKABLE int rowCount() const { return static_cast<int>(tuningNameArray_.size()) + 1; }
    // Row k >= 1 ticks when its name is the current tuning's.
    Q_INVOKABLE bool isTicked(int row) const;
    // Row k >= 1 makes tuning k - 1 current; row 0 (the header) does nothing.
    Q_INVOKABLE void selectRow(int row);
    // The user's tuning at index (-1: a new one) from a name and typed notes;
    // returns what is wrong, "" when it is stored.
    Q_INVOKABLE QString storeCustom(int index, const QString& name, const QString& notes);
    Q_INVOKABLE bool removeCustom(int index);
    // A tuning's notes as they are typed ("D2 A2 D3 G3 A3 D4").
    Q_INVOKABLE QString typedNotes(int index) const;
    // Escape clears the filter, then goes back.
    bool keyPressed(int key) override;
    void viewWillAppear() override;
    void viewDidDisappear() override;

    // Sends {"Tuning": tuning} to the delegate.
    void saveCurrentState();

signals:
    void reloaded();
    void rowsChanged();
    void tuningChanged();

private:
    void setCurrentTuning(int index);

    CommonSettingsDelegate* delegate_ = nullptr;
    QStringList tuningNameArray_;
    QStringList tuningArray_;
    QStringList notes_;
    std::vector<std::string> storedNotes_;
    std::vector<bool> flats_;
    std::vector<bool> custom_;
    QString filter_;
    QString currentTuning_;
    int tuning_ = 0;
};

}  // namespace zt
