// SPDX-License-Identifier: LGPL-2.1-or-later
import QtQuick
import ZrSupply.Panel

Text {
    color: Theme.ink
    font.pixelSize: Theme.body
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignLeft
    textFormat: Text.PlainText
}
