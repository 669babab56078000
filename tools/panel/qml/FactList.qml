// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import ZrSupply.Panel

/// Labels and what they say, one below the other.
ListView {
    id: list

    property int labelWidth: Theme.compact ? 74 : 104
    property string says

    clip: true
    spacing: Theme.compact ? 1 : 3
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentHeight > height
    activeFocusOnTab: interactive
    Accessible.role: Accessible.List
    Accessible.name: says
    Keys.onDownPressed: flick(0, -400)
    Keys.onUpPressed: flick(0, 400)

    delegate: Item {
        id: fact
        required property string label
        required property string text
        width: ListView.view.width
        implicitHeight: value.implicitHeight
        Accessible.role: Accessible.ListItem
        Accessible.name: label + ": " + text

        PanelText {
            text: fact.label
            color: Theme.muted
            font.pixelSize: Theme.small + 1
            width: list.labelWidth
            anchors.left: parent.left
        }
        PanelText {
            id: value
            text: fact.text
            font.pixelSize: Theme.small + 1
            anchors.left: parent.left
            anchors.leftMargin: list.labelWidth
            anchors.right: parent.right
            wrapMode: Text.Wrap
            maximumLineCount: Theme.compact ? 1 : 2
        }
    }
}
