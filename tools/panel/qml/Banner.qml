// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// What is so, why, and what to do: a glyph of a shape of its own, a colour, and words.
Rectangle {
    id: banner

    required property string severity
    required property string title
    required property string reason
    required property string remedy
    required property string spoken

    implicitHeight: column.implicitHeight + 2 * Theme.gap
    radius: Theme.radius - 2
    color: Theme.severityWash(severity)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: spoken

    Rectangle {
        width: 4
        height: parent.height - 12
        radius: 2
        anchors.left: parent.left
        anchors.leftMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.severityColor(banner.severity)
    }
    Glyph {
        id: sign
        name: banner.severity
        color: Theme.severityColor(banner.severity)
        width: Theme.heading + 6
        height: width
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap + 6
        anchors.top: parent.top
        anchors.topMargin: Theme.gap
    }
    ColumnLayout {
        id: column
        anchors.left: sign.right
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.gap
        spacing: 3
        PanelText {
            text: banner.title
            font.weight: Font.DemiBold
            Layout.fillWidth: true
            wrapMode: Text.WordWrap
        }
        PanelText {
            text: banner.reason
            visible: text.length > 0
            color: Theme.muted
            font.pixelSize: Theme.body - 1
            Layout.fillWidth: true
            wrapMode: Text.Wrap
        }
        PanelText {
            text: banner.remedy
            visible: text.length > 0
            font.pixelSize: Theme.body - 1
            Layout.fillWidth: true
            wrapMode: Text.Wrap
        }
    }
}
