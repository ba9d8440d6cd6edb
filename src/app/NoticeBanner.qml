import QtQuick
import ZebTools

// The shell's notice: a short message over the bottom of the tools that goes
// away by itself or when tapped. Only the banner itself takes touches; the
// tools under and around it work as ever.
Rectangle {
    id: banner
    objectName: "noticeBanner"

    required property Tools tools
    readonly property bool shown: tools.notice !== ""

    height: message.implicitHeight + 20
    radius: Theme.cardRadius
    color: Theme.panel
    border.color: Theme.accent
    opacity: shown ? 1 : 0
    visible: opacity > 0
    Behavior on opacity { NumberAnimation { duration: 200 } }

    Text {
        id: message
        objectName: "noticeText"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: 12
        text: banner.tools.notice
        color: Theme.text
        wrapMode: Text.Wrap
        font.pixelSize: 13
    }

    MouseArea {
        anchors.fill: parent
        onClicked: banner.tools.dismissNotice()
    }
}
