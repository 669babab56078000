#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Runs every command that the documents show with its output, and compares.

    check-commands.py BUILD_DIR

A code block whose first line starts with "$ " is a transcript: lines with "$ " are typed, the others must be what is
printed. Blocks run in one folder a document, top to bottom, with the build's programs in front of the search path and
the build itself as build/release.
"""
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from blocks import ROOT, blocks, make_tree, pages


def transcripts(page):
    for block in blocks(page):
        if block.is_transcript():
            for part in re.split(r"^\$ ", block.text, flags=re.M)[1:]:
                command, _, said = part.partition("\n")
                yield command, said


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    environment = {**os.environ, "PATH": f"{build / 'bin'}{os.pathsep}{os.environ['PATH']}", "LC_ALL": "C.UTF-8",
                   "ZRSUPPLY_CATALOGUE": str(build / "share/zrsupplydatabase/sample.sqlite"), "NO_COLOR": "1",
                   "COLUMNS": "110"}
    run = failed = 0
    for page in pages():
        with tempfile.TemporaryDirectory() as folder:
            make_tree(folder, build, whole=False)
            for command, said in transcripts(page):
                run += 1
                done = subprocess.run(command, shell=True, cwd=folder, env=environment, text=True, check=False,
                                      stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                if done.stdout.rstrip() != said.rstrip():
                    failed += 1
                    print(f"{page.relative_to(ROOT)}: $ {command}")
                    print("\n".join(difflib.unified_diff(said.splitlines(), done.stdout.splitlines(),
                                                         "the document", "what is printed", lineterm="")))
    print(f"{run} commands run, {failed} print something else")
    return 1 if failed or not run else 0


if __name__ == "__main__":
    sys.exit(main())
