// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Templates as T
import ZrSupply.Panel

/// A value to drag, or to move with the arrow keys.
T.Slider {
    id: slider

    required property string says
    /// Somebody wants this value; whoever owns it decides.
    signal wanted(real value)

    Accessible.name: says
    implicitHeight: Theme.control
    implicitWidth: 140
    focusPolicy: Qt.StrongFocus
    onMoved: wanted(value)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
            wanted(event.key === Qt.Key_Home ? from : to)
            event.accepted = true
        }
    }
    opacity: enabled ? 1 : 0.4

    background: Rectangle {
        x: slider.leftPadding
        y: (slider.height - height) / 2
        width: slider.availableWidth
        height: 6
        radius: 3
        color: Theme.line
        Rectangle {
            width: slider.visualPosition * parent.width
            x: slider.mirrored ? parent.width - width : 0
            height: parent.height
            radius: 3
            color: Theme.accent
        }
    }
    handle: Rectangle {
        x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
        y: (slider.height - height) / 2
        width: Theme.compact ? 20 : 24
        height: width
        radius: width / 2
        color: Theme.surface
        border.width: slider.visualFocus || slider.pressed ? 4 : 2
        border.color: Theme.accent
    }
}
