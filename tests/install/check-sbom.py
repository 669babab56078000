#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Compares the installed bill of materials with what the installed programs and libraries need, which is DT_NEEDED.

    check-sbom.py PREFIX
"""
import json
import pathlib
import re
import subprocess
import sys

# A sanitizer or a profiler is no part of what is shipped.
INSTRUMENTS = re.compile(r"lib(asan|ubsan|tsan|gcov)\.so")


def dynamic(path, kind):
    done = subprocess.run(["readelf", "-d", path], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
    return re.findall(rf"\({kind}\).*\[(.*)\]", done.stdout)


def main():
    prefix = pathlib.Path(sys.argv[1])
    bill = json.loads((prefix / "share/sbom/zrsupplydatabase.cdx.json").read_text(encoding="utf-8"))
    wrong = []
    if (bill["bomFormat"], bill["specVersion"]) != ("CycloneDX", "1.5"):
        wrong.append("it is no CycloneDX 1.5")
    components = {component["bom-ref"]: component for component in bill["components"]}
    by_soname = {row["value"]: ref for ref, component in components.items() for row in component["properties"]}
    needs = {row["ref"]: set(row["dependsOn"]) for row in bill["dependencies"]}
    if set(needs) != set(components):
        wrong.append(f"components and dependencies name different things: {sorted(set(needs) ^ set(components))}")
    for ref in sorted({"qtbase", "sqlite", "zrsupplydatabase"} - {ref for ref, row in components.items() if "version" in row}):
        wrong.append(f"{ref} has no version")

    checked = set()
    files = [path for path in [*prefix.glob("bin/*"), *prefix.glob("lib*/**/*.so*")] if not path.is_symlink()]
    for path in filter(pathlib.Path.is_file, files):
        found = {name for name in dynamic(path, "NEEDED") if not INSTRUMENTS.match(name)}
        if not found:
            continue
        soname = dynamic(path, "SONAME")
        ref = by_soname.get(soname[0]) if soname else path.name
        if ref not in components:
            wrong.append(f"{path.name} is installed and not listed")
            continue
        checked.add(ref)
        for name in sorted(found - set(by_soname)):
            wrong.append(f"{path.name} needs {name}, which no component has")
        listed, needed = needs[ref], {by_soname[name] for name in found & set(by_soname)}
        for name in sorted(needed - listed):
            wrong.append(f"{ref} needs {name}, which is not listed")
        for name in sorted(listed - needed):
            wrong.append(f"{ref} does not need {name}, which is listed")
    if len(checked) < 3:
        wrong.append(f"only {sorted(checked)} were found in {prefix}")
    if wrong:
        raise SystemExit("\n".join(wrong) + "\nThe list is cmake/ZrSbom.cmake.")
    print(f"{len(checked)} programs and libraries, {len(components)} components")


if __name__ == "__main__":
    main()
