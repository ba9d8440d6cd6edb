pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import ZebTools

// The strip of small diagrams of every fingering, between two arrows. A
// touch on a diagram shows and plays it; an arrow scrolls a page. The
// arrows' transparency comes from the screen, told at every scroll.
Item {
    id: strip

    required property ChordsLibrary screen
    readonly property real arrowHeight: 22
    readonly property real diagramHeight: 76

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
        width: strip.width
        height: strip.arrowHeight
        focusPolicy: Qt.NoFocus
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
    }

    ListView {
        id: list

        objectName: "diagramStrip"
        y: strip.arrowHeight
        width: strip.width
        height: strip.height - 2 * strip.arrowHeight
        clip: true
        boundsBehavior: Flickable.StopAtBounds
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
            height: strip.diagramHeight
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
        y: strip.height - height
        width: strip.width
        height: strip.arrowHeight
        focusPolicy: Qt.NoFocus
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
    }
}
