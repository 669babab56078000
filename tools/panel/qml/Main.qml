// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZrSupply.Panel

T.ApplicationWindow {
    id: window

    required property Panel panel
    /// Two halves where there is room, else one page at a time.
    readonly property bool wide: width >= 760
    property int page: 0
    readonly property int shownPage: wide && page === 0 ? 1 : page

    width: 1280
    height: 800
    minimumWidth: 480
    minimumHeight: 320
    visible: true
    title: qsTr("Supplies – %1").arg(panel.catalogueName)
    color: Theme.window

    LayoutMirroring.enabled: panel.rightToLeft
    LayoutMirroring.childrenInherit: true

    Binding { target: Theme; property: "dark"; value: window.panel.dark }
    Binding { target: Theme; property: "compact"; value: window.width < 900 || window.height < 480 }

    function ask(what: string) {
        if (dialogs.status === Loader.Null)
            dialogs.setSource("FileDialogs.qml", { panel: window.panel });
        (dialogs.item as FileDialogs).open(what)
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        PanelHeader {
            panel: window.panel
            onOpenCatalogue: window.ask("catalogue")
            Layout.fillWidth: true
        }
        BannerStrip {
            panel: window.panel
            onShowAll: window.page = 4
            Layout.fillWidth: true
        }
        RowLayout {
            spacing: Theme.gap
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.margins: Theme.gap
            SuppliesPage {
                panel: window.panel
                visible: window.wide || window.page === 0
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 55
            }
            ColumnLayout {
                visible: window.wide || window.page > 0
                spacing: Theme.gap
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 45
                NavBar {
                    visible: window.wide
                    first: 1
                    current: window.shownPage
                    radius: Theme.radius
                    border.color: Theme.line
                    onChosen: page => window.page = page
                    Layout.fillWidth: true
                }
                SidePages {
                    id: side
                    panel: window.panel
                    page: Math.max(window.shownPage, 1)
                    onOpenCatalogue: window.ask("catalogue")
                    onSaveSession: window.ask("save")
                    onPlaySession: window.ask("play")
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                }
            }
        }
        NavBar {
            visible: !window.wide
            current: window.page
            onChosen: page => window.page = page
            Layout.fillWidth: true
        }
    }
    Rectangle {
        anchors.fill: parent
        visible: drop.containsDrag
        color: "transparent"
        border.width: 4
        border.color: Theme.accent
    }
    DropArea {
        id: drop
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: dropped => { if (dropped.hasUrls) window.panel.takeFile(dropped.urls[0]) }
    }
    Loader {
        id: dialogs
        anchors.fill: parent
    }
    Shortcuts {
        panel: window.panel
        onPageChosen: page => window.page = page
        onAsked: what => window.ask(what)
        onSearchWanted: {
            window.page = 1
            side.focusSearch()
        }
    }
}
