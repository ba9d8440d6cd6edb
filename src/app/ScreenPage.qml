pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A screen on a navigation stack: the navigation bar (back button, title,
// and the "Settings" button where a tab's root screen offers it) above the
// screen's view, loaded from the table with the screen as its one property.
Page {
    id: page
    required property Tools tools
    required property int tab
    required property string key
    required property int depth

    readonly property Screen screen: tools.screen(key)
    readonly property bool isRoot: depth === 1

    background: Rectangle { color: Theme.background }

    header: Rectangle {
        height: Theme.navBarHeight
        color: Theme.navBar

        NavBarButton {
            objectName: "backButton"
            visible: !page.isRoot
            anchors.left: parent.left
            anchors.leftMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: "\u2039 Back"
            onClicked: page.tools.goBack(page.tab)
        }

        Text {
            anchors.centerIn: parent
            width: parent.width - 150
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            text: page.screen ? page.screen.navigationTitle : ""
            color: Theme.text
            // A long title shrinks a little before it is cut short.
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 12
            font.pixelSize: 17
            font.bold: true
        }

        Button {
            id: settingsButton

            objectName: "navSettingsButton"
            visible: page.isRoot && page.screen !== null && page.screen.offersSettings
            anchors.right: parent.right
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            width: 40
            height: 40
            padding: 9
            focusPolicy: Qt.TabFocus
            Accessible.name: "Settings"
            onClicked: page.screen.openSettings()
            contentItem: MetronomeGlyph {
                shape: "gear"
                color: settingsButton.down ? Theme.textDim : Theme.accent
            }
            background: Item {}

            FocusRing {}
        }
    }

    Loader {
        anchors.fill: parent
        Component.onCompleted: setSource(page.tools.viewUrl(page.key), { screen: page.screen })
    }
}
