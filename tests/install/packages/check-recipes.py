#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Holds the recipes under packaging/ to the build: they set options that exist, leave none open that is on by default, and
agree with the project's version and licence file. Whether they build is for those who have the build system. What the
Debian packages need for their build is in the groups of scripts/bootstrap that scripts/package installs.

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


def not_installed(root):
    """The packages that packaging/debian/control needs for the build, less those that scripts/package installs."""
    groups = dict(re.findall(r"^    (\w+)\) echo (.*?);;", (root / "scripts/bootstrap").read_text(), re.M | re.S))
    called = re.search(r"^scripts/bootstrap (.+)$", (root / "scripts/package").read_text(), re.M)[1].split()
    installed = {package for group in called for package in groups[group].split()}
    control = (root / "packaging/debian/control").read_text()
    field = re.search(r"^Build-Depends:((?:\n .*)+)", control, re.M)[1]
    needed = {re.match(r"[a-z0-9.+-]+", item.strip())[0] for item in field.split(",") if item.strip()}
    needed = {"debhelper" if package == "debhelper-compat" else package for package in needed}
    return sorted(needed - installed)


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
    wrong += [f"scripts/bootstrap does not install {package}, which packaging/debian/control needs for the build"
              for package in not_installed(root)]
    if wrong:
        raise SystemExit("\n".join(wrong))
    print(f"{len(RECIPES)} recipes, {len(options)} options")


if __name__ == "__main__":
    main()
