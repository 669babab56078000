// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Templates as T
import ZrSupply.Panel

/// A button with a glyph, a text or both. `strong`: the one that a page is for.
T.Button {
    id: button

    property string glyph
    property bool strong: false
    /// What a screen reader says where the text is not enough, or where there is none.
    property string says: text

    Accessible.name: says
    implicitHeight: Theme.control
    implicitWidth: text.length > 0 ? implicitContentWidth + 2 * Theme.gap + 4 : implicitHeight
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45

    readonly property color foreground: strong ? Theme.accentInk : Theme.ink

    background: Rectangle {
        radius: Theme.radius - 2
        color: {
            if (button.strong)
                return button.down ? Qt.darker(Theme.accent, 1.2) : Theme.accent
            return button.down || button.hovered ? Theme.raised : Theme.surface
        }
        border.width: button.visualFocus ? 2 : 1
        border.color: button.visualFocus ? (button.strong ? Theme.ink : Theme.accent)
                                         : (button.strong ? Theme.accent : Theme.line)
    }
    contentItem: ButtonContent {
        glyph: button.glyph
        text: button.text
        color: button.foreground
    }
}
