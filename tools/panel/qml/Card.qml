// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import ZrSupply.Panel

/// A surface with room around what lies on it.
Rectangle {
    id: card

    default property alias content: holder.data
    property int padding: Theme.gap

    color: Theme.surface
    radius: Theme.radius
    border.color: Theme.line
    border.width: 1

    Item {
        id: holder
        anchors.fill: parent
        anchors.margins: card.padding
    }
}
