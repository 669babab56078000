#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# Proves built packages: what they hold and declare, a host built against the -dev package, and the command run in a
# root that has nothing but Debian's base and them.
#
#   check-packages.sh FOLDER_WITH_PACKAGES
set -eu
packages=$(cd "$1" && pwd)
source_root=$(cd "$(dirname "$0")/../../.." && pwd)
work=$(mktemp -d)
chmod 755 "$work"
trap 'rm -rf "$work"' EXIT

fail() {
    echo "FAIL: $*" >&2
    exit 1
}
package() {
    set -- "$packages/$1"_*.deb
    [ -f "$1" ] || fail "no package matches $1"
    echo "$1"
}

runtime="libzrsupplydatabase1 libzrsupplydatabase-cutelogger1 libzrsupplyguard1 libzrsupplykit1 zrsupply
    zrsupply-panel zrsupplydatabase-catalogue"
all="$runtime libzrsupplydatabase-dev libzrsupplydatabase-cutelogger-dev zrsupplydatabase-doc"
for name in $all; do dpkg-deb -x "$(package "$name")" "$work/root"; done

dpkg-deb -f "$(package libzrsupplydatabase1)" Depends | grep -q libqt6sql6-sqlite ||
    fail "libzrsupplydatabase1 does not depend on Qt's SQLite driver"
find "$work/root/usr/bin" "$work/root/usr/lib" -type f >"$work/files"
while read -r file; do
    if readelf -d "$file" 2>/dev/null | grep -E 'R(UN)?PATH'; then fail "${file#"$work/root"} has a run path"; fi
done <"$work/files"

# What people look for beside the program.
for file in man/man1/zrsupply.1.gz man/man1/zrsupply-tag-decode.1.gz bash-completion/completions/zrsupply \
    zsh/vendor-completions/_zrsupply fish/vendor_completions.d/zrsupply.fish applications/zrsupply-panel.desktop \
    doc/zrsupplydatabase-doc/reference/index.html doc/zrsupplydatabase-doc/host-guide.md; do
    [ -e "$work/root/usr/share/$file" ] || fail "no package has /usr/share/$file"
done

# A host, built against the unpacked -dev package with a bare compiler line.
libraries=$(dirname "$(find "$work/root" -name libzrsupplydatabase.so)")
PKG_CONFIG_PATH=$libraries/pkgconfig
export PKG_CONFIG_PATH
# shellcheck disable=SC2046 # flags are words
g++ -std=c++17 "$source_root/examples/02-load-a-roll/main.cpp" -o "$work/host" \
    $(pkg-config --cflags --libs zrsupplydatabase) -L"$libraries" -Wl,-rpath-link,"$libraries"
LD_LIBRARY_PATH=$libraries "$work/host" "$work/root/usr/share/zrsupplydatabase/sample.sqlite" >"$work/said"
grep -q '^3200000C8020804041410000 is 00143465: Vinyl, White, 4 in wide' "$work/said" ||
    fail "the host says: $(cat "$work/said")"
echo "A host built against the -dev package:"
sed 's/^/    /' "$work/said"

# The command. In a clean root apt takes what the packages declare and nothing else, which proves the declarations.
demo_is_right() {
    grep -q 'supplyChangedSignal "00144463"' "$1" || fail "the demo does not load the roll: $(cat "$1")"
}
mkdir "$work/debs"
for name in $runtime; do cp "$(package "$name")" "$work/debs"; done
suite=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
mirror=$(sed -n 's/^URIs: *//p; s/^deb \(http[^ ]*\) .*/\1/p' /etc/apt/sources.list.d/debian.sources \
    /etc/apt/sources.list 2>/dev/null | head -n 1)
# The tests of debian/tests follow in the same root, with what they declare and the -dev packages.
mkdir -p "$work/source/tests" "$work/source/debs"
cp -R "$source_root/tests/install" "$work/source/tests/"
cp -R "$source_root/packaging/debian" "$work/source/"
for name in $all; do cp "$(package "$name")" "$work/source/debs"; done
cat >"$work/source/run-tests" <<'EOF'
set -eu
cd /source
# The packages that the tests' Depends name; ours come from the folder.
depends=$(sed -n '/^Depends:/,/^[^ D]/{s/^Depends://; /^[^ ]/d; s/,/ /g; p}' debian/tests/control)
others=$(echo $depends | tr ' ' '\n' | grep -v zrsupply | sort -u)
apt-get -q -y install --no-install-recommends ./debs/*-dev_*.deb $others
for test in $(sed -n 's/^Tests://p' debian/tests/control); do
    AUTOPKGTEST_TMP=$(mktemp -d)
    export AUTOPKGTEST_TMP
    debian/tests/$test
    echo "$test passed" >>/tests.txt
done
EOF
# shellcheck disable=SC2016 # the hooks' own shell knows $1, the root
if mmdebstrap --quiet --variant=apt --format=null \
    --customize-hook='mkdir "$1/debs"' \
    --customize-hook="copy-in $work/debs /" \
    --customize-hook='chroot "$1" sh -c "apt-get -q -y install --no-install-recommends /debs/*.deb"' \
    --customize-hook='chroot "$1" env LC_ALL=C.UTF-8 zrsupply demo >"$1/demo.txt"' \
    --customize-hook="cp \"\$1/demo.txt\" $work/demo.txt" \
    --customize-hook='chroot "$1" env QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 zrsupply-panel --smoke' \
    --customize-hook='chroot "$1" dpkg-query -W >"$1/installed.txt"' \
    --customize-hook="cp \"\$1/installed.txt\" $work/installed.txt" \
    --customize-hook="copy-in $work/source /" \
    --customize-hook='chroot "$1" sh /source/run-tests' \
    --customize-hook="cp \"\$1/tests.txt\" $work/tests.txt" \
    "$suite" /dev/null "$mirror" >"$work/clean.log" 2>&1; then
    demo_is_right "$work/demo.txt"
    echo "Installed into a clean root of $suite with $(wc -l <"$work/installed.txt") packages; there zrsupply demo says:"
    sed 's/^/debian\/tests: /' "$work/tests.txt"
else
    tail -n 20 "$work/clean.log" >&2
    # Without a mirror or the right to make a root the packages are unpacked beside this system's Qt.
    if grep -q -E 'unmet dependencies|Unable to correct|dpkg: error|returned an error code' "$work/clean.log"; then
        fail "the packages do not install into a clean root, see above"
    fi
    echo "NOTE: no clean root could be made, see above; the packages are unpacked and run on this system instead" >&2
    LC_ALL=C.UTF-8 LD_LIBRARY_PATH=$libraries "$work/root/usr/bin/zrsupply" demo >"$work/demo.txt"
    demo_is_right "$work/demo.txt"
    echo "Unpacked into a scratch folder; there zrsupply demo says:"
fi
head -n 14 "$work/demo.txt" | sed 's/^/    /'
