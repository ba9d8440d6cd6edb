#pragma once
// The practice section of the metronome settings: the speed trainer (on or
// off, start and end tempo, step, every how many bars) and muted bars (on or
// off, bars played, bars silent). Values step by a delta within their ranges
// (plus and minus buttons, the mouse wheel, the arrow keys); every change
// goes to the metronome at once and is saved with its settings.

#include <QtQml/qqmlregistration.h>

#include <QList>
#include <QObject>
#include <QString>

#include "metronome/PracticeSetup.h"

namespace zt {

class MetronomeControls;

class PracticeSettings : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the metronome settings")
    Q_PROPERTY(bool trainerOn READ trainerOn NOTIFY changed)
    Q_PROPERTY(bool muteOn READ muteOn NOTIFY changed)
    // Every field's value, indexed by Field: a property, so that a view
    // bound to it is told of each change.
    Q_PROPERTY(QList<int> values READ values NOTIFY changed)

public:
    enum Field { TrainerStart, TrainerEnd, TrainerStep, TrainerBars, MutePlayBars, MuteSilentBars };
    Q_ENUM(Field)

    explicit PracticeSettings(MetronomeControls* metronome, QObject* parent = nullptr);

    bool trainerOn() const { return current().trainerOn; }
    bool muteOn() const { return current().muteOn; }
    QList<int> values() const;

    Q_INVOKABLE void toggleTrainer();
    Q_INVOKABLE void toggleMute();
    // The value of a field, and a step of it by delta, held within its range.
    Q_INVOKABLE int value(zt::PracticeSettings::Field field) const;
    Q_INVOKABLE void step(zt::PracticeSettings::Field field, int delta);
    // The field's name as the row shows it ("Start tempo").
    Q_INVOKABLE QString title(zt::PracticeSettings::Field field) const;

    // The metronome's settings may have changed elsewhere (a preset).
    void refresh() { emit changed(); }

signals:
    void changed();

private:
    PracticeSetup current() const;
    void apply(const PracticeSetup& practice);

    MetronomeControls* metronome_;
};

}  // namespace zt
