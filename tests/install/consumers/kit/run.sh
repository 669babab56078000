#!/bin/sh
# SPDX-License-Identifier: LGPL-2.1-or-later
# The reasons of every roll and ribbon of the sample, beside those of the installed command: the same JSON.
set -eu
catalogue=$2
# The command is installed beside the library, in a prefix whose library folder may have more than one level.
prefix=$(dirname "$PKG_CONFIG_PATH")
while [ ! -x "$prefix/bin/zrsupply" ]; do
    [ "$prefix" != / ] || { echo "no zrsupply is installed beside $PKG_CONFIG_PATH" >&2; exit 1; }
    prefix=$(dirname "$prefix")
done
command=$prefix/bin/zrsupply
./consumer "$catalogue" >reasons.tsv
python3 - "$command" "$catalogue" <<'PYTHON'
import concurrent.futures, json, subprocess, sys

command, catalogue = sys.argv[1:]
rows = [line.rstrip("\n").split("\t") for line in open("reasons.tsv", encoding="utf-8")]


def differs(row):
    roll, first, second, reasons = row
    done = subprocess.run([command, "explain", "--roll", roll, "--ribbons", first, second, "--json", "--no-guard",
                           "--catalogue", catalogue], capture_output=True, text=True)
    if done.returncode != 0:
        return f"{roll} with {first} and {second}: {done.stderr}"
    if json.loads(done.stdout)["checks"] != json.loads(reasons):
        return f"{roll} with {first} and {second}: the command has\n{done.stdout}\nthe kit has\n{reasons}"
    return None


with concurrent.futures.ThreadPoolExecutor(2) as pool:
    wrong = [text for text in pool.map(differs, rows) if text]
print("\n".join(wrong[:3]) or f"{len(rows)} pairs, the same reasons")
sys.exit(1 if wrong or not rows else 0)
PYTHON
