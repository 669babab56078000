// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// The roll: its picture to scale, what it is, what is left.
Card {
    id: card

    required property Panel panel
    readonly property bool roomy: height > 330

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Roll: %1, %2, %3").arg(panel.roll.title).arg(panel.roll.description)
                                              .arg(panel.roll.remainingWord)

    RowLayout {
        anchors.fill: parent
        spacing: Theme.gap
        RollPicture {
            objectName: "rollPicture"
            roll: card.panel.roll
            ink: Theme.muted
            faint: Theme.muted
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 5
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Picture of the roll, to scale")
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 5
            spacing: Theme.compact ? 2 : 6
            PanelText {
                objectName: "rollTitle"
                text: card.panel.roll.title
                font.pixelSize: Theme.large
                font.weight: Font.DemiBold
                Layout.fillWidth: true
            }
            PanelText {
                objectName: "rollDescription"
                text: card.panel.roll.description
                color: Theme.muted
                wrapMode: Text.Wrap
                maximumLineCount: 2
                Layout.fillWidth: true
                Layout.preferredHeight: Theme.compact ? 30 : 40
            }
            RowLayout {
                spacing: Theme.gap
                Gauge {
                    objectName: "rollGauge"
                    fraction: card.panel.roll.fraction
                    ink: Theme.muted
                    track: Theme.line
                    accent: Theme.accent
                    warning: Theme.warning
                    problem: Theme.problem
                    Layout.preferredWidth: Theme.compact ? 44 : card.roomy ? 84 : 60
                    Layout.preferredHeight: Layout.preferredWidth
                    Accessible.role: Accessible.ProgressBar
                    Accessible.name: qsTr("What is left of the roll")
                    Accessible.description: card.panel.roll.remainingWord + ", " + card.panel.roll.remainingPercent
                }
                ColumnLayout {
                    spacing: 0
                    Layout.fillWidth: true
                    RowLayout {
                        spacing: 8
                        PanelText {
                            objectName: "rollPercent"
                            text: card.panel.roll.remainingPercent
                            font.pixelSize: Theme.large
                            font.weight: Font.DemiBold
                        }
                        PanelText {
                            objectName: "rollLevel"
                            text: card.panel.roll.remainingWord
                            font.pixelSize: Theme.heading
                            visible: !Theme.compact
                            Layout.fillWidth: true
                        }
                    }
                    PanelText {
                        text: Theme.compact ? card.panel.roll.remainingWord : card.panel.roll.remainingLength
                        color: Theme.muted
                        font.pixelSize: Theme.small
                        Layout.fillWidth: true
                    }
                }
            }
            Rectangle {
                visible: !Theme.compact
                color: Theme.line
                Layout.fillWidth: true
                Layout.preferredHeight: 1
                Layout.topMargin: 4
                Layout.bottomMargin: 4
            }
            FactList {
                model: card.panel.roll.facts
                says: qsTr("What is known of the roll")
                labelWidth: Theme.compact ? 50 : 104
                Layout.fillWidth: true
                Layout.fillHeight: true
            }
        }
    }
}
