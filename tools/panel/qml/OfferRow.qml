// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// A roll or a ribbon that can be loaded.
Rectangle {
    id: row

    required property int index
    required property string sku
    required property string name
    required property string description
    required property color swatch
    property bool current: false
    signal chosen()

    implicitHeight: Theme.compact ? 34 : 44
    radius: Theme.radius - 4
    color: current ? Theme.accentWash : area.containsMouse ? Theme.raised : "transparent"
    border.width: current ? 2 : 0
    border.color: Theme.accent
    Accessible.role: Accessible.ListItem
    Accessible.name: sku + ", " + name + ", " + description
    Accessible.onPressAction: chosen()

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 12
        spacing: Theme.gap
        Rectangle {
            Layout.preferredWidth: Theme.compact ? 16 : 22
            Layout.preferredHeight: Layout.preferredWidth
            radius: 4
            color: row.swatch
            border.color: Theme.muted
            border.width: 1
        }
        ColumnLayout {
            spacing: 0
            Layout.fillWidth: true
            PanelText {
                text: row.name
                font.weight: Font.Medium
                Layout.fillWidth: true
            }
            PanelText {
                text: row.description
                color: Theme.muted
                font.pixelSize: Theme.small
                Layout.fillWidth: true
            }
        }
        PanelText {
            text: row.sku
            font.pixelSize: Theme.small + 1
            color: Theme.muted
        }
    }
    MouseArea {
        id: area
        anchors.fill: parent
        hoverEnabled: true
        onClicked: row.chosen()
    }
}
