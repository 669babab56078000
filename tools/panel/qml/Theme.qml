// SPDX-License-Identifier: LGPL-2.1-or-later
pragma Singleton
import QtQuick

/// Colours and measures. One accent; warning and problem are kept for what they mean. The window sets what it is for.
QtObject {
    id: theme

    property bool dark: false
    property bool compact: false

    readonly property color window: dark ? "#12171a" : "#eef0ed"
    readonly property color surface: dark ? "#1b2226" : "#ffffff"
    readonly property color raised: dark ? "#253035" : "#f5f6f4"
    readonly property color line: dark ? "#364249" : "#d5dad6"
    readonly property color ink: dark ? "#edf1f0" : "#182024"
    readonly property color muted: dark ? "#a3b0b5" : "#566268"
    readonly property color accent: dark ? "#4fcdb9" : "#0b6e63"
    readonly property color accentInk: dark ? "#06211d" : "#ffffff"
    readonly property color accentWash: dark ? "#173a36" : "#dcefeb"
    readonly property color warning: dark ? "#f2b54a" : "#8a5200"
    readonly property color warningWash: dark ? "#382c13" : "#fdf0d9"
    readonly property color problem: dark ? "#ff9488" : "#ad2319"
    readonly property color problemWash: dark ? "#401f1c" : "#fbe7e4"

    /// Of the fields of a tag: enough for neighbours never to look alike.
    readonly property var fieldColors: dark
        ? ["#2f6f67", "#7a5a1e", "#3e5f8f", "#7b4465", "#55702f", "#5a4f8c", "#8a4a33", "#2e6a80"]
        : ["#a8dcd3", "#f3d79a", "#b9d0f2", "#ecc0d8", "#cfe0a6", "#cfc7f0", "#f2c3ae", "#b2dcea"]

    readonly property int small: compact ? 10 : 12
    readonly property int body: compact ? 12 : 14
    readonly property int heading: compact ? 13 : 16
    readonly property int large: compact ? 16 : 24
    readonly property int gap: compact ? 6 : 12
    readonly property int radius: compact ? 6 : 10
    readonly property int control: compact ? 30 : 38

    function severityColor(severity: string): color {
        switch (severity) {
        case "problem": return problem
        case "warning": return warning
        case "good": return accent
        default: return muted
        }
    }
    function severityWash(severity: string): color {
        switch (severity) {
        case "problem": return problemWash
        case "warning": return warningWash
        case "good": return accentWash
        default: return raised
        }
    }
    function fieldColor(field: int): color {
        return field < 0 ? "transparent" : fieldColors[field % fieldColors.length]
    }
}
