#pragma once
// The base frequency calibration ("Orchestra tuning"): pick a note (A by
// default) on a wheel, then set its frequency by measuring it through the
// microphone or by steps of 0.1 and 1 Hz either way. It shows the note's
// reference frequency at A4 = 440 Hz, the adjusted frequency and the
// distance between them in cents. OK saves the adjusted note as the tuner's
// base note ("baseOctave", "baseIndex", "baseFrequency") and goes back;
// Cancel goes back without saving.

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>

#include "dsp/Note.h"
#include "dsp/NoteDescription.h"
#include "framework/Value.h"
#include "tuners/ui/MeasuringScreen.h"

namespace zt {

class OrchestraControlDelegate;

class OrchestraControl : public zt::MeasuringScreen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QStringList noteNames READ noteNames CONSTANT)
    Q_PROPERTY(int noteIndex READ noteIndex NOTIFY changed)
    Q_PROPERTY(bool pickerOpen READ pickerOpen NOTIFY changed)
    Q_PROPERTY(QString defaultValueText READ defaultValueText NOTIFY changed)
    Q_PROPERTY(QString customValueText READ customValueText NOTIFY changed)
    Q_PROPERTY(QString centsValueText READ centsValueText NOTIFY changed)

public:
    explicit OrchestraControl(QObject* parent = nullptr);

    void setDelegate(OrchestraControlDelegate* delegate) { delegate_ = delegate; }
    OrchestraControlDelegate* delegate() const { return delegate_; }

    // Its title is "Orchestra Tuning"; the navigation bar reads it in
    // sentence case.
    QString navigationTitle() const override { return QStringLiteral("Orchestra tuning"); }
    QStringList noteNames() const { return noteNames_; }
    int noteIndex() const { return baseNote_.getIndex(); }
    bool pickerOpen() const { return pickerOpen_; }
    QString defaultValueText() const { return defaultValueText_; }
    QString customValueText() const { return customValueText_; }
    QString centsValueText() const { return centsValueText_; }
    const Note& baseNote() const { return baseNote_; }
    int taperMode() const { return taperMode_; }
    double currentFreq() const { return currentFreq_; }

    // Frequencies with one decimal as the screen shows them: 4400 tenths
    // read "440.0", 0 reads "00.0".
    static QString frequencyText(double hertz);

    // From the mediator.
    void setSavedData(const Dictionary& data);
    void showNoteAndFreq(const NoteDescription& note);
    void setBaseNote(const Note& note);

    // tag -10, -1, +1, +10: -1.0, -0.1, +0.1, +1.0 Hz from the shown value.
    Q_INVOKABLE void manualIncrementor(int tag);
    Q_INVOKABLE void showNoteIndexPicker();
    Q_INVOKABLE void hideNoteIndexPicker();
    Q_INVOKABLE void pickNote(int index);

    void viewWillAppear() override;
    void viewWillDisappear() override;

    // The adjusted base note to the delegate.
    void saveSettings() override;

signals:
    void changed();

protected:
    void startSession() override;
    void stopSession() override;
    // One measurement.
    void poll() override;

private:
    OrchestraControlDelegate* delegate_ = nullptr;
    QStringList noteNames_;
    bool pickerOpen_ = false;
    int taperMode_ = 0;
    // Classic detection: whole cents, else tenths.
    bool classic_ = false;
    Note baseNote_{4, 9, 440.0};
    double currentFreq_ = 440.0;
    QString defaultValueText_;
    QString customValueText_;
    QString centsValueText_;
};

}  // namespace zt
