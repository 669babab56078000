// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import QtQuick.Dialogs
import ZrSupply.Panel

/// The dialogs for files; loaded when the first one is wanted, which keeps the start short.
Item {
    id: dialogs

    required property Panel panel

    function open(what: string) {
        switch (what) {
        case "catalogue": catalogue.open(); break
        case "save": save.open(); break
        case "play": play.open(); break
        }
    }

    FileDialog {
        id: catalogue
        objectName: "catalogueDialog"
        title: qsTr("Open a catalogue")
        nameFilters: [qsTr("Catalogues (*.sqlite *.db)"), qsTr("All files (*)")]
        onAccepted: dialogs.panel.openCatalogueUrl(selectedFile)
    }
    FileDialog {
        id: save
        objectName: "saveDialog"
        title: qsTr("Save the log as a session")
        fileMode: FileDialog.SaveFile
        defaultSuffix: "session"
        nameFilters: [qsTr("Sessions (*.session)"), qsTr("All files (*)")]
        onAccepted: dialogs.panel.saveSessionUrl(selectedFile)
    }
    FileDialog {
        id: play
        objectName: "playDialog"
        title: qsTr("Play a session")
        nameFilters: [qsTr("Sessions (*.session)"), qsTr("All files (*)")]
        onAccepted: dialogs.panel.playSessionUrl(selectedFile)
    }
}
