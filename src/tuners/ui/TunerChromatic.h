#pragma once
// The chromatic tuner screen. While it is shown it asks for a reading 20
// times a second, and for each detected note it turns the needle (by the
// dial's law, see TunerDial.h), lights the note in the six-slot panel (see
// NotePanel.h), prints the frequency with one decimal (amber within 5 cents)
// and the five reference frequencies around the note, and sizes the volume
// bar. Geometry is in points of the 320 x 480 design; TunerChromaticView.qml
// scales and draws it and forwards touches.
//
// With all notes, a panel change is drawn 10 ms after the note that caused
// it, on this thread; readings that arrive meanwhile are dropped whole
// (needle and labels too), which is what throttles the panel.

#include <QtQml/qqmlregistration.h>

#include <QElapsedTimer>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>

#include "dsp/Note.h"
#include "dsp/NoteDescription.h"
#include "framework/Value.h"
#include "screen/Screen.h"
#include "tuners/PitchTrace.h"
#include "tuners/ReferenceTone.h"
#include "tuners/StrobeBand.h"
#include "tuners/ui/NotePanel.h"

namespace zt {

class StringToneOutput;
class TunerChromaticDelegate;

class TunerChromatic : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    // The needle's target angle in radians (clockwise) and how long the swing
    // there takes; needleMoved() starts each swing.
    Q_PROPERTY(double needleAngle READ needleAngle NOTIFY needleMoved)
    Q_PROPERTY(double needleSeconds READ needleSeconds NOTIFY needleMoved)
    Q_PROPERTY(QStringList slotLetters READ slotLetters NOTIFY panelChanged)
    Q_PROPERTY(QVariantList slotSharps READ slotSharps NOTIFY panelChanged)
    Q_PROPERTY(int activeSlot READ activeSlot NOTIFY panelChanged)
    // With all notes the slots are pitch classes: the lit one adds the
    // octave of the note heard ("2" for A2). Empty otherwise.
    Q_PROPERTY(QString activeOctave READ activeOctave NOTIFY panelChanged)
    Q_PROPERTY(QString frequencyText READ frequencyText NOTIFY labelsChanged)
    Q_PROPERTY(bool frequencyAmber READ frequencyAmber NOTIFY labelsChanged)
    // The reading's cents beside the frequency, "+20.0 ¢"; "" without pitch.
    Q_PROPERTY(QString centsText READ centsText NOTIFY labelsChanged)
    // Centre, +1, -1, +2 and -2 semitones.
    Q_PROPERTY(QStringList referenceTexts READ referenceTexts NOTIFY labelsChanged)
    // The volume bar's lit frame, 20 points high at y = 190: its left edge,
    // its width, and the share of the 116-point lit image on show.
    Q_PROPERTY(double volumeX READ volumeX NOTIFY volumeChanged)
    Q_PROPERTY(double volumeWidth READ volumeWidth NOTIFY volumeChanged)
    Q_PROPERTY(double volumeShown READ volumeShown NOTIFY volumeChanged)
    // The same reading and the threshold, 0 to 1 on the scale the microphone
    // sensitivity meter uses (see LevelScale), so both meters read alike.
    Q_PROPERTY(double level READ level NOTIFY volumeChanged)
    Q_PROPERTY(double thresholdMark READ thresholdMark NOTIFY volumeChanged)
    Q_PROPERTY(bool linearScale READ linearScale NOTIFY scaleChanged)
    // The needle's angle at +100 cents, where the +-1 semitone labels sit.
    Q_PROPERTY(double referenceAngle READ referenceAngle NOTIFY scaleChanged)
    // The scale's ticks: one map per tick, "angle" (radians) and "length"
    // (30, 20 or 10 points), every 10 cents from -200 to +200.
    Q_PROPERTY(QVariantList scaleTicks READ scaleTicks NOTIFY scaleChanged)
    Q_PROPERTY(bool allNotes READ isAllNotes NOTIFY panelChanged)
    Q_PROPERTY(bool polling READ polling NOTIFY pollingChanged)
    Q_PROPERTY(bool microphoneAlert READ microphoneAlert NOTIFY microphoneAlertChanged)
    Q_PROPERTY(QString alertTitle READ alertTitle CONSTANT)
    Q_PROPERTY(QString alertMessage READ alertMessage CONSTANT)
    Q_PROPERTY(QString alertButton READ alertButton CONSTANT)
    Q_PROPERTY(bool strobeView READ strobeView NOTIFY displayChanged)
    Q_PROPERTY(bool pitchHistory READ pitchHistory NOTIFY displayChanged)
    // The slot whose note the pitch pipe plays, or -1; and what it plays,
    // "A4 443.0 Hz".
    Q_PROPERTY(int toneSlot READ toneSlot NOTIFY toneChanged)
    Q_PROPERTY(QString toneText READ toneText NOTIFY toneChanged)

public:
    static constexpr int kPollMs = 50;
    static constexpr int kPanelRefreshMs = 10;

    explicit TunerChromatic(QObject* parent = nullptr);

    // A screen shown before it had a delegate (the app opening on this tab
    // builds the tab bar before the screens' mediators register) starts
    // listening once it has one, in the next turn of the event loop, when
    // the mediator is fully registered.
    void setDelegate(TunerChromaticDelegate* delegate);
    TunerChromaticDelegate* delegate() const { return delegate_; }

    double needleAngle() const { return needleAngle_; }
    double needleSeconds() const { return needleSeconds_; }
    QStringList slotLetters() const;
    QVariantList slotSharps() const;
    int activeSlot() const { return panel_.activeSlot(); }
    QString activeOctave() const {
        return isAllNotes_ && panel_.activeSlot() >= 0 ? litOctave_ : QString();
    }
    QString frequencyText() const { return frequencyText_; }
    bool frequencyAmber() const { return frequencyAmber_; }
    QString centsText() const { return centsText_; }
    QStringList referenceTexts() const { return referenceTexts_; }
    QRectF volumeFrame() const { return volumeFrame_; }
    double volumeX() const { return volumeFrame_.x(); }
    double volumeWidth() const { return volumeFrame_.width(); }
    double volumeShown() const { return volumeShown_; }
    double level() const { return level_; }
    double thresholdMark() const;
    bool linearScale() const { return linearScale_; }
    double referenceAngle() const { return convertAngle(100.0); }
    QVariantList scaleTicks() const;
    bool isAllNotes() const { return isAllNotes_; }
    bool polling() const { return startTuner_.isActive(); }
    bool microphoneAlert() const { return microphoneAlert_; }
    QString alertTitle() const { return QStringLiteral("Microphone Required"); }
    QString alertMessage() const {
        return QStringLiteral(
            "The chromatic tuner requires a microphone to work. If you are using a device which "
            "does not include a built-in microphone, you must connect an external microphone via "
            "the headset jack. Or, you can use the Brain tuner instead.");
    }
    QString alertButton() const { return QStringLiteral("Ok"); }

    bool strobeView() const { return strobeView_; }
    bool pitchHistory() const { return pitchHistory_; }
    int toneSlot() const { return tone_.slot(); }
    QString toneText() const { return toneText_; }
    // The views' clock, in seconds: readings are stamped with it and the
    // views draw by it.
    double clockSeconds() const { return clock_.nsecsElapsed() / 1e9; }
    StrobeBand& strobe() { return strobe_; }
    const PitchTrace& trace() const { return trace_; }

    // The by-ear tuner's strings, which the pitch pipe plays.
    void setToneOutput(StringToneOutput* output) { tone_.setOutput(output); }
    // Plays the note of `slot`, or stops it when it is the one sounding.
    Q_INVOKABLE void touchSlot(int slot);
    // Space: the pitch pipe, for the note lit (or the one played last).
    bool keyPressed(int key) override;
    // The note `slot` stands for, as 12 x octave + pitch class; -1 for none.
    int slotPosition(int slot) const;

    // The needle's angle for `cents` by the chosen law (not clamped).
    Q_INVOKABLE double convertAngle(double cents) const;
    // The navigation bar's "Settings" button.
    bool offersSettings() const override { return true; }
    void openSettings() override;
    // The microphone alert's "Ok": on to the by-ear tuner.
    Q_INVOKABLE void dismissMicrophoneAlert();

    // From the mediator.
    void setTuningArray(const std::vector<std::string>& notesStand);
    void setTuningTuner(int tuning);
    void setSavedData(const Dictionary& data);
    void showNoteAndFreq(const NoteDescription& note);
    void showMicrophoneDetectAlertView();
    void setButtonMode() { buttonMode_ = true; }

    void viewWillAppear() override;
    void viewDidDisappear() override;
    // Stops the poll and any pending panel change, and dims the volume bar.
    void stopTimer();

    // What the saved settings and the mediator set, for the tests.
    int tuning() const { return tuning_; }
    int taperMode() const { return taperMode_; }
    const Note& baseNote() const { return baseNote_; }
    int tresholdPercent() const { return tresholdPercent_; }
    int beginIndex() const { return panel_.beginIndex(); }
    bool panelRefreshPending() const { return !isTimerStop_; }
    int tuningCount() const { return panel_.tuningCount(); }

signals:
    void needleMoved();
    void panelChanged();
    void labelsChanged();
    void volumeChanged();
    void scaleChanged();
    void pollingChanged();
    void microphoneAlertChanged();
    void displayChanged();
    void toneChanged();

private:
    void startTunerAction();
    void setNotePanelIndex(const NoteDescription& note);
    void showNewNote();
    void updateLabel(const NoteDescription& note);
    void rotationArrow(const NoteDescription& note);
    void setTuningImages();
    void cancelPanelRefresh();
    void setVolume(double x, double width, double shown, double level = 0.0);
    void setPolling(bool on);
    void moveNeedle(double angle, double seconds);
    // The practice views' share of the work, in TunerChromaticPractice.cpp.
    void setUpPractice();
    void readDisplay(const Dictionary& data);
    void recordReading(const NoteDescription& note);
    // Stops the pitch pipe; with `resume`, listening starts again if the
    // pipe had paused it.
    void stopTone(bool resume);

    TunerChromaticDelegate* delegate_ = nullptr;
    NotePanel panel_;
    QTimer startTuner_;
    QTimer timerChangeNotes_;

    float freq_ = -1.0f;
    int tuning_ = 0;
    bool linearScale_ = false;
    // Classic detection: the needle goes by whole cents.
    bool classic_ = false;
    bool isAllNotes_ = false;
    bool isAllNotesChange_ = false;
    int taperMode_ = 0;
    Note baseNote_;
    int tresholdPercent_ = 0;
    int activeNoteIndex_ = 0;
    // No panel change pending: readings are taken.
    bool isTimerStop_ = true;
    std::string currentNote_;
    std::string heardOctave_;
    QString litOctave_;
    bool buttonMode_ = false;
    // Shown while there was no delegate to start listening with.
    bool appearPending_ = false;
    bool microphoneAlert_ = false;

    bool strobeView_ = false;
    bool pitchHistory_ = false;
    std::vector<std::string> tuningStrings_;
    // The last note heard, 12 x octave + pitch class; -1 before the first.
    int heardPosition_ = -1;
    int lastToneSlot_ = -1;
    // The pitch pipe stopped the listening.
    bool tonePaused_ = false;
    QString toneText_;
    QElapsedTimer clock_;
    StrobeBand strobe_;
    PitchTrace trace_;
    ReferenceTone tone_;
    QTimer releaseTimer_;

    double needleAngle_ = 0.0;
    double needleSeconds_ = 0.0;
    QString frequencyText_;
    bool frequencyAmber_ = false;
    QString centsText_;
    QStringList referenceTexts_{"", "", "", "", ""};
    QRectF volumeFrame_{110, 190, 100, 20};
    double volumeShown_ = 0.0;
    double level_ = 0.0;
};

}  // namespace zt
