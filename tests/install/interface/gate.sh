#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Holds what hosts depend on to what was agreed, or agrees to what is there now.
#
#   gate.sh check|accept declarations|symbols|abi SOURCE_ROOT LIBRARY [PLATFORM]
#
# A dump of `abi` belongs to the PLATFORM on which it was taken, compiler and Qt: tests/data/abi-platform.txt names it.
# Elsewhere `check abi` says so and exits with 77, which CTest counts as skipped.
# `check` compares and, on a difference, says what it means; `accept` writes the list anew. scripts/accept-interface
# is what a person calls. LIBRARY holds debug information, which `abi` reads.
set -eu
LC_ALL=C
export LC_ALL
action=$1 gate=$2 root=$3 library=$4 platform=${5:-}
taken_on=$root/tests/data/abi-platform.txt
if [ "$gate" = abi ]; then
    [ -n "$platform" ] || { echo "gate.sh: abi needs the platform as the fifth argument" >&2; exit 2; }
    if [ "$action" = check ] && [ "$platform" != "$(cat "$taken_on")" ]; then
        echo "Skipped: the ABI baseline was taken on $(cat "$taken_on"); this is $platform"
        exit 77
    fi
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

public_headers="zrsupplydatabase_global.h zrsupplydatabase.h tag/supplyc.h"

# The public headers without comments and layout: one declaration a line, in order, with names and defaults.
list_declarations() {
    for header in $public_headers; do
        echo "== $header"
        sed -e 's://.*$::' "$root/src/$header" | awk '
            /^[ \t]*#/ { print_joined(); print; next }
            { text = text " " $0 }
            function print_joined() {
                gsub(/[ \t]+/, " ", text)
                gsub(/[;{}]/, "&\n", text)
                gsub(/(public|private|protected)( Q_SLOTS)? ?:[^:]|Q_SIGNALS ?:/, "&\n", text)
                gsub(/Q_OBJECT/, "&\n", text)
                gsub(/\n +/, "\n", text)
                gsub(/ +\n/, "\n", text)
                gsub(/\n+/, "\n", text)
                sub(/^[ \n]+/, "", text)
                sub(/[ \n]+$/, "", text)
                if (text != "")
                    print text
                text = ""
            }
            END { print_joined() }'
    done
}

# mangled name, tab, what it is; a sanitizer's own marks are not interface.
list_symbols() {
    nm -D --defined-only "$library" | awk '$NF !~ /^__(odr_)?asan/ { print $NF }' | sort >"$work/mangled"
    c++filt <"$work/mangled" >"$work/readable"
    paste "$work/mangled" "$work/readable"
}

# Places in source files are left out: moving a line changes no interface.
list_abi() {
    abidw --exported-interfaces-only --drop-undefined-syms --no-corpus-path --no-comp-dir-path --no-show-locs \
        --no-elf-needed --type-id-style hash --out-file "$work/abi" "$library" &&
        sed -E "s#path='/[^']*/((src|tests)/[^']*)'#path='\\1'#" "$work/abi" # the same from every folder
}

# How to go on after a difference. The two questions are the same for all lists; what is broken differs.
explain() {
    cat >&2 <<EOF

tests/data/$list no longer says what is there ($meaning).

What it means for hosts:
$consequences

If it was not meant, take the change back. If it was:
  1. scripts/accept-interface        writes tests/data/$list anew; commit it with the change, named in the subject
  2. hosts keep working unchanged:   raise the minor version in CMakeLists.txt
     hosts must be changed or built again: raise the major version in CMakeLists.txt; it is the SOVERSION too, so that
     old hosts go on with the old library, and the packages in packaging/debian are renamed with it
EOF
}

case $gate in
declarations)
    list=declarations.txt
    meaning="the declarations in the public headers; - was agreed, + is there now"
    consequences='  A parameter'"'"'s name, a default or the order of slots changed: hosts that call by name or by index break without
  an error from any compiler. Major version.
  A declaration went or changed its types: hosts do not compile, and built ones do not start. Major version.
  A slot or signal was added in between: every later index moves. Major version; nothing is ever put in between.
  A private member was added or changed its type: the object'"'"'s size or layout moves under built hosts. Major version.
  A private helper function was added, changed or removed: hosts see nothing. No new version.
  A member function was added that is no slot, signal or virtual: hosts keep working. Minor version.'
    list_declarations >"$work/now"
    ;;
symbols)
    list=symbols.txt
    meaning="what the library exports; - was agreed, + is there now"
    consequences='  A name went: hosts that were linked with it do not start (undefined symbol). Major version.
  A name came that is meant for hosts: they keep working. Minor version.
  A name came that is not meant for hosts: list it under "local" in src/zrsupplydatabase.map, and nothing changes.'
    list_symbols >"$work/now"
    ;;
abi)
    list=abi-baseline.xml
    meaning="layout, virtual functions and signatures in the built library, as abidiff reads them"
    consequences='  Size, offset, base class, virtual function or a signature changed: built hosts misread the object. Major version.
  Functions were added and nothing else: hosts keep working. Minor version.'
    list_abi >"$work/now" || { echo "abidw cannot read $library" >&2; exit 1; }
    # A baseline that knows few functions would find few changes.
    functions=$(grep -c 'elf-symbol-id=' "$work/now" || true)
    symbols=$(nm -D --defined-only "$library" | wc -l)
    if [ "$((functions + 10))" -lt "$symbols" ]; then
        echo "abidw describes $functions of the $symbols names that $library exports; was it built with -g?" >&2
        exit 1
    fi
    ;;
*)
    echo "usage: gate.sh check|accept declarations|symbols|abi SOURCE_ROOT LIBRARY" >&2
    exit 2
    ;;
esac
agreed=$root/tests/data/$list
packaged=$root/packaging/debian/libzrsupplydatabase1.symbols

if [ "$action" = accept ]; then
    cp "$work/now" "$agreed"
    [ "$gate" != abi ] || echo "$platform" >"$taken_on"
    if [ "$gate" = symbols ]; then
        # Names that stay keep the version they came with.
        version=$(sed -n 's/^    VERSION \([0-9.]*\)$/\1/p' "$root/CMakeLists.txt" | head -n 1)
        cut -f1 "$work/now" >"$work/names"
        { grep -v '^ _Z\|^ unset' "$packaged" 2>/dev/null ||
            printf 'libzrsupplydatabase.so.1 libzrsupplydatabase1 #MINVER#\n* Build-Depends-Package: %s\n' \
                libzrsupplydatabase-dev; } >"$work/head"
        while read -r name; do
            grep "^ $name@" "$packaged" 2>/dev/null || echo " $name@Base $version"
        done <"$work/names" >"$work/rows"
        cat "$work/head" "$work/rows" >"$packaged"
    fi
    exit 0
fi

[ -f "$agreed" ] || { echo "$agreed is missing; scripts/accept-interface writes it" >&2; exit 1; }
if [ "$gate" = abi ]; then
    status=0
    abidiff --no-show-locs "$agreed" "$library" >"$work/said" 2>&1 || status=$?
    if [ $status -ne 0 ]; then
        cat "$work/said" >&2
        explain
        exit 1
    fi
else
    if ! diff -U0 --label agreed --label now "$agreed" "$work/now" >"$work/said"; then
        grep -v '^@@' "$work/said" >&2
        explain
        exit 1
    fi
fi
if [ "$gate" = symbols ]; then
    sed -n 's/^ \([^@]*\)@.*/\1/p' "$packaged" | sort >"$work/packaged"
    cut -f1 "$work/now" >"$work/names"
    if ! diff -U0 --label packaged --label exported "$work/packaged" "$work/names" >"$work/said"; then
        grep -v '^@@' "$work/said" >&2
        echo "$packaged is not what the library exports; scripts/accept-interface writes it anew" >&2
        exit 1
    fi
fi
