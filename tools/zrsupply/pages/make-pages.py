#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Makes the manual pages and the completions of the command from its table.

    make-pages.py TABLE.json FOLDER VERSION DATE

TABLE.json is the table.json beside this file. FOLDER gets man1/, bash/, zsh/ and fish/; what it held before is removed,
so that no page of a former verb stays. The pages show VERSION and DATE (year-month-day).
"""
import pathlib
import shutil
import sys

import bash
import fish
import manual
import zsh
from table import Table


def main():
    if len(sys.argv) != 5:
        raise SystemExit(__doc__)
    table = Table(sys.argv[1], sys.argv[3])
    folder = pathlib.Path(sys.argv[2])
    files = {**manual.pages(table, sys.argv[4]),
             f"bash/{table.program}": bash.script(table),
             f"zsh/_{table.program}": zsh.script(table),
             f"fish/{table.program}.fish": fish.script(table)}
    for name in {pathlib.Path(name).parts[0] for name in files}:
        shutil.rmtree(folder / name, ignore_errors=True)
    for name, text in files.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
