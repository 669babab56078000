#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Compiles, configures or runs every fenced block of the documents that is no transcript (those are check-commands.py's),
and fails for a block that no rule covers.

    check-blocks.py BUILD_DIR PREFIX        PREFIX: the library as installed; CXX and CXXFLAGS are those of its build

cpp     A program or a function is compiled as it is. The statements of a page are compiled in their order as the body of one function
        that returns an int, below the lines that include the public headers and below the blocks' own #include lines.
cmake   The lines of a host's CMakeLists.txt behind project() and add_executable(host main.cpp): configured, built, run.
json    Read as JSON.
sql     Asked of the sample catalogue.
(none)  Command lines, "# " begins a remark: typed in a clone with build/release in it, except for what
        installs packages or builds everything, of which it is known that it exists. Or lines that name a verb and, behind
        two blanks, what it does: verb and options exist. Or a picture, drawn with lines or arrows.
"""
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

from blocks import ROOT, blocks, make_tree, pages

HOW_TO_COVER = """  Make it a transcript ("$ " before what is typed, then the output), or label it cpp, cmake, json or sql so that
  tests/docs/check-blocks.py checks it; for another kind of block add a rule there. A picture has lines or arrows."""
PICTURE = re.compile(r"[─│├└►]|->")
INCLUDES = """#include <QtCore>
#include <QtSql>
#include <Logger.h>
#include <ConsoleAppender.h>
#include <tag/supplyc.h>
#include <zrsupplydatabase.h>
#if __has_include(<zrsupplyguard.h>)
#include <zrsupplyguard.h>
#endif
"""


class Wrong(Exception):
    pass


class Checker:
    def __init__(self, build, prefix, folder):
        self.build, self.prefix, self.folder = build, prefix, pathlib.Path(folder)
        self.tree = self.folder / "clone"
        self.tree.mkdir()
        make_tree(self.tree, build)
        self.catalogue = build / "share/zrsupplydatabase/sample.sqlite"
        pkg_config = next(prefix.rglob("zrsupplydatabase.pc")).parent
        self.environment = {**os.environ, "PATH": f"{build / 'bin'}{os.pathsep}{os.environ['PATH']}",
                            "PKG_CONFIG_PATH": str(pkg_config), "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen"}
        self.presets = json.loads((ROOT / "CMakePresets.json").read_text())
        self.table = json.loads(self.run(["zrsupply", "help", "--json"]))
        self.statements = {}

    def run(self, words, **options):
        done = subprocess.run(words, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                              **{"cwd": self.tree, "env": self.environment, **options})
        if done.returncode != 0:
            raise Wrong(f"{words if isinstance(words, str) else ' '.join(map(str, words))}\nends with "
                        f"{done.returncode}:\n{done.stdout}")
        return done.stdout

    def compile(self, text):
        source = self.folder / "block.cpp"
        source.write_text(text)
        flags = shlex.split(self.run(["pkg-config", "--cflags", "zrsupplydatabase"]))
        flags += shlex.split(self.run(["pkg-config", "--cflags", "Qt6Qml"]))
        flags += [f"-I{self.prefix}/include/{folder}" for folder in ("CuteLogger", "zrsupplyguard")]
        flags += shlex.split(self.environment.get("CXXFLAGS", ""))
        self.run([self.environment.get("CXX", "c++"), "-std=c++17", "-fPIC", "-Wall", "-Wextra", "-Werror",
                  "-fsyntax-only", *flags, source])

    def cpp(self, block):
        if "int main(" in block.text:
            self.compile(block.text)
        elif re.match(r"\w.*\)\n\{", block.text):
            self.compile(INCLUDES + block.text)
        else:
            self.statements.setdefault(block.page, []).append(block)

    def end_of_page(self, page):
        """Compiles the page's statements; the compiler names the lines of the page."""
        found = self.statements.pop(page, [])
        if not found:
            return
        includes, body = INCLUDES, ""
        if any("QJS" in block.text for block in found):
            includes += "#include <QtQml>\n"
        for block in found:
            lines = block.text.splitlines(keepends=True)
            includes += "".join(line for line in lines if line.startswith("#include"))
            body += f'#line {block.line + 1} "{page.relative_to(ROOT)}"\n'
            body += "".join("\n" if line.startswith("#include") else line for line in lines)
        self.compile(f"{includes}int host(int argc, char **argv);\n"
                     f"int host([[maybe_unused]] int argc, [[maybe_unused]] char **argv)\n{{\n{body}\nreturn 0;\n}}\n")

    def cmake(self, block):
        host = self.folder / "host"
        host.mkdir(exist_ok=True)
        (host / "CMakeLists.txt").write_text("cmake_minimum_required(VERSION 3.25)\nproject(Host LANGUAGES CXX)\n"
                                             f"add_executable(host main.cpp)\n{block.text}")
        (host / "main.cpp").write_text((ROOT / "examples/01-lookup/main.cpp").read_text())
        self.run(["cmake", "-G", "Ninja", "-S", host, "-B", host / "build", f"-DCMAKE_PREFIX_PATH={self.prefix}",
                  f"-DCMAKE_CXX_FLAGS={self.environment.get('CXXFLAGS', '')}"])
        self.run(["cmake", "--build", host / "build"])
        said = self.run([host / "build/host", self.catalogue])
        if "Vinyl" not in said:
            raise Wrong(f"the host says: {said}")

    def json(self, block):
        try:
            json.loads(block.text)
        except ValueError as error:
            raise Wrong(str(error)) from None

    def sql(self, block):
        self.run(["sqlite3", "-readonly", "-bail", self.catalogue, block.text])

    def preset(self, kind, name):
        if name not in [preset["name"] for preset in self.presets[kind] if not preset.get("hidden")]:
            raise Wrong(f"CMakePresets.json has no {kind} preset {name}")

    def command(self, words):
        """Whether the command is known, and as far as can be typed without installing and building everything."""
        if re.fullmatch(r"scripts/\w+", words[0]):
            if not os.access(ROOT / words[0], os.X_OK):
                raise Wrong(f"{words[0]} is no program")
            self.run(["sh", "-n", ROOT / words[0]])
            usage = (ROOT / words[0]).read_text()
            behind = re.search(r'/bin/(zrsupply-\w+)" "\$@"', usage) # a script that hands its words on
            if behind:
                usage += self.run([behind[1], "--help"])
            for option in words[1:]:
                known = option in usage or (behind and not option.startswith("-"))
                if not known:
                    raise Wrong(f"{words[0]} does not know {option}")
        elif words[:2] == ["cmake", "--preset"]:
            self.preset("configurePresets", words[2])
        elif words[:3] == ["cmake", "--build", "--preset"]:
            self.preset("buildPresets", words[3])
        elif words[:2] == ["cmake", "--install"]:
            self.preset("configurePresets", pathlib.Path(words[2]).name)
            target = self.folder / "installed"
            self.run([*words[:2], self.tree / "build/release", *[
                str(target) if before == "--prefix" else word for before, word in zip(words[2:], words[3:])]])
            if not (target / "bin/zrsupply").exists():
                raise Wrong("nothing was installed")
        elif words[0] == "export":
            name, _, value = words[1].partition("=")
            for path in self.run(f'{" ".join(words)}; echo "${name}"', shell=True).strip().split(os.pathsep):
                if "$PWD" in value and str(self.tree) in path and not pathlib.Path(path).exists():
                    raise Wrong(f"{path} does not exist in a clone with build/release")
        elif words[0] in ("cmake", "pkg-config", "zrsupply", "ctest") or (ROOT / words[0]).is_file():
            self.run(" ".join(words), shell=True)
        else:
            return False
        return True

    def usage(self, line):
        """'zrsupply roll SKU    what it does'"""
        words = re.split(r" {2,}|(?<=[A-Z…]) (?=[a-z])", line)[0].split()[1:]
        verbs = {verb["path"]: verb for verb in self.table["verbs"]}
        known = {f"--{option['name']}" for option in self.table["globalOptions"]}
        plain = [word for word in words if re.fullmatch(r"[a-z|…]+", word)]
        if plain:
            seconds = [""] if len(plain) == 1 else [word for word in plain[1].split("|") if word != "…"]
            for second in seconds:
                path = f"{plain[0]} {second}".strip()
                if path not in verbs:
                    raise Wrong(f"there is no verb '{path}'")
                known |= {f"--{option['name']}" for option in verbs[path]["options"]}
        for word in words:
            if word.startswith("--") and word not in known:
                raise Wrong(f"'{line.strip()}': no option {word}")

    def plain(self, block):
        lines = [line for line in block.text.splitlines() if line.strip()]
        if PICTURE.search(block.text) and not any(line.startswith(("zrsupply", "scripts", "cmake")) for line in lines):
            return True
        for line in lines:
            if re.match(r"zrsupply .*? {2,}\S|zrsupply .*[A-Z] [a-z]+ [a-z]+ [a-z]+", line):
                self.usage(line)
                continue
            code = re.sub(r"(^|\s+)#\s.*$", "", line)
            for part in filter(None, map(str.strip, re.split(r"&&|;", code))):
                # Quotes and variables stay as they are typed.
                if not self.command(re.findall(r"(?:[^\s\"']|\"[^\"]*\"|'[^']*')+", part)):
                    return False
        return True

    def check(self, block):
        """Whether a rule covers the block; throws what is wrong with it."""
        rules = {"cpp": self.cpp, "cmake": self.cmake, "json": self.json, "sql": self.sql}
        if block.language in rules:
            rules[block.language](block)
            return True
        return not block.language and self.plain(block)


def main():
    build, prefix = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    checked = failed = 0
    with tempfile.TemporaryDirectory() as folder:
        checker = Checker(build, prefix, folder)
        for page in pages():
            steps = [(block.place() + f": ```{block.language}", lambda block=block: checker.check(block))
                     for block in blocks(page) if not block.is_transcript()]
            checked += len(steps)
            steps.append((f"{page.relative_to(ROOT)}: its statements",
                          lambda page=page: checker.end_of_page(page) or True))
            for place, step in steps:
                try:
                    complaint = "" if step() else f"no rule covers this block.\n{HOW_TO_COVER}"
                except Wrong as wrong:
                    complaint = str(wrong)
                if complaint:
                    failed += 1
                    print(f"{place}: {complaint}")
    print(f"{checked} blocks checked, {failed} wrong")
    return 1 if failed or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
