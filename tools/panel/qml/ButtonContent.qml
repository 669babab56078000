// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import ZrSupply.Panel

/// A glyph, a text or both, in the middle.
Item {
    id: content

    property string glyph
    property string text
    property color color: Theme.ink

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 7
        Glyph {
            visible: content.glyph.length > 0
            name: content.glyph
            color: content.color
            width: Theme.body + 4
            height: width
            anchors.verticalCenter: parent.verticalCenter
        }
        PanelText {
            visible: content.text.length > 0
            text: content.text
            color: content.color
            font.weight: Font.Medium
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
