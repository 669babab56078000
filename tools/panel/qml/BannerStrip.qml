// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// The most urgent banner, always in the same place and of the same height, so that nothing jumps.
Rectangle {
    id: strip

    required property Panel panel
    signal showAll()
    signal openCatalogue()

    implicitHeight: Theme.compact ? 44 : 62
    color: Theme.severityWash(panel.banners.severity)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: panel.banners.spoken

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 2
        color: Theme.severityColor(strip.panel.banners.severity)
        opacity: 0.6
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap + 2
        anchors.rightMargin: Theme.gap
        spacing: Theme.gap
        Glyph {
            name: strip.panel.banners.severity
            color: Theme.severityColor(strip.panel.banners.severity)
            Layout.preferredWidth: Theme.compact ? 22 : 30
            Layout.preferredHeight: Layout.preferredWidth
        }
        ColumnLayout {
            spacing: 1
            Layout.fillWidth: true
            PanelText {
                objectName: "stripTitle"
                text: strip.panel.banners.title
                font.pixelSize: Theme.heading
                font.weight: Font.DemiBold
                Layout.fillWidth: true
            }
            PanelText {
                objectName: "stripReason"
                text: strip.panel.banners.detail
                color: Theme.muted
                font.pixelSize: Theme.small
                maximumLineCount: Theme.compact ? 1 : 2
                wrapMode: Theme.compact ? Text.NoWrap : Text.Wrap
                lineHeight: 0.95
                Layout.fillWidth: true
                // Room for all its lines, used or not, so that the title stays where it is.
                Layout.preferredHeight: Theme.compact ? 14 : 29
            }
        }
        PanelButton {
            objectName: "stripDismiss"
            glyph: "close"
            says: qsTr("Dismiss the message")
            opacity: enabled ? 1 : 0
            enabled: strip.panel.banners.dismissible
            onClicked: strip.panel.dismissMishap()
        }
        PanelButton {
            objectName: "stripAll"
            text: strip.panel.banners.alerts > 1 ? qsTr("%1 to see").arg(strip.panel.banners.alerts) : qsTr("Why?")
            says: qsTr("Show every verdict with its reasons")
            // Of one width, whatever it says.
            Layout.preferredWidth: Theme.compact ? 72 : 96
            onClicked: strip.showAll()
        }
    }
}
