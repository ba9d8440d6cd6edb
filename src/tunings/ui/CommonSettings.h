#pragma once
// The common settings screen ("Tunings"): a table whose row 0 is a header with
// the current tuning's name in upper case, and whose rows 1 to 53 list the
// tunings with their compact labels, the current one ticked. Touching a row
// makes that tuning current; leaving the screen saves the choice. The QML
// view (CommonSettingsView.qml) only draws these properties and forwards
// touches and appearance to the invokables.

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <string>
#include <vector>

#include "screen/Screen.h"

namespace zt {

class CommonSettingsDelegate;

class CommonSettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QStringList tuningNames READ tuningNames CONSTANT)
    Q_PROPERTY(QStringList tuningLabels READ tuningLabels NOTIFY reloaded)
    Q_PROPERTY(QString currentTuning READ currentTuning NOTIFY reloaded)
    Q_PROPERTY(QString headerText READ headerText NOTIFY reloaded)
    // One map per tuning row (table rows 1 to 53): name, label, ticked.
    Q_PROPERTY(QVariantList rows READ rows NOTIFY reloaded)
    Q_PROPERTY(int tuning READ tuning NOTIFY tuningChanged)

public:
    explicit CommonSettings(QObject* parent = nullptr);

    void setDelegate(CommonSettingsDelegate* delegate) { delegate_ = delegate; }
    CommonSettingsDelegate* delegate() const { return delegate_; }

    // Compact labels from the catalogue's tuning strings, by index.
    void setTuningArray(const std::vector<std::string>& notesStand);
    // The current tuning index, as the mediator answers getTuning.
    void setTuningSetting(int index);

    QStringList tuningNames() const { return tuningNameArray_; }
    QStringList tuningLabels() const { return tuningArray_; }
    QString currentTuning() const { return currentTuning_; }
    QString headerText() const { return currentTuning_.toUpper(); }
    QVariantList rows() const;
    int tuning() const { return tuning_; }

    // Table rows: the header plus one per tuning.
    Q_INVOKABLE int rowCount() const { return static_cast<int>(tuningNameArray_.size()) + 1; }
    // Row k >= 1 ticks when its name is the current tuning's.
    Q_INVOKABLE bool isTicked(int row) const;
    // Row k >= 1 makes tuning k - 1 current; row 0 (the header) does nothing.
    Q_INVOKABLE void selectRow(int row);
    void viewWillAppear() override;
    void viewDidDisappear() override;

    // Sends {"Tuning": tuning} to the delegate.
    void saveCurrentState();

signals:
    void reloaded();
    void tuningChanged();

private:
    void setCurrentTuning(int index);

    CommonSettingsDelegate* delegate_ = nullptr;
    QStringList tuningNameArray_;
    QStringList tuningArray_;
    QString currentTuning_;
    int tuning_ = 0;
};

}  // namespace zt
