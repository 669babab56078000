// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZrSupply.Panel

/// A tag id, pasted or typed, and what its bits say.
ColumnLayout {
    id: page

    required property Panel panel

    spacing: Theme.compact ? 4 : Theme.gap

    RowLayout {
        spacing: Theme.compact ? 4 : Theme.gap
        PanelField {
            objectName: "tagField"
            says: qsTr("Tag, 24 hexadecimal digits")
            placeholderText: says
            text: page.panel.tag.text
            wrong: !page.panel.tag.loadable && length > 0
            font.family: "monospace"
            font.pixelSize: Theme.small + 1
            onTextEdited: page.panel.tag.text = text
            onAccepted: page.panel.loadTag()
            Layout.fillWidth: true
        }
        PanelButton {
            objectName: "loadTag"
            text: qsTr("Load")
            says: qsTr("Load the roll of this tag")
            strong: true
            enabled: page.panel.tag.loadable
            onClicked: page.panel.loadTag()
        }
        PanelButton {
            objectName: "installedTag"
            glyph: "supplies"
            says: qsTr("Show the installed roll's tag")
            onClicked: page.panel.showInstalledTag()
        }
    }
    PanelText {
        objectName: "tagRemark"
        text: page.panel.tag.remark
        color: page.panel.tag.loadable || page.panel.tag.text.length === 0 ? Theme.muted : Theme.problem
        font.pixelSize: Theme.small
        Layout.fillWidth: true
    }
    BitGrid {
        panel: page.panel
        Layout.fillWidth: true
        Layout.preferredHeight: Theme.compact ? 60 : Math.floor(page.width / 24 + 2) * 4
    }
    ListView {
        id: fields
        objectName: "tagFields"
        model: page.panel.tag.fields
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        Layout.fillWidth: true
        Layout.fillHeight: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Fields of the tag")
        onCurrentIndexChanged: if (activeFocus) page.panel.tag.chosen = currentIndex
        T.ScrollBar.vertical: PanelScrollBar { }

        delegate: Item {
            id: row
            required property int index
            required property string name
            required property string help
            required property string range
            required property string value
            required property bool isLit
            width: ListView.view.width
            implicitHeight: Theme.compact ? 20 : 28
            opacity: isLit ? 1 : 0.35
            Accessible.role: Accessible.ListItem
            Accessible.name: qsTr("%1, bits %2: %3. %4").arg(name).arg(range).arg(value).arg(help)

            RowLayout {
                anchors.fill: parent
                anchors.rightMargin: 12
                spacing: 8
                Rectangle {
                    Layout.preferredWidth: 14
                    Layout.preferredHeight: 14
                    radius: 3
                    color: Theme.fieldColor(row.index)
                    border.width: row.index === page.panel.tag.chosen ? 2 : 0
                    border.color: Theme.ink
                }
                PanelText {
                    text: row.range
                    color: Theme.muted
                    font.pixelSize: Theme.small
                    Layout.preferredWidth: Theme.compact ? 36 : 46
                }
                PanelText {
                    text: row.value
                    font.weight: Font.DemiBold
                    font.pixelSize: Theme.small + 1
                    Layout.preferredWidth: Theme.compact ? 30 : 40
                }
                PanelText {
                    text: row.help
                    font.pixelSize: Theme.small + 1
                    Layout.fillWidth: true
                }
            }
            MouseArea {
                anchors.fill: parent
                onClicked: {
                    fields.forceActiveFocus()
                    fields.currentIndex = row.index
                    page.panel.tag.chosen = row.index
                }
            }
        }
    }
}
