pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The two wheels: the root on the left, the chord type on the right. A row
// chosen on a wheel (dragged, scrolled, clicked or by the keys) is the
// user's choice; the wheels follow the screen when the chord changes
// otherwise (saved state, a letter typed).
Rectangle {
    id: picker

    required property ChordsLibrary screen

    radius: Theme.cardRadius
    color: Theme.panel
    border.color: Theme.separator

    component Wheel: KeyWheel {
        id: wheel

        required property int wheelIndex

        wrap: true
        visibleItemCount: Math.max(5, 2 * Math.floor(height / 64) + 1)
        onChosen: row => picker.screen.selectRow(row, wheel.wheelIndex)
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
        id: rootWheel

        objectName: "rootWheel"
        x: 8
        width: (parent.width - 16) * 0.5
        height: parent.height - 8
        y: 4
        model: picker.screen.rootTitles
        wheelIndex: 0
        selectedRow: picker.screen.pickerComponent0Row
        Accessible.name: "Root"
        KeyNavigation.right: typeWheel
    }

    Wheel {
        id: typeWheel

        objectName: "typeWheel"
        x: 8 + (parent.width - 16) * 0.5
        width: (parent.width - 16) * 0.5
        height: parent.height - 8
        y: 4
        model: picker.screen.typeTitles
        wheelIndex: 1
        selectedRow: picker.screen.pickerComponent1Row
        Accessible.name: "Chord type"
        KeyNavigation.left: rootWheel
    }
}
