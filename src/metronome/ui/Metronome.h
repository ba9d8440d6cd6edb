#pragma once
// The metronome screen: the tempo wheel (rows 0 to 220, tempo = row + 20)
// with plus and minus, the big tempo digits and the tempo's name, the time
// signature and subdivision buttons with their choice panels, start/stop,
// tap tempo and a beat light. The behaviour lives in MetronomeCore; this
// object adds the screen's state (which panel is open, what the digits
// show), its life cycle and the link to its mediator. MetronomeView.qml only
// draws these properties and forwards touches and keys.
//
// Nothing sounds before the sound bank has loaded (the delegate says when).

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>

#include "framework/TickClock.h"
#include "metronome/HeldStopOutput.h"
#include "metronome/MetronomeCore.h"
#include "metronome/ui/MetronomeControls.h"
#include "screen/Screen.h"

namespace zt {

class MetronomeDelegate;

class Metronome : public zt::Screen, public MetronomeControls {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    // The wheel's rows as shown: "20" to "240".
    Q_PROPERTY(QStringList wheelLabels READ wheelLabels CONSTANT)
    // The chosen wheel row, 0 to 220.
    Q_PROPERTY(int row READ row NOTIFY rowChanged)
    // The three big digits of the tempo shown, "" for a blank leading zero,
    // and the tempo's name in upper case. They follow the wheel while it
    // turns, before a row is chosen.
    Q_PROPERTY(QStringList tempoDigits READ tempoDigits NOTIFY tempoChanged)
    Q_PROPERTY(QString tempoName READ tempoName NOTIFY tempoChanged)
    Q_PROPERTY(int numerator READ numerator NOTIFY settingsChanged)
    // The numerators offered are 1 to numeratorCount.
    Q_PROPERTY(int numeratorCount READ numeratorCount CONSTANT)
    Q_PROPERTY(int denominator READ denominator NOTIFY settingsChanged)
    Q_PROPERTY(int pattern READ pattern NOTIFY settingsChanged)
    // Whether each subdivision pattern, 1 to 6 at indices 0 to 5, may be
    // chosen: all of them, or 1, 2, 3 and 6 when the beat is an eighth note.
    Q_PROPERTY(QVariantList patternOffered READ patternOffered NOTIFY settingsChanged)
    Q_PROPERTY(int pack READ packNumber NOTIFY settingsChanged)
    Q_PROPERTY(bool accent READ isFirstBeatNeed NOTIFY settingsChanged)
    Q_PROPERTY(Panel panel READ panel NOTIFY panelChanged)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY playingChanged)
    Q_PROPERTY(bool tabBarIsVisible READ tabBarIsVisible NOTIFY tabBarIsVisibleChanged)
    // Counts the beats as they are heard; beatAccented tells whether the
    // latest was the accented first beat of a bar.
    Q_PROPERTY(int beatCount READ beatCount NOTIFY beatCountChanged)
    Q_PROPERTY(bool beatAccented READ beatAccented NOTIFY beatCountChanged)
    // The beat of the bar sounding now, 1 (the downbeat) to the numerator;
    // 0 while stopped. It changes when the next beat is heard, so each
    // beat shows for its whole length on the sound's own clock.
    Q_PROPERTY(int currentBeat READ currentBeat NOTIFY currentBeatChanged)
    // The preset whose settings the metronome has ("" for none): the one
    // last applied while nothing has changed since, else the first with
    // the same settings.
    Q_PROPERTY(QString presetName READ presetName NOTIFY presetNameChanged)
    // What each beat of the bar plays, "A" (accented), "N" or "S" (silent),
    // beats 1 to the numerator at indices 0 on.
    Q_PROPERTY(QStringList beatKinds READ beatKinds NOTIFY settingsChanged)
    // While the speed trainer plays: its tempo and the bars to its next
    // step, as the beats are heard ("65 BPM, 3 bars to 70"); "" otherwise.
    Q_PROPERTY(QString trainerStatus READ trainerStatus NOTIFY trainerStatusChanged)

public:
    // The choice panel over the tempo display: the numerator's sixteen
    // buttons, the same panel in its second mode with the denominators 4
    // and 8, or the six subdivision patterns.
    enum Panel { NoPanel, NumeratorPanel, DenominatorPanel, PatternPanel };
    Q_ENUM(Panel)

    // Plays through output (the application's plays on the sound card),
    // measures taps with clock; both must outlive the screen.
    explicit Metronome(MetronomeOutput& output, const TickClock& clock = steadyTickClock(),
                       QObject* parent = nullptr);
    ~Metronome() override;

    void setDelegate(MetronomeDelegate* delegate) { delegate_ = delegate; }
    MetronomeDelegate* delegate() const { return delegate_; }

    QStringList wheelLabels() const;
    int row() const { return core_.getCurrentBPM(); }
    int getCurrentBPM() const { return core_.getCurrentBPM(); }
    QStringList tempoDigits() const;
    QString tempoName() const;
    int numerator() const { return core_.setup().timeSig1Value; }
    int numeratorCount() const { return state::metronome::kTimeSig1Value.max; }
    int denominator() const { return core_.setup().timeSig2Value; }
    int pattern() const { return core_.setup().notesPerBeat; }
    QVariantList patternOffered() const;
    Panel panel() const { return panel_; }
    bool tabBarIsVisible() const { return tabBarIsVisible_; }
    bool isSettings() const { return isSettings_; }
    int beatCount() const { return beatCount_; }
    bool beatAccented() const { return beatAccented_; }
    int currentBeat() const { return currentBeat_; }
    QString presetName() const { return presetName_; }
    QStringList beatKinds() const;
    QString trainerStatus() const { return trainerStatus_; }
    // A tap on a beat's mark: Accented -> Normal -> Silent -> Accented.
    Q_INVOKABLE void cycleBeat(int beat);

    // Tempo wheel: plus and minus step one row (plus does nothing at the
    // top; minus at the bottom stays there); selectRow is a row chosen on
    // the wheel; showWheelRow only shows the row the turning wheel passes.
    Q_INVOKABLE void plus();
    Q_INVOKABLE void minus();
    Q_INVOKABLE void selectRow(int row);
    Q_INVOKABLE void showWheelRow(int row);

    // Choices from the panels; each closes the panel, and a running metronome
    // starts a new bar with it at once. A value that is not offered changes
    // nothing.
    Q_INVOKABLE void chooseNumerator(int numerator);
    Q_INVOKABLE void chooseDenominator(int denominator);
    Q_INVOKABLE void choosePattern(int pattern);
    // Opens a panel; opening the one already open closes it.
    Q_INVOKABLE void openPanel(zt::Metronome::Panel kind);
    Q_INVOKABLE void closePanel();
    // Steps the value of a panel's kind by delta among those offered,
    // stopping at either end, without opening or closing any panel (keys
    // on an open panel, the mouse wheel on a value button).
    Q_INVOKABLE void stepChoice(zt::Metronome::Panel kind, int delta);

    Q_INVOKABLE void startStop();
    Q_INVOKABLE void tap();
    Q_INVOKABLE void openSettings();

    void viewWillAppear() override;
    void viewWillDisappear() override;
    void viewDidDisappear() override;
    void setTabBarIsVisible(bool visible) override;
    // Space starts and stops, T taps, + and - step the tempo, Escape closes
    // the choice panel. On an open panel the arrows step its value, Page Up
    // and Page Down a row of it, and Return closes it.
    bool keyPressed(int key) override;
    // Pause: when playing, stop and remember to resume.
    void endMetronome();
    // Resume after a pause. Right after endMetronome, in the same turn of the
    // event loop, the bar simply goes on.
    void runMetronome();

    // Called by the mediator.
    void setSavedData(const Dictionary& data);
    void setMetronomeFromTab() { setTabBarIsVisible(false); }
    void setMetronomeFromTools() { setTabBarIsVisible(true); }

    // Start when stopped and the sounds are loaded; stop when playing.
    void startMetronome();
    void stopMetronome();

    // MetronomeControls, for the settings screen.
    bool isFirstBeatNeed() const override { return core_.setup().isFirstBeatNeed; }
    void setIsFirstBeatNeed(bool need) override;
    int packNumber() const override { return core_.setup().packNumber; }
    void setCurrentPack(int packNumber) override;
    std::string currentState() const override { return core_.currentState(); }
    Dictionary currentSettings() const override { return core_.currentSettings(); }
    void setSettingsFromDictionary(const Dictionary& preset) override;
    void restartMetronome() override { core_.restartMetronome(); }
    bool isPlaying() const override { return core_.isPlaying(); }
    void saveCurrentState() override;
    void playSampleTick() override;
    PracticeSetup practice() const override { return core_.setup().practice; }
    void setPractice(const PracticeSetup& practice) override;

    // The beat light's clock: takes the newest heard beat from the output.
    // A timer calls it about sixty times a second while the metronome sounds.
    void pollHeardBeats();

signals:
    void rowChanged();
    void tempoChanged();
    void settingsChanged();
    void panelChanged();
    void playingChanged();
    void tabBarIsVisibleChanged();
    void beatCountChanged();
    void currentBeatChanged();
    void presetNameChanged();
    void trainerStatusChanged();

private:
    bool canSound() const;
    void setPanel(Panel panel);
    // After the wheel row changed: show it and tell the view.
    void rowUpdated();
    // After anything that may have started or stopped the metronome.
    void playingUpdated();
    // After a setting changed: tell the view and name the preset in use.
    void settingsUpdated();
    void presetUpdated();
    void setCurrentBeat(int beat);
    // From the latest heard beat (none: the run's start).
    void updateTrainerStatus(const HeardBeat* heard);
    // The tempo the big digits show: the trainer's while it plays, else the
    // wheel's.
    int shownTempo() const;
    bool panelKeyPressed(int key);

    MetronomeDelegate* delegate_ = nullptr;
    HeldStopOutput output_;
    MetronomeCore core_;
    QTimer beatTimer_;

    int shownRow_ = 0;
    Panel panel_ = NoPanel;
    bool wasPlaying_ = false;
    bool isSettings_ = false;
    bool tabBarIsVisible_ = false;
    int beatCount_ = 0;
    bool beatAccented_ = false;
    int currentBeat_ = 0;
    QString presetName_;
    QString trainerStatus_;
    // While the speed trainer plays, the tempo it plays; 0 otherwise.
    int trainerTempo_ = 0;
    // The name of the preset last applied, preferred among presets with the
    // same settings.
    std::string appliedPreset_;
};

}  // namespace zt
