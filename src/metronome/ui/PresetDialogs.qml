// The preset dialog, adding a preset or renaming one (a title field with
// "Cancel" and "Save"; Return or Enter saves, Escape cancels) and the message
// that answers an empty or taken title (Return, Enter or Escape is its "OK").
// What shows, the field's text and its keyboard all follow the
// MetronomeSettings object; the buttons are forwarded to it.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import ZebTools

Item {
    id: dialogs

    required property MetronomeSettings screen

    // Dialogs are drawn in the window's overlay, outside the scaled design
    // space, so they take this item's on-screen scale themselves. It changes
    // with the window's size.
    readonly property real sceneScale: {
        void [Window.window, Window.width, Window.height, width];
        const origin = mapToItem(null, 0, 0);
        return Math.max(0.1, (mapToItem(null, 100, 0).x - origin.x) / 100);
    }

    // Buttons of the dialogs: flat accent text, the default one bold.
    component DialogButton: Button {
        id: dialogButton

        property bool isDefault: false

        flat: true
        implicitHeight: 44
        contentItem: Text {
            text: dialogButton.text
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: Theme.accent
            font.pixelSize: 16
            font.bold: dialogButton.isDefault
        }
        background: Rectangle {
            color: dialogButton.down ? Theme.panelLight : "transparent"
        }
    }

    component AlertBackground: Rectangle {
        radius: 14
        color: Theme.panel
        border.color: Theme.separator
    }

    Dialog {
        id: addDialog

        objectName: "addPresetDialog"
        modal: true
        focus: true
        // A message replaces the dialog until its "OK".
        visible: dialogs.screen.addDialogOpen && dialogs.screen.message === ""
        closePolicy: Popup.CloseOnEscape
        x: (dialogs.width - width) / 2
        y: 40
        scale: dialogs.sceneScale
        transformOrigin: Item.TopLeft
        width: 270
        padding: 16
        topPadding: 18
        onOpened: {
            if (dialogs.screen.fieldFocused)
                nameField.forceActiveFocus()
        }
        onClosed: {
            if (dialogs.screen.addDialogOpen && dialogs.screen.message === "")
                dialogs.screen.cancelAddPreset()
        }

        background: AlertBackground {}
        T.Overlay.modal: Rectangle { color: "#99000000" }

        header: Text {
            topPadding: 18
            horizontalAlignment: Text.AlignHCenter
            text: dialogs.screen.dialogTitle
            color: Theme.text
            font.pixelSize: 17
            font.bold: true
        }

        TextField {
            id: nameField

            objectName: "presetTitleField"
            width: parent.width
            implicitHeight: 36
            text: dialogs.screen.presetTitle
            placeholderText: dialogs.screen.presetPlaceholder
            placeholderTextColor: Theme.textDim
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.background
            font.pixelSize: 15
            leftPadding: 10
            rightPadding: 10
            onTextEdited: dialogs.screen.presetTitle = text
            Keys.onEnterPressed: dialogs.screen.savePreset(text)
            Keys.onReturnPressed: dialogs.screen.savePreset(text)
            background: Rectangle {
                radius: 7
                color: Theme.background
                border.color: nameField.activeFocus ? Theme.accent : Theme.separator
            }
        }

        footer: Item {
            implicitHeight: 45

            Rectangle {
                width: parent.width
                height: 1
                color: Theme.separator
            }
            Rectangle {
                x: parent.width / 2
                y: 1
                width: 1
                height: parent.height - 1
                color: Theme.separator
            }
            DialogButton {
                objectName: "cancelButton"
                y: 1
                width: parent.width / 2
                text: dialogs.screen.cancelText
                onClicked: dialogs.screen.cancelAddPreset()
            }
            DialogButton {
                objectName: "saveButton"
                x: parent.width / 2 + 1
                y: 1
                width: parent.width / 2 - 1
                text: dialogs.screen.saveText
                isDefault: true
                onClicked: dialogs.screen.savePreset(nameField.text)
            }
        }
    }

    Dialog {
        id: messageDialog

        objectName: "presetMessageDialog"
        modal: true
        focus: true
        visible: dialogs.screen.message !== ""
        closePolicy: Popup.CloseOnEscape
        x: (dialogs.width - width) / 2
        y: 70
        scale: dialogs.sceneScale
        transformOrigin: Item.TopLeft
        width: 250
        padding: 18
        onClosed: {
            dialogs.screen.acknowledgeMessage()
            if (dialogs.screen.fieldFocused)
                nameField.forceActiveFocus()
        }

        background: AlertBackground {}
        T.Overlay.modal: Rectangle { color: "#99000000" }

        Text {
            objectName: "presetMessage"
            // Holds the keys while the message shows: Return and Enter are "OK".
            focus: true
            Keys.onEnterPressed: dialogs.screen.acknowledgeMessage()
            Keys.onReturnPressed: dialogs.screen.acknowledgeMessage()
            width: parent.width
            text: dialogs.screen.message
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            color: Theme.text
            font.pixelSize: 15
        }

        footer: Item {
            implicitHeight: 45

            Rectangle {
                width: parent.width
                height: 1
                color: Theme.separator
            }
            DialogButton {
                objectName: "okButton"
                y: 1
                width: parent.width
                text: dialogs.screen.okText
                isDefault: true
                onClicked: dialogs.screen.acknowledgeMessage()
            }
        }
    }

    // The keyboard (focus) follows the screen: the field takes it when the
    // dialog opens and again after a message's "OK".
    Connections {
        target: dialogs.screen

        function onDialogChanged() {
            if (!dialogs.screen.fieldFocused)
                nameField.focus = false
            else if (addDialog.opened && !messageDialog.visible)
                nameField.forceActiveFocus()
        }
    }
}
