import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import ZebTools

// The "Microphone Required" alert: modal, centred in the window whatever
// the size of the view that puts it up, with the message and one button.
// It stays up until the button is touched, or Return, Enter or Escape is
// pressed: the button holds the keyboard while the alert is up, ringed as
// the default answer, so a keyboard user sees what a key will do. Space,
// which the tools take for their own (the metronome's start, the pitch
// pipe), is not an answer: a stray one must not send the user to another
// tool. `dismissed` tells the screen.
Dialog {
    id: alert

    property bool shown: false
    property string message
    property string button: "Ok"

    signal dismissed

    objectName: "microphoneAlert"
    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(300, parent.width - 20)
    padding: 16
    modal: true
    closePolicy: Popup.NoAutoClose
    focus: true
    visible: alert.shown
    background: Rectangle {
        color: Theme.panel
        radius: Theme.cardRadius
        border.color: Theme.separator
    }
    T.Overlay.modal: Rectangle {
        color: "#99000000"
    }
    header: Text {
        text: alert.title
        color: Theme.text
        font.pixelSize: 17
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
        topPadding: 16
    }
    onOpened: okButton.forceActiveFocus(Qt.TabFocusReason)
    contentItem: Text {
        objectName: "alertMessage"
        text: alert.message
        color: Theme.text
        font.pixelSize: 14
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignHCenter
    }
    footer: Button {
        id: okButton

        objectName: "alertOk"
        text: alert.button
        flat: true
        focusPolicy: Qt.TabFocus
        Accessible.name: text
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter
                    || event.key === Qt.Key_Escape) {
                event.accepted = true
                alert.dismissed()
            } else if (event.key === Qt.Key_Space) {
                event.accepted = true
            }
        }
        onClicked: alert.dismissed()
        contentItem: Text {
            text: okButton.text
            color: Theme.accent
            font.pixelSize: 17
            font.bold: true
            horizontalAlignment: Text.AlignHCenter
            topPadding: 10
            bottomPadding: 12
        }
        background: Item {}

        FocusRing {}
    }
}
