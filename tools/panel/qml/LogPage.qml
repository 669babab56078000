// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZrSupply.Panel

/// What was done and what the library announced, in order.
ColumnLayout {
    id: page

    required property Panel panel
    signal save()
    signal play()

    spacing: Theme.compact ? 4 : Theme.gap

    RowLayout {
        spacing: Theme.compact ? 4 : Theme.gap
        PanelButton {
            objectName: "saveSession"
            text: qsTr("Save")
            says: qsTr("Save the log as a session file")
            glyph: "save"
            onClicked: page.save()
        }
        PanelButton {
            objectName: "playSession"
            text: page.panel.playing ? qsTr("Stop") : qsTr("Play")
            says: page.panel.playing ? qsTr("Stop the session") : qsTr("Play a session file")
            glyph: page.panel.playing ? "stop" : "play"
            onClicked: page.panel.playing ? page.panel.stopPlaying() : page.play()
        }
        PanelSwitch {
            objectName: "speed"
            readonly property var speeds: [1, 4, 0]
            labels: [qsTr("1×"), qsTr("4×"), qsTr("Max")]
            says: qsTr("Pace of a session")
            current: Math.max(speeds.indexOf(page.panel.speed), 0)
            onChosen: index => page.panel.speed = speeds[index]
        }
        PanelText {
            text: qsTr("%1 events").arg(page.panel.log.events)
            color: Theme.muted
            font.pixelSize: Theme.small
            horizontalAlignment: Text.AlignRight
            Layout.fillWidth: true
        }
    }
    Rectangle {
        Layout.fillWidth: true
        Layout.preferredHeight: 3
        color: Theme.line
        radius: 1
        Rectangle {
            width: parent.width * (page.panel.playing ? page.panel.progress : 0)
            height: parent.height
            radius: 1
            color: Theme.accent
        }
    }
    ListView {
        id: list
        objectName: "log"
        model: page.panel.log
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        Layout.fillWidth: true
        Layout.fillHeight: true
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Log of events and signals")
        T.ScrollBar.vertical: PanelScrollBar { }
        // The newest is looked at, unless somebody has scrolled away from it.
        property bool following: true
        onMovementEnded: following = atYEnd
        onCountChanged: if (following) positionViewAtEnd()
        onContentHeightChanged: if (following) positionViewAtEnd()
        onHeightChanged: if (following) positionViewAtEnd()
        onVisibleChanged: if (following) positionViewAtEnd()

        delegate: RowLayout {
            id: row
            required property string kind
            required property string text
            readonly property bool isEvent: kind === "event"
            width: ListView.view.width
            height: Theme.compact ? 18 : 24
            spacing: 8
            Accessible.role: Accessible.ListItem
            Accessible.name: kind + " " + text
            Glyph {
                name: row.kind
                color: row.kind === "problem" ? Theme.problem : row.isEvent ? Theme.ink : Theme.accent
                Layout.leftMargin: row.isEvent ? 0 : 16
                Layout.preferredWidth: Theme.small + 3
                Layout.preferredHeight: Theme.small + 3
            }
            PanelText {
                text: row.text
                font.family: "monospace"
                font.pixelSize: Theme.small
                font.weight: row.isEvent ? Font.Bold : Font.Normal
                color: row.kind === "problem" ? Theme.problem : Theme.ink
                Layout.fillWidth: true
                Layout.rightMargin: 12
            }
        }
        PanelText {
            anchors.centerIn: parent
            visible: list.count === 0
            text: qsTr("Nothing has happened yet")
            color: Theme.muted
        }
    }
}
