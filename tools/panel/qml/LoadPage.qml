// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import ZrSupply.Panel

/// Any roll or ribbon of the catalogue, found by typing.
ColumnLayout {
    id: page

    required property Panel panel
    property int place: 0 // the roll, ribbon 1, ribbon 2
    readonly property var offers: place === 0 ? panel.rolls : panel.ribbons
    readonly property Item field: search

    spacing: Theme.gap

    function load(sku: string) {
        if (place === 0)
            panel.loadRoll(sku)
        else
            panel.loadRibbon(place, sku)
    }

    RowLayout {
        spacing: Theme.gap
        PanelSwitch {
            objectName: "place"
            labels: [qsTr("Roll"), qsTr("Ribbon 1"), qsTr("Ribbon 2")]
            says: qsTr("What to load")
            current: page.place
            onChosen: index => page.place = index
        }
        Item { Layout.fillWidth: true }
        PanelButton {
            objectName: "takeOut"
            text: qsTr("Take out")
            says: qsTr("Take the ribbon out")
            opacity: page.place > 0 ? 1 : 0
            enabled: page.place > 0
            onClicked: page.panel.loadRibbon(page.place, "")
        }
    }
    PanelField {
        id: search
        objectName: "search"
        says: qsTr("Search by SKU, colour, material or size")
        placeholderText: says
        glyph: "search"
        text: page.offers.search
        onTextEdited: page.offers.search = text
        onAccepted: list.forceActiveFocus()
        Keys.onDownPressed: list.forceActiveFocus()
        Layout.fillWidth: true
    }
    ListView {
        id: list
        objectName: "offers"
        model: page.offers
        clip: true
        activeFocusOnTab: true
        currentIndex: 0
        boundsBehavior: Flickable.StopAtBounds
        Layout.fillWidth: true
        Layout.fillHeight: true
        Accessible.role: Accessible.List
        Accessible.name: page.place === 0 ? qsTr("Rolls") : qsTr("Ribbons")
        Keys.onReturnPressed: if (currentItem) (currentItem as OfferRow).chosen()
        Keys.onEnterPressed: if (currentItem) (currentItem as OfferRow).chosen()
        Keys.onSpacePressed: if (currentItem) (currentItem as OfferRow).chosen()
        T.ScrollBar.vertical: PanelScrollBar { }

        delegate: OfferRow {
            width: ListView.view.width
            current: ListView.isCurrentItem && ListView.view.activeFocus
            onChosen: {
                list.currentIndex = index
                page.load(sku)
            }
        }
        PanelText {
            anchors.centerIn: parent
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            visible: list.count === 0
            text: page.offers.offered === 0 ? qsTr("No catalogue is open") : qsTr("Nothing has these words")
            color: Theme.muted
        }
    }
    PanelText {
        text: qsTr("%1 of %2").arg(page.offers.found).arg(page.offers.offered)
        color: Theme.muted
        font.pixelSize: Theme.small
    }
}
