// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZrSupply.Panel

/// Every verdict with its reasons, the worst first.
ColumnLayout {
    id: page

    required property Panel panel

    spacing: Theme.gap

    ListView {
        objectName: "banners"
        model: page.panel.banners
        clip: true
        spacing: Theme.compact ? 4 : 8
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        Layout.fillWidth: true
        Layout.fillHeight: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Verdicts")
        T.ScrollBar.vertical: PanelScrollBar { }
        delegate: Banner {
            width: ListView.view.width
        }
    }
    PanelButton {
        objectName: "runChecks"
        text: qsTr("Run the checks")
        says: qsTr("Let the library run its five checks and announce what they say")
        glyph: "checks"
        onClicked: page.panel.runChecks()
    }
}
