// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Templates as T
import ZrSupply.Panel

T.ScrollBar {
    id: bar

    implicitWidth: 8
    implicitHeight: 8
    padding: 2
    minimumSize: 0.08
    visible: size < 1.0

    contentItem: Rectangle {
        implicitWidth: 4
        implicitHeight: 4
        radius: 2
        color: Theme.muted
        opacity: bar.pressed || bar.hovered ? 0.9 : 0.45
    }
}
