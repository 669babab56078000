#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Puts inputs of a fuzzer's corpus into the tree's, smallest first, as long as the folder stays small.

usage: keep-corpus.py FROM TO

Seeds, whose names begin with "seed-", stay; other inputs are replaced. The folder TO holds at most 190,000 bytes then.
"""
import pathlib
import shutil
import sys

LIMIT = 190_000


def main():
    source, target = (pathlib.Path(argument) for argument in sys.argv[1:])
    used = 0
    seeds = set()
    for path in target.iterdir():
        if path.name.startswith("seed-"):
            used += path.stat().st_size
            seeds.add(path.read_bytes())
        else:
            path.unlink()
    kept = 0
    for path in sorted(source.iterdir(), key=lambda one: (one.stat().st_size, one.name)):
        size = path.stat().st_size
        if used + size > LIMIT:
            break
        if path.read_bytes() not in seeds:
            shutil.copyfile(path, target / path.name)
            used += size
            kept += 1
    print(f"{target}: {kept} inputs beside {len(seeds)} seeds, {used} bytes")


if __name__ == "__main__":
    main()
