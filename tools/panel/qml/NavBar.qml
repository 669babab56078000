// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import QtQuick.Layouts
import ZrSupply.Panel

/// The pages. `first`: the first of them that is offered here.
Rectangle {
    id: bar

    property int current: 0
    property int first: 0
    signal chosen(int page)

    readonly property var pages: [
        { glyph: "supplies", label: qsTr("Supplies") },
        { glyph: "load", label: qsTr("Load") },
        { glyph: "mileage", label: qsTr("Mileage") },
        { glyph: "tag", label: qsTr("Tag") },
        { glyph: "checks", label: qsTr("Verdicts") },
        { glyph: "log", label: qsTr("Log") },
        { glyph: "setup", label: qsTr("Setup") }
    ]

    implicitHeight: Theme.compact ? 40 : 54
    color: Theme.surface

    RowLayout {
        anchors.fill: parent
        anchors.margins: 2
        spacing: 2
        Repeater {
            model: bar.pages.length - bar.first
            T.AbstractButton {
                id: button
                required property int index
                readonly property int page: index + bar.first
                readonly property bool taken: page === bar.current
                objectName: "nav" + page
                text: bar.pages[page].label
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1
                focusPolicy: Qt.StrongFocus
                hoverEnabled: true
                Accessible.role: Accessible.PageTab
                Accessible.name: text
                Accessible.selected: taken
                onClicked: bar.chosen(page)
                Keys.onRightPressed: bar.chosen(Math.min(bar.current + 1, bar.pages.length - 1))
                Keys.onLeftPressed: bar.chosen(Math.max(bar.current - 1, bar.first))
                background: Rectangle {
                    radius: Theme.radius - 2
                    color: button.taken ? Theme.accentWash : button.hovered ? Theme.raised : "transparent"
                    border.width: button.visualFocus ? 2 : 0
                    border.color: Theme.accent
                }
                contentItem: Column {
                    spacing: 1
                    topPadding: Theme.compact ? 3 : 7
                    Glyph {
                        name: bar.pages[button.page].glyph
                        color: button.taken ? Theme.accent : Theme.muted
                        width: Theme.compact ? 17 : 22
                        height: width
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                    PanelText {
                        text: button.text
                        font.pixelSize: Theme.small
                        font.weight: button.taken ? Font.DemiBold : Font.Normal
                        color: button.taken ? Theme.accent : Theme.muted
                        anchors.horizontalCenter: parent.horizontalCenter
                    }
                }
            }
        }
    }
}
