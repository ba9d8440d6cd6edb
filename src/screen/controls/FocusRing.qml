import QtQuick
import QtQuick.Templates as T
import ZebTools

// The ring around a control that has the keyboard because the user moved
// there with Tab (a click does not draw it). Put inside the control; an
// item that is not a control says itself when it is `shown`.
Rectangle {
    id: ring

    // The control it rings; its parent unless told otherwise.
    property T.Control control: parent as T.Control

    anchors.fill: parent
    anchors.margins: -2
    radius: 8
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
    property bool shown: control !== null && control.visualFocus

    visible: shown
    z: 10
}
