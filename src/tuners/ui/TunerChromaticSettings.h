#pragma once
// The chromatic tuner's settings: a table of seven rows.
//   0      the header
//   1, 2   "Linear scale" and "All notes", each with a switch
//   3 - 6  "Tunings", "Tapering functions", "Microphone sensitivity",
//          "Orchestra tuning": each opens its screen
// Each entry shows its current value beside its name: the tuning's name,
// the window's name, the sensitivity in percent and the concert pitch
// ("A4 = 443.0 Hz"), read again each time the screen appears so that a
// change made on the entry's own screen shows on coming back.
// Below them, our own: "Classic detection" (the overtone detector instead of
// the fine one) and, when there is more than one capture device, the choice
// of the input device; and the display: the needle or the strobe band, and
// the pitch history. Every switch and choice is saved at once; the tuner
// takes them up the next time it is shown. The QML view
// (TunerChromaticSettingsView.qml) only draws this and forwards touches.

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "framework/Value.h"
#include "screen/Screen.h"

namespace zt {

class TunerChromaticSettingsDelegate;

class TunerChromaticSettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QStringList settingsNames READ settingsNames CONSTANT)
    Q_PROPERTY(bool linearScale READ linearScale NOTIFY changed)
    Q_PROPERTY(bool allNotes READ allNotes NOTIFY changed)
    Q_PROPERTY(bool classicDetection READ classicDetection NOTIFY changed)
    Q_PROPERTY(bool strobeView READ strobeView NOTIFY changed)
    Q_PROPERTY(bool pitchHistory READ pitchHistory NOTIFY changed)
    Q_PROPERTY(QString tuningName READ tuningName NOTIFY changed)
    Q_PROPERTY(QString taperName READ taperName NOTIFY changed)
    Q_PROPERTY(QString sensitivityText READ sensitivityText NOTIFY changed)
    Q_PROPERTY(QString referenceText READ referenceText NOTIFY changed)
    // The value beside each of settingsNames, in the same order.
    Q_PROPERTY(QStringList entryValues READ entryValues NOTIFY changed)
    // "System default" first, then each capture device; shown only when
    // there is more than one device.
    Q_PROPERTY(QStringList inputChoices READ inputChoices NOTIFY changed)
    Q_PROPERTY(int inputChoice READ inputChoice NOTIFY changed)
    Q_PROPERTY(bool offersInputChoice READ offersInputChoice NOTIFY changed)

public:
    explicit TunerChromaticSettings(QObject* parent = nullptr);

    void setDelegate(TunerChromaticSettingsDelegate* delegate) { delegate_ = delegate; }
    TunerChromaticSettingsDelegate* delegate() const { return delegate_; }

    QStringList settingsNames() const { return settingsNameArray_; }
    bool linearScale() const { return linearScale_; }
    bool allNotes() const { return allNotes_; }
    bool classicDetection() const { return classic_; }
    bool strobeView() const { return strobeView_; }
    bool pitchHistory() const { return pitchHistory_; }
    QString tuningName() const { return tuningName_; }
    QString taperName() const { return taperName_; }
    QString sensitivityText() const { return sensitivityText_; }
    QString referenceText() const { return referenceText_; }
    QStringList entryValues() const {
        return {tuningName_, taperName_, sensitivityText_, referenceText_};
    }
    QStringList inputChoices() const;
    int inputChoice() const;
    bool offersInputChoice() const { return devices_.size() > 1; }
    // The saved device name; empty for the system's default.
    const std::string& inputDevice() const { return device_; }

    // "LinearScale" and "AllNotes" from the saved section.
    void setSavedData(const Dictionary& data);
    // The whole saved section (the entries' values and our own keys
    // "ClassicDetection", "InputDevice", "StrobeView", "PitchHistory") and
    // the devices there are.
    void setSectionData(const Dictionary& data, std::vector<std::string> devices);

    Q_INVOKABLE int rowCount() const { return static_cast<int>(settingsNameArray_.size()) + 3; }
    // Rows 3 to 6 open their screens; rows 0 to 2 do nothing.
    Q_INVOKABLE void selectRow(int row);
    Q_INVOKABLE void switcherLSAction();
    Q_INVOKABLE void switcherANAction();
    Q_INVOKABLE void toggleClassicDetection();
    // The needle (false) or the strobe band (true).
    Q_INVOKABLE void chooseStrobeView(bool strobe);
    Q_INVOKABLE void togglePitchHistory();
    // 0 is the system's default, k the k-th device of the list.
    Q_INVOKABLE void chooseInput(int choice);

    void viewWillAppear() override;

    // Saves {"AllNotes", "LinearScale"}.
    void currentSave();

signals:
    void changed();

private:
    TunerChromaticSettingsDelegate* delegate_ = nullptr;
    QStringList settingsNameArray_;
    bool linearScale_ = false;
    bool allNotes_ = false;
    bool classic_ = false;
    bool strobeView_ = false;
    bool pitchHistory_ = false;
    QString tuningName_;
    QString taperName_;
    QString sensitivityText_;
    QString referenceText_;
    std::string device_;
    std::vector<std::string> devices_;
};

}  // namespace zt
