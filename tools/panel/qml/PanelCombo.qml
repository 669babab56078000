// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import ZrSupply.Panel

/// One of a few.
T.ComboBox {
    id: combo

    required property string says

    Accessible.name: says
    implicitHeight: Theme.control
    implicitWidth: 180
    leftPadding: Theme.gap
    rightPadding: Theme.gap
    focusPolicy: Qt.StrongFocus

    contentItem: PanelText {
        text: combo.displayText
        verticalAlignment: Text.AlignVCenter
        rightPadding: combo.mirrored ? 0 : 18
        leftPadding: combo.mirrored ? 18 : 0
    }
    indicator: Glyph {
        name: "choose"
        color: Theme.muted
        width: 14
        height: 14
        x: combo.mirrored ? 10 : combo.width - width - 10
        y: (combo.height - height) / 2
    }
    background: Rectangle {
        radius: Theme.radius - 2
        color: Theme.surface
        border.width: combo.visualFocus ? 2 : 1
        border.color: combo.visualFocus ? Theme.accent : Theme.line
    }
    delegate: T.ItemDelegate {
        id: entry
        required property int index
        width: combo.width
        implicitHeight: Theme.control
        text: combo.textAt(index)
        Accessible.name: text
        highlighted: combo.highlightedIndex === index
        contentItem: PanelText {
            text: entry.text
            leftPadding: Theme.gap
            rightPadding: Theme.gap
            verticalAlignment: Text.AlignVCenter
            font.weight: combo.currentIndex === entry.index ? Font.DemiBold : Font.Normal
        }
        background: Rectangle {
            color: entry.highlighted ? Theme.accentWash : "transparent"
        }
    }
    popup: T.Popup {
        y: combo.height + 2
        width: combo.width
        height: Math.min(contentItem.implicitHeight + 2, combo.Window.height - topMargin - bottomMargin)
        topMargin: 6
        bottomMargin: 6
        padding: 1
        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: combo.delegateModel
            currentIndex: combo.highlightedIndex
            T.ScrollBar.vertical: PanelScrollBar { }
        }
        background: Rectangle {
            radius: 4
            color: Theme.surface
            border.color: Theme.line
        }
    }
}
