// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// The readings that a printer would report, to be dragged.
ColumnLayout {
    id: page

    required property Panel panel

    spacing: Theme.compact ? 2 : 22

    PanelText {
        text: qsTr("Drag what the printer would read. A full supply is at the far end.")
        color: Theme.muted
        wrapMode: Text.Wrap
        visible: !Theme.compact
        Layout.fillWidth: true
    }
    MileageRow {
        title: qsTr("Roll")
        name: "rollMileage"
        full: page.panel.roll.fullMileage
        mileage: page.panel.roll.mileage
        fraction: page.panel.roll.fraction
        percent: page.panel.roll.remainingPercent
        word: page.panel.roll.remainingWord
        onMoved: mm => page.panel.setRollMileage(mm)
        Layout.fillWidth: true
    }
    MileageRow {
        title: qsTr("Ribbon 1")
        name: "ribbon1Mileage"
        full: page.panel.ribbon1.fullMileage
        mileage: page.panel.ribbon1.mileage
        fraction: page.panel.ribbon1.fraction
        percent: page.panel.ribbon1.remainingPercent
        word: page.panel.ribbon1.remainingWord
        onMoved: mm => page.panel.setRibbonMileage(1, mm)
        Layout.fillWidth: true
    }
    MileageRow {
        title: qsTr("Ribbon 2")
        name: "ribbon2Mileage"
        full: page.panel.ribbon2.fullMileage
        mileage: page.panel.ribbon2.mileage
        fraction: page.panel.ribbon2.fraction
        percent: page.panel.ribbon2.remainingPercent
        word: page.panel.ribbon2.remainingWord
        onMoved: mm => page.panel.setRibbonMileage(2, mm)
        Layout.fillWidth: true
    }
    Item { Layout.fillHeight: true }
}
