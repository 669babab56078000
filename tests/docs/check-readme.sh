#!/bin/sh
# The README's example is examples/01-lookup to the letter. What it prints is check-commands.py's to look at.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

awk '/^```cpp$/ { on = 1; next } /^```$/ { on = 0 } on' "$root/README.md" >"$work/example.cpp"
diff -u "$root/examples/01-lookup/main.cpp" "$work/example.cpp" || {
    echo "README.md does not quote examples/01-lookup/main.cpp as it is" >&2
    exit 1
}
