// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// A ribbon: its panels in their colours, its width to the roll's scale, what is left.
Card {
    id: card

    /// A ribbon of the panel; QML knows its class by the panel's property alone.
    required property var ribbon

    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Ribbon %1: %2, %3").arg(ribbon.station).arg(ribbon.title).arg(ribbon.remainingWord)

    ColumnLayout {
        anchors.fill: parent
        spacing: Theme.compact ? 2 : 8
        RowLayout {
            spacing: Theme.gap
            Layout.fillWidth: true
            Gauge {
                objectName: "ribbonGauge" + card.ribbon.station
                fraction: card.ribbon.fraction
                ink: Theme.muted
                track: Theme.line
                accent: Theme.accent
                warning: Theme.warning
                problem: Theme.problem
                Layout.preferredWidth: Theme.compact ? 40 : 58
                Layout.preferredHeight: Layout.preferredWidth
                Accessible.role: Accessible.ProgressBar
                Accessible.name: qsTr("What is left of ribbon %1").arg(card.ribbon.station)
                Accessible.description: card.ribbon.remainingWord + ", " + card.ribbon.remainingPercent
            }
            ColumnLayout {
                spacing: 1
                Layout.fillWidth: true
                RowLayout {
                    spacing: 8
                    PanelText {
                        text: qsTr("Ribbon %1").arg(card.ribbon.station)
                        color: Theme.muted
                        font.pixelSize: Theme.small
                        Layout.fillWidth: true
                    }
                    PanelText {
                        objectName: "ribbonLevel" + card.ribbon.station
                        text: card.ribbon.remainingWord + "  " + card.ribbon.remainingPercent
                        font.pixelSize: Theme.small
                        font.weight: Font.DemiBold
                    }
                }
                PanelText {
                    objectName: "ribbonTitle" + card.ribbon.station
                    text: card.ribbon.title
                    font.pixelSize: Theme.heading
                    font.weight: Font.DemiBold
                    Layout.fillWidth: true
                }
                PanelText {
                    text: card.ribbon.description
                    color: Theme.muted
                    font.pixelSize: Theme.small
                    Layout.fillWidth: true
                }
            }
        }
        // The ribbon as it leaves its spool: one band after another of each panel's colour.
        Item {
            visible: card.height > (Theme.compact ? 78 : 110)
            Layout.fillWidth: true
            Layout.preferredHeight: Theme.compact ? 14 : 22
            Rectangle {
                width: parent.width
                height: parent.height
                radius: 3
                color: "transparent"
                border.color: Theme.line
            }
            Row {
                id: band
                height: parent.height
                width: parent.width * card.ribbon.widthShare
                anchors.centerIn: parent
                Repeater {
                    model: card.ribbon.panelColors
                    Rectangle {
                        required property var modelData
                        readonly property bool named: modelData.valid
                        width: band.width / card.ribbon.panelColors.length
                        height: band.height
                        color: named ? modelData : "transparent"
                        border.color: Theme.muted
                        border.width: 1
                    }
                }
            }
        }
        FactList {
            visible: card.height > 180
            model: card.ribbon.facts
            says: qsTr("What is known of ribbon %1").arg(card.ribbon.station)
            labelWidth: Theme.compact ? 54 : 74
            Layout.fillWidth: true
            Layout.fillHeight: true
        }
        Item {
            visible: card.height <= 180
            Layout.fillHeight: true
        }
    }
}
