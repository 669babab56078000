// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import ZrSupply.Panel

/// The 96 bits of a tag, four rows of 24. A bit takes the colour of its field when that is reached.
Grid {
    id: grid

    required property Panel panel
    readonly property real cell: Math.floor(width / columns)

    columns: 24
    Accessible.role: Accessible.Table
    Accessible.name: qsTr("The 96 bits of the tag")

    Repeater {
        model: grid.panel.tag.bits
        Rectangle {
            id: bit
            required property int index
            required property bool isSet
            required property int field
            required property bool isLit
            required property bool isChosen
            objectName: "bit" + index
            width: grid.cell
            height: Math.min(grid.cell + 2, Math.floor(grid.height / 4))
            color: isLit ? Theme.fieldColor(field) : Theme.raised
            border.width: isChosen ? 2 : 1
            border.color: isChosen ? Theme.ink : Theme.surface
            Accessible.ignored: true

            PanelText {
                anchors.centerIn: parent
                text: bit.isSet ? "1" : "0"
                font.pixelSize: Math.max(Math.min(bit.width - 4, Theme.small + 1), 8)
                font.weight: bit.isSet ? Font.DemiBold : Font.Normal
                color: bit.isLit || bit.isSet ? Theme.ink : Theme.muted
            }
            MouseArea {
                anchors.fill: parent
                onClicked: grid.panel.tag.chosen = bit.field
            }
        }
    }
}
