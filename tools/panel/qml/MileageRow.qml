// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZrSupply.Panel

/// One supply's mileage: from all used up to full.
ColumnLayout {
    id: row

    required property string title
    required property string name // of the slider, for tests and screen readers
    required property int full
    required property int mileage
    required property double fraction
    required property string percent
    required property string word
    signal moved(int mm)

    spacing: 2
    RowLayout {
        spacing: Theme.gap
        Gauge {
            fraction: row.fraction
            ink: Theme.muted
            track: Theme.line
            accent: Theme.accent
            warning: Theme.warning
            problem: Theme.problem
            Layout.preferredWidth: Theme.compact ? 34 : 52
            Layout.preferredHeight: Layout.preferredWidth
            Accessible.ignored: true
        }
        ColumnLayout {
            spacing: 0
            Layout.fillWidth: true
            PanelText {
                text: row.title
                font.weight: Font.DemiBold
                Layout.fillWidth: true
            }
            PanelText {
                text: row.full > 0 ? row.word + "  " + row.percent : qsTr("not installed")
                color: Theme.muted
                font.pixelSize: Theme.small
                Layout.fillWidth: true
            }
        }
        PanelText {
            text: row.full > 0 && row.mileage >= 0 ? qsTr("%1 m").arg((row.mileage / 1000).toFixed(2)) : ""
            color: Theme.muted
            font.pixelSize: Theme.small
        }
        PanelButton {
            objectName: row.name + "None"
            text: qsTr("No reading")
            says: qsTr("%1: no reading").arg(row.title)
            enabled: row.full > 0
            implicitHeight: Theme.compact ? 26 : 34
            onClicked: row.moved(-1)
        }
    }
    PanelSlider {
        id: slider
        value: row.mileage
        objectName: row.name
        says: qsTr("Mileage of %1, millimetres").arg(row.title)
        enabled: row.full > 0
        from: 0
        to: Math.max(row.full, 1)
        stepSize: Math.max(Math.round(row.full / 100), 1)
        snapMode: T.Slider.NoSnap
        onWanted: value => row.moved(Math.round(value))
        Layout.fillWidth: true
    }
}
