#!/usr/bin/env python3
"""Runs every command that the documents show with its output, and compares.

    check-commands.py BIN_DIR CATALOGUE

A code block whose first line starts with "$ zrsupply" is a transcript: lines with "$ " are typed, the others must be what
is printed. Blocks run in one folder a document, top to bottom, with BIN_DIR in front of the search path.
"""
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def transcripts(text):
    for block in re.findall(r"^```\w*\n(.*?)^```$", text, re.M | re.S):
        if block.startswith("$ zrsupply"):
            for part in re.split(r"^\$ ", block, flags=re.M)[1:]:
                command, _, said = part.partition("\n")
                yield command, said


def main():
    binaries, catalogue = map(os.path.abspath, sys.argv[1:3])
    environment = {**os.environ, "PATH": binaries + os.pathsep + os.environ["PATH"], "LC_ALL": "C.UTF-8",
                   "ZRSUPPLY_CATALOGUE": catalogue, "NO_COLOR": "1", "COLUMNS": "110"}
    run = failed = 0
    for page in [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]:
        with tempfile.TemporaryDirectory() as folder:
            for command, said in transcripts(page.read_text()):
                run += 1
                done = subprocess.run(command, shell=True, cwd=folder, env=environment, text=True,
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
