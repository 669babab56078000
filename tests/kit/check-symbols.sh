#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# The programs have no copy of what the kit exports: they name it as undefined, and its library defines it.
#
#   check-symbols.sh KIT PROGRAM...
set -eu
LC_ALL=C
export LC_ALL
kit=$1
shift
exported=$(nm -D --defined-only -C "$kit" | grep -c ' T ZrSupplyKit::' || true)
[ "$exported" -gt 20 ] || { echo "$kit exports $exported functions of ZrSupplyKit" >&2; exit 1; }
foreign=$(nm -D --defined-only -C "$kit" | grep -vE '^[0-9a-f]* [A-Z] ((typeinfo|typeinfo name|vtable) for )?ZrSupplyKit::|__(odr_)?asan' || true)
[ -z "$foreign" ] || { printf '%s exports what is not the kit:\n%s\n' "$kit" "$foreign" >&2; exit 1; }
for program; do
    nm -C --undefined-only "$program" | grep -q ' U ZrSupplyKit::' ||
        { echo "$program uses nothing of the kit" >&2; exit 1; }
    # Constructors and destructors of its plain structs are compiled where they are used.
    nm -D -C --defined-only "$kit" | sed -n 's/^[0-9a-f]* T //p' | sort -u >"${TMPDIR:-/tmp}/zrkit.$$"
    copies=$(nm -C --defined-only "$program" | sed -n 's/^[0-9a-f]* [TtWw] //p' | sort -u |
        comm -12 - "${TMPDIR:-/tmp}/zrkit.$$")
    rm -f "${TMPDIR:-/tmp}/zrkit.$$"
    [ -z "$copies" ] || { printf '%s has code of the kit:\n%s\n' "$program" "$copies" >&2; exit 1; }
done
