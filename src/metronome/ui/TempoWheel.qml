pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The tempo wheel between minus and plus. A taller wheel shows more rows.
// It also turns by the mouse wheel, the arrow and page keys and a click on
// a row (StepTumbler); each such step is a row chosen.
Item {
    id: row

    required property Metronome screen

    CircleButton {
        objectName: "minusButton"
        anchors.verticalCenter: parent.verticalCenter
        x: 12
        width: 60
        height: 60
        text: "\u2212"
        onClicked: row.screen.minus()
        autoRepeat: true
    }

    RoundedBox {
        anchors.fill: wheel
        radius: 12
        color: Theme.panel
        border.color: Theme.separator
    }
    RoundedBox {
        anchors.horizontalCenter: wheel.horizontalCenter
        anchors.verticalCenter: wheel.verticalCenter
        width: wheel.width - 8
        height: 28
        radius: 6
        color: Theme.panelLight
        border.color: Theme.accent
    }

    StepTumbler {
        id: wheel
        objectName: "tempoWheel"
        anchors.centerIn: parent
        width: 110
        height: parent.height
        wrap: false
        // Rows about 24 units tall, an odd number so one sits in the middle.
        visibleItemCount: Math.max(3, 2 * Math.floor(height / 48) + 1)
        onChosen: index => row.screen.selectRow(index)
        Accessible.name: "Tempo"
        model: row.screen.wheelLabels
        currentIndex: row.screen.row

        onCurrentIndexChanged: if (moving) row.screen.showWheelRow(currentIndex)
        onMovingChanged: {
            if (!moving && currentIndex !== row.screen.row)
                row.screen.selectRow(currentIndex)
        }
        Connections {
            target: row.screen
            function onRowChanged() {
                if (wheel.moving)
                    return
                // Straight to the row, as the digits do, without scrolling
                // through every row between.
                wheel.currentIndex = row.screen.row
                wheel.positionViewAtIndex(row.screen.row, Tumbler.Center)
            }
        }

        delegate: Text {
            id: tempoRow

            required property string modelData
            required property int index
            readonly property real distance: Math.abs(Tumbler.displacement)
            text: modelData
            color: distance < 0.5 ? Theme.text : Theme.textDim
            opacity: 1.0 - Math.min(distance, 2.5) / 3.2
            font.bold: distance < 0.5
            font.pixelSize: distance < 0.5 ? 20 : 16
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter

            TapHandler {
                onTapped: {
                    wheel.forceActiveFocus(Qt.MouseFocusReason)
                    wheel.stepBy(tempoRow.index - wheel.currentIndex)
                }
            }
        }
    }

    CircleButton {
        objectName: "plusButton"
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 12
        width: 60
        height: 60
        text: "+"
        onClicked: row.screen.plus()
        autoRepeat: true
    }
}
