#!/usr/bin/env python3
"""Makes the manual pages and the completions of the command from its table.

    make-pages.py TABLE.json FOLDER DATE

TABLE.json is what `zrsupply help --json` prints. FOLDER gets man1/, bash/, zsh/ and fish/; what it held before goes, so
that the page of a verb that is gone does not stay. DATE, year-month-day, stands in the pages.
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
    if len(sys.argv) != 4:
        raise SystemExit(__doc__)
    table = Table(sys.argv[1])
    folder = pathlib.Path(sys.argv[2])
    files = {**manual.pages(table, sys.argv[3]),
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
