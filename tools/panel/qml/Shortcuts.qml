// SPDX-License-Identifier: LGPL-2.1-or-later
pragma ComponentBehavior: Bound
import QtQuick
import ZrSupply.Panel

/// Keys for everything that has no place of its own to be typed at.
Item {
    id: keys

    required property Panel panel
    signal pageChosen(int page)
    signal asked(string what)
    signal searchWanted()

    Repeater {
        model: 7
        Item {
            id: one
            required property int index
            Shortcut { sequence: "Ctrl+" + (one.index + 1); onActivated: keys.pageChosen(one.index) }
        }
    }
    Shortcut { sequence: "Ctrl+O"; onActivated: keys.asked("catalogue") }
    Shortcut { sequence: "Ctrl+S"; onActivated: keys.asked("save") }
    Shortcut { sequence: "Ctrl+P"; onActivated: keys.asked("play") }
    Shortcut { sequence: "Ctrl+F"; onActivated: keys.searchWanted() }
    Shortcut { sequence: "Ctrl+R"; onActivated: keys.panel.reset() }
    Shortcut { sequence: "Ctrl+D"; onActivated: keys.panel.appearance = keys.panel.dark ? 1 : 2 }
    Shortcut { sequence: "F5"; onActivated: keys.panel.runChecks() }
    Shortcut { sequence: "Escape"; onActivated: keys.panel.dismissMishap() }
}
