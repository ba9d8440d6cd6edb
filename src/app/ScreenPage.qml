pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// A screen on a navigation stack: the navigation bar (back button, title,
// the tool's bar button) above the view that draws the screen.
Page {
    id: page
    required property Tools tools
    required property int tab
    required property string key
    required property int depth

    readonly property var screen: tools.screen(key)
    // Views of the screens that have one; the others show their title.
    readonly property var views: ({
        "metronome": "qrc:/ZebTools/metronome/MetronomeView.qml",
        "metronomeSettings": "qrc:/ZebTools/metronome/MetronomeSettingsView.qml",
        "commonSettings": "qrc:/ZebTools/tuners/CommonSettingsView.qml"
    })
    readonly property bool isRoot: depth === 1

    background: Rectangle { color: Theme.background }

    header: Rectangle {
        height: Theme.navBarHeight
        color: Theme.navBar

        Button {
            id: back
            objectName: "backButton"
            visible: !page.isRoot
            anchors.left: parent.left
            anchors.leftMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: "\u2039 Back"
            flat: true
            onClicked: page.tools.goBack(page.tab)
            contentItem: Text {
                text: back.text
                color: Theme.accent
                font.pixelSize: 15
                font.family: Theme.fontFamily
                verticalAlignment: Text.AlignVCenter
            }
            background: Item {}
        }

        Text {
            anchors.centerIn: parent
            width: parent.width - 150
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideRight
            text: page.screen ? page.screen.title : ""
            color: Theme.text
            font.pixelSize: 17
            font.bold: true
            font.family: Theme.fontFamily
        }

        Button {
            id: tunings
            objectName: "tuningsButton"
            visible: page.isRoot && page.tab > 0 && !(page.key in page.views)
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: "Tunings"
            flat: true
            onClicked: page.tools.openTunings(page.tab)
            contentItem: Text {
                text: tunings.text
                color: Theme.accent
                font.pixelSize: 15
                font.family: Theme.fontFamily
                verticalAlignment: Text.AlignVCenter
            }
            background: Item {}
        }
    }

    PlaceholderView {
        anchors.fill: parent
        visible: !(page.key in page.views)
        title: page.screen ? page.screen.title : ""
    }

    Loader {
        anchors.fill: parent
        Component.onCompleted: {
            if (page.key in page.views)
                setSource(page.views[page.key], { screen: page.screen })
        }
    }
}
