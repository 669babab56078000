#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Holds the recipes under packaging/ to the build: they set options that exist, leave none open that is on by default, and
agree with the project's version and licence file. Whether they build is for those who have the build system.

    check-recipes.py SOURCE_DIR
"""
import hashlib
import pathlib
import re
import sys

RECIPES = ["packaging/debian/rules", "packaging/yocto/zrsupplydatabase_{version}.bb",
           "packaging/buildroot/zrsupplydatabase.mk"]
# What CMake and its module CTest define.
OF_CMAKE = {"BUILD_TESTING", "CMAKE_BUILD_RPATH_USE_ORIGIN", "CMAKE_SKIP_INSTALL_RPATH",
            "CMAKE_INSTALL_DOCDIR", "CMAKE_DISABLE_FIND_PACKAGE_CuteLogger"}


def main():
    root = pathlib.Path(sys.argv[1])
    build = (root / "CMakeLists.txt").read_text()
    version = re.search(r"^    VERSION (\S+)$", build, re.M)[1]
    # A default of OFF needs no decision of a recipe.
    options = dict(re.findall(r"^\s*(?:cmake_dependent_)?option\((\w+) \"[^\"]*\" (\S+?)\)?(?: .*)?$", build, re.M))
    # The tests follow BUILD_TESTING; what is built is to be installed.
    decided_by = {"ZR_BUILD_TESTS": "BUILD_TESTING"}
    open_is_right = {"ZR_INSTALL", "BUILD_SHARED_LIBS"}
    wrong = [] if len(options) > 7 else [f"only {sorted(options)} were found in CMakeLists.txt"]
    for name in RECIPES:
        path = root / name.format(version=version)
        if not path.exists():
            wrong.append(f"{path} does not exist; its name has the version")
            continue
        text = re.sub(r"^\s*#.*", "", path.read_text(), flags=re.M)
        used = set(re.findall(r"-D(\w+)=", text))
        for option in sorted(used - set(options) - OF_CMAKE):
            wrong.append(f"{name} sets {option}, which is no option of the build")
        if name.startswith("packaging/debian"):
            continue  # the packages have everything
        for option, default in options.items():
            if default != "OFF" and option not in open_is_right and decided_by.get(option, option) not in used:
                wrong.append(f"{name} does not say whether {option} is on")
        if version not in path.name and not re.search(rf"_VERSION = {re.escape(version)}$", text, re.M):
            wrong.append(f"{name} is not for version {version}")
        for md5 in re.findall(r'file://LICENSE;md5=([^\s"]+)', text):
            if md5 != hashlib.md5((root / "LICENSE").read_bytes()).hexdigest():
                wrong.append(f"{name} has the checksum {md5} for LICENSE; md5sum LICENSE tells the right one")
    if wrong:
        raise SystemExit("\n".join(wrong))
    print(f"{len(RECIPES)} recipes, {len(options)} options")


if __name__ == "__main__":
    main()
