// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Layouts
import ZrSupply.Panel

/// Language, printer, appearance, catalogue.
GridLayout {
    id: page

    required property Panel panel
    signal openCatalogue()

    columns: 2
    columnSpacing: Theme.gap * 2
    rowSpacing: Theme.compact ? 6 : 18

    PanelText { text: qsTr("Language of the names"); color: Theme.muted }
    PanelCombo {
        objectName: "language"
        says: qsTr("Language of the catalogue's names")
        model: page.panel.languages
        textRole: "name"
        currentIndex: page.panel.languageRow
        onActivated: index => page.panel.chooseLanguage(index)
        Layout.fillWidth: true
    }
    PanelText { text: qsTr("Printer"); color: Theme.muted }
    PanelCombo {
        objectName: "printer"
        says: qsTr("Printer that the roll's type is asked for")
        model: page.panel.printers
        currentIndex: page.panel.printerRow
        onActivated: index => page.panel.choosePrinter(index)
        Layout.fillWidth: true
    }
    PanelText { text: qsTr("Appearance"); color: Theme.muted }
    PanelSwitch {
        objectName: "appearance"
        labels: [qsTr("System"), qsTr("Light"), qsTr("Dark")]
        says: qsTr("Appearance")
        current: page.panel.appearance
        onChosen: index => page.panel.appearance = index
    }
    PanelText { text: qsTr("Catalogue"); color: Theme.muted; Layout.alignment: Qt.AlignTop; Layout.topMargin: 8 }
    ColumnLayout {
        Layout.fillWidth: true
        PanelButton {
            text: qsTr("Open catalogue")
            says: qsTr("Open a catalogue file")
            glyph: "open"
            onClicked: page.openCatalogue()
        }
        PanelText {
            text: page.panel.cataloguePath.length > 0 ? page.panel.cataloguePath
                                                      : qsTr("None is open; drop a file here or open one.")
            color: Theme.muted
            font.pixelSize: Theme.small
            wrapMode: Text.WrapAnywhere
            maximumLineCount: Theme.compact ? 1 : 3
            Layout.fillWidth: true
        }
    }
    Item { Layout.fillHeight: true; Layout.columnSpan: 2 }
}
