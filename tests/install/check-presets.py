#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""What the presets of hosts leave out: tests, the packages that only tests need, and warnings as errors.

    check-presets.py WORK_DIR
"""
import json
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
# The names of cache entries for what a library alone has no use for.
FOREIGN = re.compile(r"^(\w*(?:Python|SQLite3|LIBEDIT|DOXYGEN|ABIDIFF|Qt6(?:Test|Gui|Qml|Quick|Svg))\w*):.*=(?!.*NOTFOUND).+", re.M)


def variables(presets, name):
    preset = presets[name]
    inherited = preset.get("inherits", [])
    found = {}
    for parent in [inherited] if isinstance(inherited, str) else inherited:
        found = {**variables(presets, parent), **found}
    return {**found, **preset.get("cacheVariables", {})}


def configure(name, work):
    folder = work / name
    shutil.rmtree(folder, ignore_errors=True)
    subprocess.run(["cmake", "--preset", name, "-B", folder], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    said = subprocess.run(["ctest", "-N"], cwd=folder, check=True, text=True, stdout=subprocess.PIPE).stdout
    if "Total Tests: 0" not in said:
        raise SystemExit(f"The preset {name} configures tests:\n{said}")
    return folder


def main():
    work = pathlib.Path(sys.argv[1])
    presets = {preset["name"]: preset
               for preset in json.loads((ROOT / "CMakePresets.json").read_text())["configurePresets"]}
    strict = [name for name in presets if variables(presets, name).get("ZR_WARNINGS_AS_ERRORS") == "ON"]
    if not strict:
        raise SystemExit("No preset makes a warning an error; scripts/lint needs one.")
    for name in strict:
        if "CMAKE_CXX_COMPILER" not in variables(presets, name):
            raise SystemExit(f"The preset {name} makes a warning an error and leaves the compiler open: a newer one "
                             "would break the build. Name the compiler or leave ZR_WARNINGS_AS_ERRORS out.")

    configure("release", work)
    library = configure("library", work)
    foreign = [found[1] for found in FOREIGN.finditer((library / "CMakeCache.txt").read_text())]
    if foreign:
        raise SystemExit(f"The preset library looks for {', '.join(foreign)}; it may need Qt's base package alone.")
    print(f"{', '.join(strict)}: warnings are errors; release and library: no tests")


if __name__ == "__main__":
    main()
