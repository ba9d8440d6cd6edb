#pragma once
// The chords screen: a two-wheel picker (root, type) that hides while the
// strings are played, the neck showing one fingering of the chord in the
// current tuning (finger numbers or note names, barres, open and muted
// strings), a strip of small diagrams of every fingering with an arrow at
// each end, and six strings that a finger dragged across plays one by one.
// A chord plays as a whole (lowest string first, 60 ms apart) when it is
// picked, when a diagram of the strip is touched, and on the play button or
// Space or Enter; a letter key turns the root wheel to the next root with
// that letter. Each string lights for a moment from when its note is heard,
// by the output's clock, however it was played. The behaviour lives
// here; ChordsLibraryView.qml draws these properties and forwards touches.
//
// Nothing sounds before the sound bank has loaded (the delegate says when).

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "chords/ChordOutput.h"
#include "chords/ui/ChordsFinder.h"
#include "chords/ui/ChordsSavedState.h"
#include "chords/ui/NeckPicture.h"
#include "chords/ui/StripArrows.h"
#include "chords/ui/TouchView.h"
#include "screen/Screen.h"

namespace zt {

class ChordsLibraryDelegate;

class ChordsLibrary : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    // The wheels' titles and their selected rows.
    Q_PROPERTY(QStringList rootTitles READ rootTitles NOTIFY pickerChanged)
    Q_PROPERTY(QStringList typeTitles READ typeTitles NOTIFY pickerChanged)
    Q_PROPERTY(int pickerComponent0Row READ pickerComponent0Row NOTIFY chordChanged)
    Q_PROPERTY(int pickerComponent1Row READ pickerComponent1Row NOTIFY chordChanged)
    Q_PROPERTY(bool pickerVisible READ pickerVisible NOTIFY pickerVisibleChanged)
    // The chord label ("C♯m7"), and "/E" when the fingering shown has
    // another note than the root in the bass.
    Q_PROPERTY(QString chordName READ chordName NOTIFY chordChanged)
    Q_PROPERTY(QString bassText READ bassText NOTIFY variationChanged)
    // The chord's tones ("C E G") and formula ("1 3 5").
    Q_PROPERTY(QString chordNotes READ chordNotes NOTIFY chordChanged)
    Q_PROPERTY(QString chordFormula READ chordFormula NOTIFY chordChanged)
    // Naming a shape tapped on the neck; while it is on, the neck shows the
    // shape held and takes taps instead of strums.
    Q_PROPERTY(zt::ChordsFinder* finder READ finder CONSTANT)
    Q_PROPERTY(QString tuningName READ tuningName NOTIFY tuningNameChanged)
    Q_PROPERTY(int variationCount READ variationCount NOTIFY chordChanged)
    Q_PROPERTY(int currentVariationsIndex READ currentVariationsIndex NOTIFY variationChanged)
    // "3 / 24"; empty without fingerings.
    Q_PROPERTY(QString variationText READ variationText NOTIFY variationChanged)
    // Said over the empty neck of a chord without fingerings, else empty.
    Q_PROPERTY(QString emptyNote READ emptyNote NOTIFY chordChanged)
    // The neck (see NeckPicture): the fingering shown, or the finder's shape.
    Q_PROPERTY(QVariantList neckStrings READ neckStrings NOTIFY variationChanged)
    Q_PROPERTY(QVariantList neckBarres READ neckBarres NOTIFY variationChanged)
    Q_PROPERTY(int neckFirstFret READ neckFirstFret NOTIFY variationChanged)
    // The strip: one small diagram per fingering (see smallDiagram).
    Q_PROPERTY(QVariantList diagrams READ diagrams NOTIFY chordChanged)
    Q_PROPERTY(qreal upperArrowAlpha READ upperArrowAlpha NOTIFY arrowsChanged)
    Q_PROPERTY(qreal lowerArrowAlpha READ lowerArrowAlpha NOTIFY arrowsChanged)
    // Note names on the neck instead of finger numbers.
    Q_PROPERTY(bool flag READ flag WRITE setShowNotes NOTIFY flagChanged)
    Q_PROPERTY(QString notesTitle READ notesTitle CONSTANT)
    Q_PROPERTY(QString fingersTitle READ fingersTitle CONSTANT)
    // By string number ([n - 1]): whether string n is lit, its note having
    // begun to be heard less than kLightSeconds ago.
    Q_PROPERTY(QVariantList litStrings READ litStrings NOTIFY litChanged)
    // The capo's fret (0: none) and the label drawn beside it ("Capo 2").
    // Under a capo the fingerings count their frets from it and the chord
    // keeps its concert name and sound; shapeText names the shape played
    // ("C shape" for D with a capo at 2), empty without a capo.
    Q_PROPERTY(int capo READ capo NOTIFY capoChanged)
    Q_PROPERTY(QString capoLabel READ capoLabel NOTIFY capoChanged)
    Q_PROPERTY(QString shapeText READ shapeText NOTIFY variationChanged)
    // Drawn for a left-handed player: the neck, the strip and the strings'
    // touches mirrored, the 6th string on the right. stringXs: where each
    // string is drawn, by string number ([n - 1]), in TouchView's points.
    Q_PROPERTY(bool leftHanded READ leftHanded NOTIFY handChanged)
    Q_PROPERTY(QVariantList stringXs READ stringXs NOTIFY handChanged)

public:
    // How long a string stays lit once heard: for the eye only, sound
    // timing does not depend on it.
    static constexpr double kLightSeconds = 0.3;
    // How often the lights look at what is heard while any is lit or due.
    static constexpr int kLightRefreshMs = 16;

    // Plays through output (the application's plays on the sound card),
    // which must outlive the screen.
    explicit ChordsLibrary(ChordOutput& output, QObject* parent = nullptr);
    ~ChordsLibrary() override;

    void setDelegate(ChordsLibraryDelegate* delegate) { delegate_ = delegate; }
    ChordsLibraryDelegate* delegate() const { return delegate_; }

    QStringList rootTitles() const;
    QStringList typeTitles() const;
    int pickerComponent0Row() const { return state_.choice.rootRow; }
    int pickerComponent1Row() const { return state_.choice.typeRow; }
    bool pickerVisible() const { return pickerVisible_; }
    QString chordName() const { return QString::fromStdString(state_.choice.label()); }
    QString bassText() const;
    QString tuningName() const { return tuningName_; }
    int variationCount() const { return set_->count; }
    int currentVariationsIndex() const { return state_.currentVariationsIndex; }
    QString variationText() const;
    QString emptyNote() const;
    QString chordNotes() const { return QString::fromStdString(state_.choice.tones().notesText()); }
    QString chordFormula() const {
        return QString::fromStdString(state_.choice.tones().formulaText());
    }
    ChordsFinder* finder() { return &finder_; }
    const NeckPicture& neck() const { return finder_.active() ? finder_.picture() : neck_; }
    QVariantList neckStrings() const { return neck().strings; }
    QVariantList neckBarres() const { return neck().barres; }
    int neckFirstFret() const { return neck().firstFret; }
    QVariantList diagrams() const { return diagrams_; }
    qreal upperArrowAlpha() const { return arrows_.upper; }
    qreal lowerArrowAlpha() const { return arrows_.lower; }
    bool flag() const { return state_.notes; }
    QString notesTitle() const { return QStringLiteral(" Notes "); }
    QString fingersTitle() const { return QStringLiteral("Fingers"); }
    QVariantList litStrings() const;
    bool isLit(int stringNumber) const;
    bool leftHanded() const { return touch_.leftHanded(); }
    QVariantList stringXs() const;
    // The string a tap at x (TouchView's points) lands on, 0 for none.
    Q_INVOKABLE int stringAt(qreal x) const;
    void setLeftHanded(bool on);
    // Whether the lights are still following the sound.
    bool lightsFollowing() const { return lightTimer_.isActive(); }
    int capo() const { return capo_; }
    QString capoLabel() const;
    QString shapeText() const;

    // The chord's names and state, for the settings screen and tests.
    const ChordChoice& choice() const { return state_.choice; }
    const VariationSet& variations() const { return *set_; }
    const StringNotes& currentNotes() const { return notes_; }
    bool isLocked(int stringNumber) const { return touch_.isLocked(stringNumber); }

    // A row chosen on a wheel (component 0 the root, 1 the type): the chord
    // of both wheels is shown from its first fingering and plays 0.25 s
    // later. A row outside its wheel changes nothing.
    Q_INVOKABLE void selectRow(int row, int component);
    // A diagram of the strip touched: its fingering is shown and played.
    Q_INVOKABLE void showVariation(int index);
    Q_INVOKABLE void togglePicker();
    Q_INVOKABLE void hidePicker();
    Q_INVOKABLE void openSettings();

    // Touches on the strings, x in points across the strings view (see
    // TouchView). A touch beginning there hides the picker.
    Q_INVOKABLE void touchBegan();
    Q_INVOKABLE void touchMoved(qreal x, int touchCount);

    // The strip scrolled (or was refilled): y its offset, contentHeight the
    // height of all its diagrams, viewHeight what it shows at once.
    Q_INVOKABLE void setStateForArrowButtons(qreal y, qreal contentHeight, qreal viewHeight);
    // Where an arrow scrolls the strip: a page up (direction < 0) or down,
    // itemHeight being one diagram's.
    Q_INVOKABLE qreal stripPageTarget(int direction, qreal y, qreal contentHeight, qreal viewHeight,
                                      qreal itemHeight) const;

    void setShowNotes(bool notes);
    // The capo moved (the settings page): the chord is shown again from its
    // first fingering under it. A fret the tuning cannot take changes nothing.
    void setCapo(int fret);

    // Plays the fingering shown, whole, after delaySeconds (the play button).
    Q_INVOKABLE void playCurrentChord(double delaySeconds = 0.0);
    // Space, Enter and Return play the chord; the letters A to G turn the
    // root wheel (see rowForLetter).
    bool keyPressed(int key) override;
    // Lights the strings heard now and puts out the others; run by a timer
    // while anything is lit or still to be heard.
    void updateLights();

    void viewWillAppear() override;
    void viewDidDisappear() override;

    // Called by the mediator.
    void setChordsForPicker(const std::vector<std::string>& roots,
                            const std::vector<std::string>& types);
    void setSavedData(const Dictionary& data);
    // The tuning changed: the chord is shown again from its first fingering.
    void tuningChanged();
    void saveCurrentState();

signals:
    void pickerChanged();
    void chordChanged();
    void variationChanged();
    void pickerVisibleChanged();
    void tuningNameChanged();
    void arrowsChanged();
    void flagChanged();
    void lockedChanged();
    void litChanged();
    void capoChanged();
    void handChanged();

private:
    bool canSound() const;
    // Fetches the chord's fingerings and shows the one at the index.
    void reload();
    void drawDiagrams();
    // Shows the fingering at the index (bounded by the count).
    void paint();
    void updateTuningName();
    // The saved capo, given to the delegate before the chord is fetched.
    void restoreCapo(const Dictionary& data);
    void startReleaseTimer();
    // Something was asked of the output: the lights follow it.
    void followSound();

    ChordsLibraryDelegate* delegate_ = nullptr;
    ChordOutput& output_;
    std::vector<std::string> roots_;
    std::vector<std::string> types_;
    ChordsState state_;
    TouchView touch_;
    std::unique_ptr<VariationSet> set_;
    StringNotes notes_;
    NeckPicture neck_;
    ChordsFinder finder_;
    QVariantList diagrams_;
    StripArrows arrows_;
    QString tuningName_;
    int capo_ = 0;
    bool pickerVisible_ = false;
    // Lets the output release the sound card once the strings are silent.
    QTimer releaseTimer_;
    std::array<bool, kStringCount> lit_{};
    QTimer lightTimer_;
};

}  // namespace zt
