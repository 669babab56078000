// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Templates as T
import ZrSupply.Panel

/// A line of text to type. `says`: its name for a screen reader.
T.TextField {
    id: field

    required property string says
    property string glyph
    property bool wrong: false

    Accessible.name: says
    implicitHeight: Theme.control
    implicitWidth: 160
    leftPadding: glyph.length > 0 && !mirrored ? Theme.control - 4 : Theme.gap
    rightPadding: glyph.length > 0 && mirrored ? Theme.control - 4 : Theme.gap
    verticalAlignment: TextInput.AlignVCenter
    color: Theme.ink
    placeholderTextColor: Theme.muted
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentInk
    font.pixelSize: Theme.body
    selectByMouse: true
    activeFocusOnTab: true
    horizontalAlignment: TextInput.AlignLeft
    readonly property bool mirrored: effectiveHorizontalAlignment === TextInput.AlignRight

    PanelText {
        // Without anchors, whose margins are mirrored: the paddings are so already.
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        visible: field.length === 0 && field.preeditText.length === 0
        text: field.placeholderText
        color: Theme.muted
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    Glyph {
        visible: field.glyph.length > 0
        name: field.glyph
        color: Theme.muted
        width: Theme.body + 2
        height: width
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.leftMargin: 9
    }
    background: Rectangle {
        radius: Theme.radius - 2
        color: Theme.surface
        border.width: field.activeFocus ? 2 : 1
        border.color: field.wrong ? Theme.problem : field.activeFocus ? Theme.accent : Theme.line
    }
}
