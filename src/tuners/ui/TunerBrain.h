#pragma once
// The by-ear tuner: the six strings of the current tuning, each a button
// that plays its reference tone. A tone plays once while the string's
// highlight fades over 2.2 s, or, with "Loop" on, repeats until the string
// is touched again; then only one string sounds at a time. The behaviour
// lives here; TunerBrainView.qml draws these properties and forwards
// touches.
//
// Strings are numbered as a guitarist does: 1 the highest, 6 the lowest.
// They are drawn in a row, the 6th on the left, or mirrored for a
// left-handed player (the 6th on the right); their numbers stay.
// Nothing sounds before the sound bank has loaded (the delegate says when).

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>
#include <array>
#include <string>

#include "framework/Value.h"
#include "screen/Screen.h"
#include "tuners/ByEarStrings.h"
#include "tuners/StringToneOutput.h"

namespace zt {

class TunerBrainDelegate;

class TunerBrain : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    // The note names of strings 1 to 6 ("C#"), as they sound with the capo.
    Q_PROPERTY(QStringList noteNames READ noteNames NOTIFY tuningChanged)
    // The tuning's name, and the capo's fret after it when there is one
    // ("Standard  ·  Capo 3").
    Q_PROPERTY(QString tuningName READ tuningName NOTIFY tuningChanged)
    // The capo's fret, 0 for none.
    Q_PROPERTY(int capo READ capo NOTIFY tuningChanged)
    // Each string's highlight (Highlight values), strings 1 to 6.
    Q_PROPERTY(QVariantList highlights READ highlights NOTIFY highlightsChanged)
    // Counts, per string, the fades begun: a view restarts its fade when
    // the count of a string changes.
    Q_PROPERTY(QVariantList fadeCounts READ fadeCounts NOTIFY highlightsChanged)
    Q_PROPERTY(bool loopSound READ loopSound NOTIFY loopSoundChanged)
    Q_PROPERTY(int fadeMilliseconds READ fadeMilliseconds CONSTANT)
    Q_PROPERTY(QString caption READ caption NOTIFY loopSoundChanged)
    // The strings' numbers in the order drawn, from the left.
    Q_PROPERTY(QVariantList stringOrder READ stringOrder NOTIFY handChanged)
    Q_PROPERTY(bool leftHanded READ leftHanded NOTIFY handChanged)

public:
    static constexpr int kStrings = ByEarStrings::kStrings;
    // How long a tone played once keeps its string lit, fading (ease-in).
    static constexpr double kFadeSeconds = 2.2;

    enum Highlight { Hidden = 0, Fading = 1, Held = 2 };
    Q_ENUM(Highlight)

    // Plays through output (the application's plays on the sound card),
    // which must outlive the screen.
    explicit TunerBrain(StringToneOutput& output, QObject* parent = nullptr);

    void setDelegate(TunerBrainDelegate* delegate) { delegate_ = delegate; }
    TunerBrainDelegate* delegate() const { return delegate_; }

    QStringList noteNames() const;
    QString tuningName() const;
    QVariantList highlights() const;
    QVariantList fadeCounts() const;
    bool loopSound() const { return loopSound_; }
    int fadeMilliseconds() const { return static_cast<int>(kFadeSeconds * 1000); }
    QString caption() const;
    QVariantList stringOrder() const;
    bool leftHanded() const { return leftHanded_; }
    void setLeftHanded(bool on);

    // The highlight's opacity `seconds` after a tone played once began: 1
    // at the touch, ease-in (quadratic) to 0 at kFadeSeconds.
    Q_INVOKABLE static qreal fadeOpacity(qreal seconds);

    // String n (1 to 6) touched: plays it, or stops it when it was looping.
    Q_INVOKABLE void pressed(int stringNumber);
    // The gear: the settings screen.
    Q_INVOKABLE void clickSettingsButton();

    // String n's semitones from its recording in the current tuning.
    int offset(int stringNumber) const;
    bool isLooping(int stringNumber) const;
    Highlight highlight(int stringNumber) const;
    bool buttonMode() const { return buttonMode_; }
    const std::string& currentTuning() const { return currentTuning_; }

    // The "Loop" setting: tones repeat until their string is touched again.
    void setLoopSound(bool loop);
    // The capo's fret, 0 (none) to 12: every string plays that many
    // semitones higher. Silences the strings when it moves.
    int capo() const { return capo_; }
    void setCapo(int fret);
    // Called by the mediator with the by-ear section of the saved state.
    void setSavedData(const Dictionary& data);
    // Leaving the screen next time does not resume the user's music.
    void setButtonMode() { buttonMode_ = true; }

    // Pauses music and the metronome, takes the current tuning afresh.
    void viewWillAppear() override;
    // The number keys 1 to 6 touch strings 1 to 6.
    bool keyPressed(int key) override;
    // Silences every string; resumes music unless setButtonMode said not to.
    void viewDidDisappear() override;

signals:
    void tuningChanged();
    void highlightsChanged();
    void loopSoundChanged();
    void handChanged();

private:
    bool canSound() const;
    void stopAllSounds();
    void setSound();
    void watchRelease();

    TunerBrainDelegate* delegate_ = nullptr;
    StringToneOutput& output_;
    std::string currentTuning_;
    QString tuningName_;
    ByEarStrings strings_;
    bool loopSound_ = false;
    int capo_ = 0;
    bool buttonMode_ = false;
    bool leftHanded_ = false;
    std::array<bool, kStrings> startLoopSound_{};
    std::array<Highlight, kStrings> highlights_{};
    std::array<int, kStrings> fadeCounts_{};
    // Lets the output release the sound card once the strings are silent.
    QTimer releaseTimer_;
};

}  // namespace zt
