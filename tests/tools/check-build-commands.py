#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Checks that no step of a build runs a program that the build has linked: on a build for another machine it could not.

    check-build-commands.py BUILD.ninja
"""
import pathlib
import re
import sys


def main():
    file = pathlib.Path(sys.argv[1]).resolve()
    text = file.read_text(encoding="utf-8").replace("$\n", "")
    linked = {output for outputs in re.findall(r"^build (.+?): CXX_EXECUTABLE_LINKER_", text, re.M)
              for output in outputs.replace(" |", "").split()}
    linked |= {str(file.parent / output) for output in linked}
    commands = re.findall(r"^build (.+?): CUSTOM_COMMAND .*\n(?:  .*\n)*?  COMMAND = (.*)$", text, re.M)
    if not linked or not commands:
        raise SystemExit(f"{file} has {len(linked)} programs and {len(commands)} commands; its format has changed: "
                         f"update {sys.argv[0]}")
    wrong = [f"{output}: {command}" for output, command in commands if linked & set(re.split(r"[\s\"'()]+", command))]
    print(f"{len(commands)} commands, {len(linked) // 2} programs")
    if wrong:
        raise SystemExit("These steps run a program that the build has linked:\n" + "\n".join(wrong))


if __name__ == "__main__":
    main()
