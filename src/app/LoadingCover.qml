import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// Lies over everything while the sound bank loads and swallows every touch.
Rectangle {
    id: cover
    objectName: "loadingCover"
    gradient: Gradient {
        GradientStop { position: 0.0; color: "#262626" }
        GradientStop { position: 1.0; color: "#050505" }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onWheel: (wheel) => wheel.accepted = true
    }

    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 70
        text: "ZebTools"
        color: Theme.accent
        font.pixelSize: 34
        font.bold: true
    }

    Text {
        x: (parent.width - 320) / 2
        y: 140
        width: 320
        height: 20
        horizontalAlignment: Text.AlignHCenter
        text: "Loading sounds..."
        color: "white"
        font.pixelSize: 15
    }

    BusyIndicator {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 180
        running: cover.visible
    }
}
