#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# The README's example is examples/01-lookup to the letter, without the line that names the licence. What it prints is check-commands.py's to look at.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

awk '/^```cpp$/ { on = 1; next } /^```$/ { on = 0 } on' "$root/README.md" >"$work/example.cpp"
sed 1d "$root/examples/01-lookup/main.cpp" >"$work/main.cpp"
diff -u "$work/main.cpp" "$work/example.cpp" || {
    echo "README.md does not quote examples/01-lookup/main.cpp as it is" >&2
    exit 1
}
