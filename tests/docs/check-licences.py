#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Checks that every source names its licence in its first lines. Data has it from .reuse/dep5, which `reuse lint` reads.

    check-licences.py SOURCE_DIR
"""
import pathlib
import sys

# In two pieces, or reuse would read it as this file's own.
LINE = "SPDX-License-" "Identifier: LGPL-2.1-or-later"
SUFFIXES = {".cpp", ".h", ".qml", ".py", ".sh", ".cmake", ".awk"}
OTHERS = {"CMakeLists.txt", "Makefile"}
NOT_OURS = {".git", ".cache", "build", "corpus"}


def sources(folder):
    for path in sorted(folder.iterdir()):
        if path.is_dir() and not path.is_symlink():
            if path.name not in NOT_OURS and not path.name.startswith("obj-"):
                yield from sources(path)
        elif path.suffix in SUFFIXES or path.name in OTHERS or (not path.suffix and path.read_bytes()[:2] == b"#!"):
            yield path


def main():
    root = pathlib.Path(sys.argv[1])
    checked, missing = 0, []
    for path in sources(root):
        checked += 1
        if LINE not in "\n".join(path.read_text(encoding="utf-8").splitlines()[:3]):
            missing.append(str(path.relative_to(root)))
    if checked < 300:
        raise SystemExit(f"only {checked} sources were found in {root}")
    if missing:
        raise SystemExit("\n".join(missing) + f"\nThese have no line with '{LINE}' at their top: add it as a comment.")
    print(f"{checked} sources")


if __name__ == "__main__":
    main()
