#pragma once
// The by-ear tuner's settings screen: one list of three rows.
//   0  the title "Settings"
//   1  "Loop", with a switch: a touched string repeats its tone until it
//      is touched again; the by-ear tuner follows at once and the choice is
//      saved at once
//   2  "Tunings", with the current tuning's name: opens the tunings list
// The QML view (TunerBrainSettingsView.qml) only draws these properties
// and forwards touches to the invokables.

#include <QtQml/qqmlregistration.h>

#include <QPointer>
#include <QString>

#include "screen/Screen.h"

namespace zt {

class TunerBrain;
class TunerBrainSettingsDelegate;

class TunerBrainSettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QString titleRow READ titleRow CONSTANT)
    Q_PROPERTY(QString loopTitle READ loopTitle CONSTANT)
    Q_PROPERTY(QString tuningsTitle READ tuningsTitle CONSTANT)
    Q_PROPERTY(bool loopSound READ loopSound NOTIFY loopSoundChanged)
    Q_PROPERTY(QString nameOfTuning READ nameOfTuning NOTIFY nameOfTuningChanged)

public:
    // The by-ear tuner whose "Loop" the switch sets; it must outlive this
    // screen.
    explicit TunerBrainSettings(TunerBrain* tunerBrain, QObject* parent = nullptr);

    void setDelegate(TunerBrainSettingsDelegate* delegate) { delegate_ = delegate; }
    TunerBrainSettingsDelegate* delegate() const { return delegate_; }

    QString titleRow() const { return QStringLiteral("Settings"); }
    QString loopTitle() const { return QStringLiteral("Loop"); }
    QString tuningsTitle() const { return QStringLiteral("Tunings"); }
    bool loopSound() const { return loopSound_; }
    QString nameOfTuning() const { return nameOfTuning_; }

    // The switch changed: "Loop" flips on the by-ear tuner and is saved.
    Q_INVOKABLE void switcherLoopAction();
    // A row touched: only row 2 leads anywhere (the tunings list).
    Q_INVOKABLE void selectRow(int row);

    // Takes "Loop" from the by-ear tuner and the tuning's name afresh.
    void viewWillAppear() override;

    // Sends {"Loop": loopSound} to the delegate.
    void currentSave();

signals:
    void loopSoundChanged();
    void nameOfTuningChanged();

private:
    TunerBrainSettingsDelegate* delegate_ = nullptr;
    QPointer<TunerBrain> tunerBrain_;
    bool loopSound_ = false;
    QString nameOfTuning_;
};

}  // namespace zt
