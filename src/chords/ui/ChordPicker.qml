pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The two wheels: the root on the left, the chord type on the right. A row
// settled on after turning a wheel is the user's choice; the wheels follow
// the screen when the chord changes otherwise (saved state).
Rectangle {
    id: picker

    required property ChordsLibrary screen

    radius: Theme.cardRadius
    color: Theme.panel
    border.color: Theme.separator

    component Wheel: Tumbler {
        id: wheel

        required property int wheelIndex
        required property int row

        focusPolicy: Qt.NoFocus
        wrap: true
        visibleItemCount: Math.max(5, 2 * Math.floor(height / 64) + 1)
        currentIndex: row

        onMovingChanged: {
            if (!moving && currentIndex !== row)
                picker.screen.selectRow(currentIndex, wheelIndex)
        }
        onRowChanged: if (!moving) currentIndex = row

        delegate: Component {
            Text {
                required property string modelData
                required property int index
                readonly property real distance: Math.abs(Tumbler.displacement)
                text: modelData
                color: distance < 0.5 ? Theme.text : Theme.textDim
                opacity: 1.0 - Math.min(distance, 2.5) / 3.2
                font.bold: distance < 0.5
                font.pixelSize: distance < 0.5 ? 19 : 16
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
    }

    Rectangle {
        x: 8
        width: parent.width - 16
        anchors.verticalCenter: parent.verticalCenter
        height: 32
        radius: 6
        color: Theme.panelLight
        border.color: Theme.accent
    }

    Wheel {
        objectName: "rootWheel"
        x: 8
        width: (parent.width - 16) * 0.5
        height: parent.height - 8
        y: 4
        model: picker.screen.rootTitles
        wheelIndex: 0
        row: picker.screen.pickerComponent0Row
    }

    Wheel {
        objectName: "typeWheel"
        x: 8 + (parent.width - 16) * 0.5
        width: (parent.width - 16) * 0.5
        height: parent.height - 8
        y: 4
        model: picker.screen.typeTitles
        wheelIndex: 1
        row: picker.screen.pickerComponent1Row
    }
}
