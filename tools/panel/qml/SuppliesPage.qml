// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// What is installed, at a glance.
GridLayout {
    id: page

    required property Panel panel
    /// Side by side on a low screen, one below the other where there is room.
    readonly property bool low: height < 420

    columns: low ? 2 : 1
    columnSpacing: Theme.gap
    rowSpacing: Theme.gap

    RollCard {
        panel: page.panel
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: 6
        Layout.preferredHeight: 68
    }
    GridLayout {
        columns: page.low ? 1 : 2
        columnSpacing: Theme.gap
        rowSpacing: Theme.gap
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.preferredWidth: 4
        Layout.preferredHeight: 32
        RibbonCard {
            ribbon: page.panel.ribbon1
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            Layout.preferredHeight: 1
        }
        RibbonCard {
            ribbon: page.panel.ribbon2
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            Layout.preferredHeight: 1
        }
    }
}
