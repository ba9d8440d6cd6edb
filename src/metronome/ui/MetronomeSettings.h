#pragma once
// The metronome settings screen: a table of three sections.
//   0  "First Beat Emphasis" with an on/off switch.
//   1  "Sound Pack": rows 1 to 5 are the packs, the selected one marked.
//   2  "Custom Presets": row 0 "Add new preset", rows 1 to n the presets by
//      name, the one matching the metronome's current settings marked.
// It acts directly on the metronome it is given; the presets come through
// its delegate (the mediator). The mark follows the settings, not the last
// touch: whenever the metronome's state code equals a preset's, that preset
// is marked. A preset can be renamed, updated to the current settings and
// deleted; a delete or an update can be taken back for a few seconds. The QML view
// (MetronomeSettingsView.qml) only draws these properties and forwards touches to the invokables.

#include <QtQml/qqmlregistration.h>

#include <QString>
#include <QStringList>
#include <QTimer>
#include <chrono>

#include "framework/Value.h"
#include "metronome/ui/PracticeSettings.h"
#include "metronome/ui/PresetListModel.h"
#include "screen/Screen.h"

namespace zt {

class MetronomeControls;
class MetronomeSettingsDelegate;

class MetronomeSettings : public zt::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QString accentTitle READ accentTitle CONSTANT)
    Q_PROPERTY(QString packHeader READ packHeader CONSTANT)
    Q_PROPERTY(QString presetsHeader READ presetsHeader CONSTANT)
    Q_PROPERTY(QString addPresetTitle READ addPresetTitle CONSTANT)
    Q_PROPERTY(QString presetPlaceholder READ presetPlaceholder CONSTANT)
    Q_PROPERTY(QString cancelText READ cancelText CONSTANT)
    Q_PROPERTY(QString saveText READ saveText CONSTANT)
    Q_PROPERTY(QString okText READ okText CONSTANT)
    Q_PROPERTY(QString deleteText READ deleteText CONSTANT)
    Q_PROPERTY(QString renameText READ renameText CONSTANT)
    Q_PROPERTY(QString updateText READ updateText CONSTANT)
    Q_PROPERTY(QString undoText READ undoText CONSTANT)
    Q_PROPERTY(QStringList packNames READ packNames CONSTANT)

    Q_PROPERTY(bool firstBeatEmphasis READ firstBeatEmphasis NOTIFY reloaded)
    // 1 to 5.
    Q_PROPERTY(int packNumber READ packNumber NOTIFY reloaded)
    // Preset k (1 to n) is row k - 1.
    Q_PROPERTY(zt::PresetListModel* presets READ presets CONSTANT)
    // The marked preset, 0 when none.
    Q_PROPERTY(int presetNumber READ presetNumber NOTIFY reloaded)
    // The speed trainer and muted bars.
    Q_PROPERTY(zt::PracticeSettings* practice READ practice CONSTANT)

    // The add-preset dialog: whether it shows, its text field, whether the
    // field holds the keyboard, and the message shown over it ("" for none).
    Q_PROPERTY(bool addDialogOpen READ addDialogOpen NOTIFY dialogChanged)
    Q_PROPERTY(QString presetTitle READ presetTitle WRITE setPresetTitle NOTIFY dialogChanged)
    Q_PROPERTY(bool fieldFocused READ fieldFocused NOTIFY dialogChanged)
    Q_PROPERTY(QString message READ message NOTIFY dialogChanged)
    // The dialog's title: "Add new preset", or the rename title.
    Q_PROPERTY(QString dialogTitle READ dialogTitle NOTIFY dialogChanged)
    // The preset being renamed (1 to n), 0 when the dialog adds one.
    Q_PROPERTY(int renamingRow READ renamingRow NOTIFY dialogChanged)

    // What the last delete or update did ("" when nothing can be taken back).
    Q_PROPERTY(QString undoMessage READ undoMessage NOTIFY undoChanged)

public:
    explicit MetronomeSettings(MetronomeControls* metronome, QObject* parent = nullptr);

    void setDelegate(MetronomeSettingsDelegate* delegate) {
        delegate_ = delegate;
        presets_.setDelegate(delegate);
    }
    MetronomeSettingsDelegate* delegate() const { return delegate_; }
    MetronomeControls* metronome() const { return metronome_; }
    PracticeSettings* practice() const { return practice_; }

    QString accentTitle() const { return QStringLiteral("First Beat Emphasis"); }
    QString packHeader() const { return QStringLiteral("Sound Pack"); }
    QString presetsHeader() const { return QStringLiteral("Custom Presets"); }
    QString addPresetTitle() const { return QStringLiteral("Add new preset"); }
    QString presetPlaceholder() const { return QStringLiteral("Preset title"); }
    QString cancelText() const { return QStringLiteral("Cancel"); }
    QString saveText() const { return QStringLiteral("Save"); }
    QString okText() const { return QStringLiteral("OK"); }
    QString deleteText() const { return QStringLiteral("Delete"); }
    QString renameText() const { return QStringLiteral("Rename"); }
    QString updateText() const { return QStringLiteral("Update to current settings"); }
    QString undoText() const { return QStringLiteral("Undo"); }
    QStringList packNames() const { return arrayPack_; }

    bool firstBeatEmphasis() const { return switcherFBValue_; }
    int packNumber() const { return packNumber_; }
    PresetListModel* presets() { return &presets_; }
    int presetNumber() const { return presetNumber_; }

    bool addDialogOpen() const { return dialogOpen_; }
    QString presetTitle() const { return nameField_; }
    void setPresetTitle(const QString& title);
    bool fieldFocused() const { return fieldFocused_; }
    QString message() const { return message_; }
    QString dialogTitle() const;
    int renamingRow() const { return renamingRow_; }
    QString undoMessage() const { return undoMessage_; }
    // How long a delete or an update can be taken back.
    void setUndoWindow(std::chrono::milliseconds window) { undoTimer_.setInterval(window); }

    // Takes the switch, the pack and the mark from the metronome.
    void viewWillAppear() override;
    // Saves the metronome's settings, so changes made here are kept.
    void viewWillDisappear() override;

    // Flips the first-beat accent; a running metronome accents from its next bar.
    Q_INVOKABLE void toggleAccent();
    // Row 1 to 5 of the pack section. The next click uses the pack; a
    // stopped metronome plays one tick of it as a sample.
    Q_INVOKABLE void choosePack(int row);
    // Row 1 to n of the presets section: applies that preset.
    Q_INVOKABLE void choosePreset(int row);
    // Row 1 to n of the presets section: removes that preset, asking
    // nothing; undo() puts it back.
    Q_INVOKABLE void deletePreset(int row);
    // Row 1 to n: the preset takes the metronome's current settings and
    // keeps its name; undo() gives it its former ones.
    Q_INVOKABLE void updatePreset(int row);
    // Takes back the last delete or update while its message shows.
    Q_INVOKABLE void undo();
    // Lets the last delete or update stand (the message goes).
    Q_INVOKABLE void dismissUndo();
    // Row 1 to n: the dialog, its field holding the preset's name; "Save"
    // renames it under the same rules as a new title.
    Q_INVOKABLE void renamePresetRequested(int row);

    // "Add new preset": an empty field with the keyboard.
    Q_INVOKABLE void addPresetRequested();
    // "Save" (or return in the field) with the field's text. Control
    // characters and text that is not UTF-8 (a pasted name) are dropped and
    // white space at either end is trimmed; a title with nothing printable
    // counts as empty.
    Q_INVOKABLE void savePreset(const QString& title);
    Q_INVOKABLE void cancelAddPreset();
    // "OK" on a message: back to the field, which keeps its text after a
    // duplicate name and is emptied after an empty one.
    Q_INVOKABLE void acknowledgeMessage();

signals:
    void reloaded();
    void dialogChanged();
    void undoChanged();
    // Preset row (1 to n) to scroll into view at the bottom.
    void scrollToPreset(int row);

private:
    int presetsCount() const;
    void updatePresetNumber();
    void reload();
    void closeDialog();
    // The title the dialog may save, or a message for the user.
    bool acceptTitle(const std::string& name);
    void addPreset(const std::string& name);
    void renamePreset(const std::string& name);
    // A delete (index to put back at) or an update of preset row, with the
    // preset as it was.
    void offerUndo(bool deleted, int row, const Dictionary& previous, const QString& message);

    MetronomeSettingsDelegate* delegate_ = nullptr;
    MetronomeControls* metronome_ = nullptr;
    QStringList arrayPack_;
    PresetListModel presets_;
    PracticeSettings* practice_;
    bool switcherFBValue_ = true;
    bool dialogOpen_ = false;
    QString nameField_;
    bool fieldFocused_ = false;
    QString message_;
    bool clearFieldAfterMessage_ = false;
    int packNumber_ = 1;
    int presetNumber_ = 0;
    int renamingRow_ = 0;

    QTimer undoTimer_;
    QString undoMessage_;
    bool undoDeleted_ = false;
    int undoRow_ = 0;
    Dictionary undoPreset_;
};

}  // namespace zt
