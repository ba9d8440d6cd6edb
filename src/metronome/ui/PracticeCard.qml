pragma ComponentBehavior: Bound
import QtQuick
import ZebTools

// The "Practice" section of the metronome settings: the speed trainer and
// muted bars, each an on/off switch, and its values
// (PracticeStepRow) while it is on.
Column {
    id: card

    required property PracticeSettings practice

    SectionHeader {
        width: card.width
        text: "Practice"
    }

    Card {
        width: card.width

        SwitchRow {
            objectName: "trainerRow"
            switchName: "trainerSwitch"
            title: "Speed Trainer"
            first: true
            isOn: card.practice.trainerOn
            onFlipped: card.practice.toggleTrainer()
        }

        Repeater {
            // A count, not a list: the rows stay as they are while their
            // values change.
            model: card.practice.trainerOn ? 4 : 0

            PracticeStepRow {
                required property int index
                practice: card.practice
                field: PracticeSettings.TrainerStart + index
            }
        }

        SwitchRow {
            objectName: "muteRow"
            switchName: "muteSwitch"
            title: "Muted Bars"
            last: !card.practice.muteOn
            isOn: card.practice.muteOn
            onFlipped: card.practice.toggleMute()
        }

        Repeater {
            id: muteRows

            model: card.practice.muteOn ? 2 : 0

            PracticeStepRow {
                required property int index
                practice: card.practice
                field: PracticeSettings.MutePlayBars + index
                last: index === muteRows.count - 1
            }
        }
    }
}
