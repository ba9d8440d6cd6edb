#pragma once
// A tool's settings page: one list of three rows.
//   0  the title "Settings"
//   1  the tool's one switch (the by-ear tuner's "Loop", the chords
//      library's "Show notes"); the tool follows at once
//   2  "Tunings", with the current tuning's name: opens the tunings list
// and, for a tool that plays a capo, a row that steps the capo's fret
// ("Capo", "none" or "3rd fret"), which the tool follows and which is saved
// at once; and, apart from the list, the "Left-handed" switch that all the
// tools share: flipped on either tool's page, it is on in the other's too.
// What differs between tools (the switch's title, where its value lives,
// the key it is saved under and when) is given at construction; the saved
// section and the way to the tunings list are the mediator's. The QML view
// (ToolSettingsView.qml) only draws these properties and forwards touches.

#include <QtQml/qqmlregistration.h>

#include <QPointer>
#include <QString>
#include <functional>
#include <string>
#include <utility>

#include "screen/Screen.h"

namespace zt {

class ToolSettingsDelegate;

class ToolSettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QString titleRow READ titleRow CONSTANT)
    Q_PROPERTY(QString switchTitle READ switchTitle CONSTANT)
    Q_PROPERTY(QString switchName READ switchName CONSTANT)
    Q_PROPERTY(QString tuningsTitle READ tuningsTitle CONSTANT)
    Q_PROPERTY(bool isOn READ isOn NOTIFY isOnChanged)
    Q_PROPERTY(QString nameOfTuning READ nameOfTuning NOTIFY nameOfTuningChanged)
    // The capo row: shown for a tool that has one; its fret and its value
    // as the row says it ("none", "3rd fret").
    Q_PROPERTY(bool hasCapo READ hasCapo CONSTANT)
    Q_PROPERTY(QString capoTitle READ capoTitle CONSTANT)
    Q_PROPERTY(int capo READ capo NOTIFY capoChanged)
    Q_PROPERTY(QString capoText READ capoText NOTIFY capoChanged)
    Q_PROPERTY(QString leftHandedTitle READ leftHandedTitle CONSTANT)
    Q_PROPERTY(bool leftHanded READ leftHanded NOTIFY leftHandedChanged)

public:
    // When the switch's value is saved: as it flips, or as the page goes.
    enum class SaveMoment { Flipped, Left };

    struct Switch {
        QString title;
        // Names the row ("<name>Row") and the switch ("<name>Switch") in
        // the view.
        QString name;
        // The key of the tool's saved section.
        std::string key;
        SaveMoment saved;
        // The value as the tool holds it, and the tool told of a new one.
        // Both are called only while the tool lives.
        std::function<bool()> read;
        std::function<void(bool)> write;
    };

    // A switch over a boolean of the tool's screen, through its getter and
    // setter, while that screen lives.
    template <class Tool>
    static Switch switchOver(Tool* tool, bool (Tool::*get)() const, void (Tool::*set)(bool),
                             QString title, QString name, std::string key, SaveMoment saved) {
        QPointer<Tool> held(tool);
        return {std::move(title),
                std::move(name),
                std::move(key),
                saved,
                [held, get] { return held && (held.data()->*get)(); },
                [held, set](bool on) {
                    if (held)
                        (held.data()->*set)(on);
                }};
    }

    // A capo fret held by the tool: the key it is saved under in the tool's
    // section, its getter and its setter (called only while the tool lives).
    struct Capo {
        std::string key;
        std::function<int()> read;
        std::function<void(int)> write;
    };
    template <class Tool>
    static Capo capoOver(Tool* tool, int (Tool::*get)() const, void (Tool::*set)(int),
                         std::string key) {
        QPointer<Tool> held(tool);
        return {std::move(key), [held, get] { return held ? (held.data()->*get)() : 0; },
                [held, set](int fret) {
                    if (held)
                        (held.data()->*set)(fret);
                }};
    }

    explicit ToolSettings(Switch toolSwitch, QObject* parent = nullptr);
    ToolSettings(Switch toolSwitch, Capo capo, QObject* parent = nullptr);

    void setDelegate(ToolSettingsDelegate* delegate) { delegate_ = delegate; }
    ToolSettingsDelegate* delegate() const { return delegate_; }

    QString titleRow() const { return QStringLiteral("Settings"); }
    QString switchTitle() const { return switch_.title; }
    QString switchName() const { return switch_.name; }
    QString tuningsTitle() const { return QStringLiteral("Tunings"); }
    bool isOn() const { return isOn_; }
    QString nameOfTuning() const { return nameOfTuning_; }
    bool hasCapo() const { return static_cast<bool>(capo_.read); }
    QString capoTitle() const { return QStringLiteral("Capo"); }
    int capo() const { return capoFret_; }
    QString capoText() const;

    // The switch changed: the value flips, in the tool too.
    Q_INVOKABLE void switcherAction();
    // A row touched: only row 2 leads anywhere (the tunings list).
    Q_INVOKABLE void selectRow(int row);
    // The capo moved by `frets` (the row's - and +, the wheel, the keys),
    // kept between no capo and the 12th fret; the tool follows and the new
    // fret is saved.
    Q_INVOKABLE void stepCapo(int frets);

    QString leftHandedTitle() const { return QStringLiteral("Left-handed"); }
    bool leftHanded() const { return leftHanded_; }
    // The shared switch changed: flips it for every tool.
    Q_INVOKABLE void flipLeftHanded();
    // The shared value as it is now (the mediator tells each page).
    void showLeftHanded(bool on);

    // Takes the values from the tool and the tuning's name afresh.
    void viewWillAppear() override;
    void viewWillDisappear() override;

    // Sends {key: isOn} to the delegate.
    void currentSave();

signals:
    void isOnChanged();
    void nameOfTuningChanged();
    void capoChanged();
    void leftHandedChanged();

private:
    void readValue();
    void readCapo();

    Switch switch_;
    Capo capo_;
    int capoFret_ = 0;
    ToolSettingsDelegate* delegate_ = nullptr;
    bool isOn_ = false;
    QString nameOfTuning_;
    bool leftHanded_ = false;
};

}  // namespace zt
