#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# qmllint is silent about every file, and every file is small.
#
#   check-qml.sh QMLLINT QML_DIR IMPORT_DIR
set -eu
lint=$1 sources=$2 imports=$3
longest=150

for file in "$sources"/*.qml; do
    lines=$(wc -l <"$file")
    [ "$lines" -le "$longest" ] || { echo "$file has $lines lines; split it, $longest are the most" >&2; exit 1; }
done
said=$("$lint" -I "$imports" "$sources"/*.qml 2>&1) || { echo "$said" >&2; exit 1; }
[ -z "$said" ] || { echo "$said" >&2; exit 1; }
