#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Compares the committed command table, from which the manual pages and completions are made, with the command's own.

    check-table.py COMMAND TABLE.json [--accept]

COMMAND is the zrsupply that was built. --accept writes TABLE.json instead of comparing.
"""
import difflib
import json
import pathlib
import subprocess
import sys


def main():
    if len(sys.argv) not in (3, 4) or sys.argv[3:] not in ([], ["--accept"]):
        raise SystemExit(__doc__)
    command, table = sys.argv[1], pathlib.Path(sys.argv[2])
    printed = json.loads(subprocess.run([command, "help", "--json"], stdout=subprocess.PIPE, check=True).stdout)
    del printed["version"]  # the build knows it
    now = json.dumps(printed, indent=1, ensure_ascii=False) + "\n"
    if sys.argv[3:]:
        table.write_text(now, encoding="utf-8")
        return
    committed = table.read_text(encoding="utf-8")
    if committed != now:
        sys.stderr.writelines(difflib.unified_diff(committed.splitlines(True), now.splitlines(True), str(table),
                                                   "zrsupply help --json"))
        raise SystemExit(f"\n{table} is not what the command prints. Write it anew and commit it:\n"
                         f"  {sys.argv[0]} {command} {table} --accept")


if __name__ == "__main__":
    main()
