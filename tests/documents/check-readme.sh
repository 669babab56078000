#!/bin/sh
# The README's example is examples/01-lookup to the letter, and prints what the README says.
#
#   check-readme.sh EXAMPLES_BIN_DIR CATALOGUE
set -eu
bin=$1 catalogue=$2
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

awk '/^```cpp$/ { on = 1; next } /^```$/ { on = 0 } on' "$root/README.md" >"$work/example.cpp"
diff -u "$root/examples/01-lookup/main.cpp" "$work/example.cpp" || {
    echo "README.md does not quote examples/01-lookup/main.cpp as it is" >&2
    exit 1
}

awk '/^\$ .*01-lookup/ { on = 1; next } /^```$/ { on = 0 } on' "$root/README.md" >"$work/said"
[ -s "$work/said" ] || { echo "README.md shows no output of the example" >&2; exit 1; }
"$bin/01-lookup" "$catalogue" >"$work/printed"
diff -u "$work/said" "$work/printed" || { echo "the example does not print what README.md says" >&2; exit 1; }
