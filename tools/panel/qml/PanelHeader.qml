// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// What the panel is looking at.
Rectangle {
    id: header

    required property Panel panel
    signal openCatalogue()

    implicitHeight: Theme.compact ? 34 : 56
    color: Theme.surface

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.line
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.gap + 2
        anchors.rightMargin: Theme.gap
        spacing: Theme.gap
        Glyph {
            name: "supplies"
            color: Theme.accent
            Layout.preferredWidth: Theme.large
            Layout.preferredHeight: Theme.large
        }
        PanelText {
            text: qsTr("Supplies")
            font.pixelSize: Theme.large - 4
            font.weight: Font.DemiBold
        }
        PanelText {
            objectName: "catalogueName"
            text: header.panel.catalogueName
            color: Theme.muted
            elide: Text.ElideMiddle
            Layout.fillWidth: true
        }
        PanelButton {
            objectName: "openCatalogue"
            glyph: "open"
            text: Theme.compact ? "" : qsTr("Open catalogue")
            says: qsTr("Open a catalogue file")
            implicitHeight: Theme.compact ? 26 : Theme.control
            onClicked: header.openCatalogue()
        }
        PanelButton {
            objectName: "reset"
            glyph: "reset"
            text: Theme.compact ? "" : qsTr("Reset")
            says: qsTr("Take everything out of the printer")
            implicitHeight: Theme.compact ? 26 : Theme.control
            onClicked: header.panel.reset()
        }
    }
}
