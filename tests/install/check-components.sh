#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs a build component by component: together they are what an installation without a component is, each file once
# and where packagers look for it.
#
#   check-components.sh BUILD_DIR WORK_DIR
set -eu
build=$1 work=$2
rm -rf "$work"
mkdir -p "$work"
cd "$work"

fail() {
    echo "FAIL: $1" >&2
    [ ! -f "${2:-}" ] || cat "$2" >&2
    exit 1
}
files_of() {
    (cd "$1" && find . ! -type d | sed 's:^\./::' | sort)
}

cmake --install "$build" --prefix "$work/all" >all.log 2>&1 || fail "the install step" all.log
files_of all >all.txt
for component in Runtime Development Guard Kit Tools Panel; do
    cmake --install "$build" --prefix "$work/$component" --component "$component" >"$component.log" 2>&1 ||
        fail "component $component does not install" "$component.log"
    mkdir -p "$component"
    files_of "$component" >"$component.txt"
done
cat Runtime.txt Development.txt Guard.txt Kit.txt Tools.txt Panel.txt | sort >together.txt
diff -u all.txt together.txt >difference.txt || fail "the components together are not the whole" difference.txt

# only COMPONENT REGEX: every file of the component is such a file, and there are some.
only() {
    [ -s "$1.txt" ] || fail "component $1 is empty"
    if grep -v -E "$2" "$1.txt" >odd.txt; then fail "component $1 has files that belong elsewhere:" odd.txt; fi
}
only Runtime '^lib.*/lib(zrsupplydatabase|CuteLogger)\.so\.[0-9.]+$|^share/(licenses|sbom)/'
only Development '^include/|^lib.*/(lib[a-zA-Z]+\.so|cmake/.*|pkgconfig/.*)$|^share/doc/'
only Guard '^lib.*/libzrsupplyguard\.so\.[0-9.]+$'
only Kit '^lib.*/libzrsupplykit\.so\.[0-9.]+$'
only Tools '^bin/zrsupply$|^share/(man|bash-completion|zsh|fish|zrsupplydatabase)/'
[ ! -s Panel.txt ] || only Panel '^bin/zrsupply-panel$|^share/(applications|icons)/'
