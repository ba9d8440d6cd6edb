import QtQuick
import ZebTools

// The "Microphone Required" alert over a calibration screen: a dimmed cover
// that keeps touches off the screen, the message, and "Ok".
Rectangle {
    id: alert

    property string title
    property string message
    signal dismissed

    anchors.fill: parent
    color: "#99000000"

    MouseArea {
        anchors.fill: parent
    }

    RoundedBox {
        anchors.centerIn: parent
        width: Math.min(parent.width - 40, 300)
        height: body.height + 45
        radius: 14
        color: Theme.panel
        border.color: Theme.separator

        Column {
            id: body

            width: parent.width
            topPadding: 16
            bottomPadding: 16
            spacing: 8

            Text {
                width: parent.width
                text: alert.title
                horizontalAlignment: Text.AlignHCenter
                color: Theme.text
                font.bold: true
                font.pixelSize: 17
            }
            Text {
                objectName: "alertMessage"
                x: 16
                width: parent.width - 32
                text: alert.message
                wrapMode: Text.WordWrap
                horizontalAlignment: Text.AlignHCenter
                color: Theme.text
                font.pixelSize: 13
            }
        }
        Rectangle {
            y: body.height
            width: parent.width
            height: 1
            color: Theme.separator
        }
        Text {
            objectName: "alertOk"
            y: body.height + 1
            width: parent.width
            height: 44
            text: "Ok"
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            color: Theme.accent
            font.bold: true
            font.pixelSize: 16

            TapHandler {
                onTapped: alert.dismissed()
            }
        }
    }
}
