// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import ZrSupply.Panel

/// A few choices side by side, one of them taken.
FocusScope {
    id: choices

    required property var labels
    required property string says
    property int current: 0
    signal chosen(int index)

    implicitHeight: Theme.control
    implicitWidth: row.implicitWidth

    Accessible.role: Accessible.Grouping
    Accessible.name: says

    Row {
        id: row
        height: parent.height
        spacing: 0
        Repeater {
            model: choices.labels
            T.AbstractButton {
                id: choice
                required property int index
                required property string modelData
                objectName: choices.objectName + index
                width: implicitContentWidth + 2 * Theme.gap + 4
                height: row.height
                text: modelData
                checkable: false
                focusPolicy: Qt.StrongFocus
                Accessible.role: Accessible.RadioButton
                Accessible.name: choices.says + ": " + modelData
                Accessible.checked: index === choices.current
                onClicked: choices.chosen(index)
                Keys.onRightPressed: choices.chosen(Math.min(choices.current + 1, choices.labels.length - 1))
                Keys.onLeftPressed: choices.chosen(Math.max(choices.current - 1, 0))
                background: Rectangle {
                    color: choice.index === choices.current ? Theme.accentWash : Theme.surface
                    border.width: choice.visualFocus ? 2 : 1
                    border.color: choice.visualFocus || choice.index === choices.current ? Theme.accent : Theme.line
                    radius: 4
                }
                contentItem: PanelText {
                    text: choice.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    color: choice.index === choices.current ? Theme.accent : Theme.ink
                    font.weight: Font.Medium
                }
            }
        }
    }
}
