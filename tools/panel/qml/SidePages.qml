// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// The pages on which things are tried.
Card {
    id: pages

    required property Panel panel
    property int page: 1
    signal openCatalogue()
    signal saveSession()
    signal playSession()

    function focusSearch() {
        load.field.forceActiveFocus()
    }

    StackLayout {
        anchors.fill: parent
        currentIndex: pages.page - 1
        LoadPage { id: load; panel: pages.panel }
        MileagePage { panel: pages.panel }
        TagPage { panel: pages.panel }
        ChecksPage { panel: pages.panel }
        LogPage {
            panel: pages.panel
            onSave: pages.saveSession()
            onPlay: pages.playSession()
        }
        SetupPage {
            panel: pages.panel
            onOpenCatalogue: pages.openCatalogue()
        }
    }
}
