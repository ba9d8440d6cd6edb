pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The strip of small diagrams of every fingering, between two arrows, and
// the play button under it. A touch on a diagram shows and plays it; an
// arrow turns a page. The list is a whole number of diagrams high (they
// share out the height left over, in whole pixels) and pages by whole diagrams, so none is
// ever cut in half or covered by an arrow. The arrows' transparency comes
// from the screen, told at every scroll.
Item {
    id: strip

    required property ChordsLibrary screen
    readonly property real arrowHeight: 22
    readonly property real playHeight: 38
    // What a SmallDiagram needs, drawn in the middle of the height it gets.
    readonly property real diagramMinimum: 84
    // Diagrams on show at once.
    readonly property real listSpace: height - 2 * arrowHeight - playHeight
    readonly property int diagramsShown: Math.max(1, Math.floor(listSpace / diagramMinimum))
    readonly property real diagramHeight: Math.floor(Math.max(listSpace, diagramMinimum) / diagramsShown)

    function tellScroll() {
        strip.screen.setStateForArrowButtons(list.contentY - list.originY, list.contentHeight,
                                             list.height)
    }
    function page(direction) {
        const target = strip.screen.stripPageTarget(direction, list.contentY - list.originY,
                                                    list.contentHeight, list.height,
                                                    strip.diagramHeight)
        scroll.to = target + list.originY
        scroll.restart()
    }

    Button {
        objectName: "upperArrow"
        Accessible.name: "Previous fingerings"
        width: strip.width
        height: strip.arrowHeight
        // Tab passes over an arrow while it is hidden.
        focusPolicy: opacity > 0 ? Qt.TabFocus : Qt.NoFocus
        opacity: strip.screen.upperArrowAlpha
        onClicked: strip.page(-1)
        contentItem: Text {
            text: "\u25B2"
            color: Theme.accent
            font.pixelSize: 14
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: Item {}

        FocusRing {}
    }

    ListView {
        id: list

        objectName: "diagramStrip"
        y: strip.arrowHeight
        width: strip.width
        height: strip.diagramsShown * strip.diagramHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        snapMode: ListView.SnapToItem
        model: strip.screen.diagrams
        currentIndex: strip.screen.currentVariationsIndex
        highlightFollowsCurrentItem: false

        onContentYChanged: strip.tellScroll()
        onContentHeightChanged: strip.tellScroll()
        onHeightChanged: strip.tellScroll()
        onCountChanged: strip.tellScroll()
        onCurrentIndexChanged: if (currentIndex >= 0) positionViewAtIndex(currentIndex, ListView.Contain)

        delegate: SmallDiagram {
            id: item

            required property var modelData
            required property int index

            shape: modelData
            capo: strip.screen.capo
            height: strip.diagramHeight
            Accessible.role: Accessible.Button
            Accessible.name: "Fingering " + (item.index + 1) + (item.modelData.caption !== "" ? " " + item.modelData.caption : "")
            current: index === strip.screen.currentVariationsIndex

            TapHandler {
                onTapped: strip.screen.showVariation(item.index)
            }
        }

        NumberAnimation {
            id: scroll
            target: list
            property: "contentY"
            duration: 250
            easing.type: Easing.OutCubic
        }
    }

    Button {
        objectName: "lowerArrow"
        Accessible.name: "Next fingerings"
        y: list.y + list.height
        width: strip.width
        height: strip.arrowHeight
        // Tab passes over an arrow while it is hidden.
        focusPolicy: opacity > 0 ? Qt.TabFocus : Qt.NoFocus
        opacity: strip.screen.lowerArrowAlpha
        onClicked: strip.page(1)
        contentItem: Text {
            text: "\u25BC"
            color: Theme.accent
            font.pixelSize: 14
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        background: Item {}

        FocusRing {}
    }

    Button {
        id: play

        objectName: "playButton"
        x: 4
        y: strip.height - height - 2
        width: strip.width - 8
        height: strip.playHeight - 4
        focusPolicy: Qt.TabFocus
        enabled: strip.screen.variationCount > 0
        opacity: enabled ? 1 : 0.4
        Accessible.name: "Play"
        onClicked: strip.screen.playCurrentChord()
        contentItem: MetronomeGlyph {
            shape: "play"
            color: play.down ? Theme.background : Theme.accent
        }
        background: RoundedBox {
            radius: 8
            color: play.down ? Theme.accent : Theme.panel
            border.width: play.visualFocus ? 2 : 1
            border.color: play.visualFocus || play.down ? Theme.accent : Theme.separator
        }

        FocusRing {}
    }
}
