#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# The README's example is examples/01-lookup to the letter, the guide's upgrade the function that tst_hostguide runs. What
# they print is check-commands.py's to look at.
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

test=$root/tests/src/lifetime/tst_hostguide.cpp
awk '/^```cpp upgrade$/ { on = 1; next } /^```$/ { on = 0 } on' "$root/docs/host-guide.md" >"$work/quoted.cpp"
awk '$0 == "//! [upgrade]" { on = !on; next } on' "$test" >"$work/run.cpp"
[ -s "$work/run.cpp" ] && diff -u "$work/run.cpp" "$work/quoted.cpp" || {
    echo "docs/host-guide.md does not quote the function upgrade() of $test as it is" >&2
    exit 1
}

# The least versions in the guide are those that CMakeLists.txt requires.
number='[0-9]\+\.[0-9]\+'
cmake=$(sed -n "s/^cmake_minimum_required(VERSION \($number\))/\1/p" "$root/CMakeLists.txt")
qt=$(sed -n "s/^find_package(Qt6 \($number\) .*/\1/p" "$root/CMakeLists.txt" | head -n 1)
for row in "| Qt (Core, SQL, the driver \`QSQLITE\`) | $qt |" "| CMake | $cmake |"; do
    grep -qF "$row" "$root/docs/host-guide.md" || {
        echo "docs/host-guide.md has no row that begins with \"$row\", as CMakeLists.txt requires" >&2
        exit 1
    }
done
