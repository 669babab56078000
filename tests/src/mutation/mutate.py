#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Changes src/ in one place at a time and sees whether a test fails.

    tests/src/mutation/mutate.py [--list] [--only REGEX] [--sample N] [--jobs N] [--work DIR]

Each change is a mutant: a constant, a comparison, an operator, a text, a statement left out, a name of a family put in
another's place. It is built in a copy of the tree, and the tests run until one fails: the mutant is killed. One that
no test notices has survived; it is an error unless equivalents.txt says why no host could notice it either.

The last line counts killed, survived and not compiled. Exit status 0 when nothing unexplained survived and at least 95 %
of all that were judged are killed (with --only: any was judged), 1 otherwise.
"""
import argparse
import concurrent.futures
import os
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent
COPIED = ("CMakeLists.txt", "cmake", "src", "compat", "docs", "guard", "schema", "tests")
TEST_TIMEOUT = 120  # seconds; a mutant that hangs is killed too
FLOOR = 0.95  # of the mutants judged, those that no host could notice among them

# Names that stand for each other: what is put in a name's place shows whether a test tells the two apart.
FAMILIES = [
    ["unsetInt", "0"],
    ["unsetReal", "0.0"],
    ["unsetString", "QString()"],
    ["firstPanel", "secondPanel"],
    ["ribbonSlots[0]", "ribbonSlots[1]"],
    ["toReal()", "toInt()"],
    ["toInt()", "toReal()"],
    ["englishLanguageId", "m_languageId"],
    ["m_languageId", "englishLanguageId"],
    ["m_supplySKU", "QString()"],
    ["tagDigits", "supplyIdDigits"],
    ["supplyIdDigits", "tagDigits"],
    ["true", "false"],
    ["false", "true"],
    ["ribbon1", "ribbon2"],
    ["ribbon2", "ribbon1"],
    ["Ribbon1", "Ribbon2"],
    ["Ribbon2", "Ribbon1"],
    ["width1", "width2"],
    ["heat1", "heat2"],
    ["special1", "special2"],
    ["bad1", "bad2"],
    ["answersFromTag(", "isUnknownSupply("],
    ["isUnknownSupply(", "answersFromTag("],
    ["toIntOrUnset", "toInt"],
    ["toIntTruncated(entry)", "entry.toInt()"],
    ["Qt::CaseInsensitive", "Qt::CaseSensitive"],
    ["specialDieCutType", "dieCutType"],
    ["wideSeparatorType", "specialDieCutType"],
    ["feetToInches(", "mmToInches("],
    [".toText", ".toReal"],
    ["logFile", "logFunction"],
    ["Logger::Debug", "Logger::Error"],
    ["std::trunc", "std::floor"],
]

OPERATORS = [
    (r" <= ", [" < "]), (r" < ", [" <= "]), (r" >= ", [" > "]), (r" > ", [" >= "]),
    (r" == ", [" != "]), (r" != ", [" == "]),
    (r" && ", [" || "]), (r" \|\| ", [" && "]),
    (r" \+ ", [" - "]), (r" - ", [" + "]), (r" \* ", [" / "]), (r" / ", [" * "]),
    (r"\+\+", ["--"]), (r"(?<=[( ])!(?=[(A-Za-z])", [""]),
]

STATEMENT = re.compile(r"^\s+(?:[A-Za-z_][\w.>\[\]-]*(?: \+?= .*|\(.*\))|Q_EMIT.*|\(.*, \.\.\.\)|\+\+.*);\s*(?://.*)?$")
DECLARATION = re.compile(r"^\s*(?:const |constexpr |static |auto |return\b|using |[A-Z]\w+ \w+\()")
MEMORY_ONLY = re.compile(r"^\s*\w+\.reserve\(")  # how a list grows, and no answer


class Mutant:
    def __init__(self, path, number, old, new):
        self.path, self.number, self.old, self.new = path, number, old, new

    def __str__(self):
        return f"{self.path}:{self.number}: {self.old.strip()}  =>  {self.new.strip() or '(left out)'}"

    @property
    def key(self):
        return f"{pathlib.Path(self.path).name}: {self.old.strip()} => {self.new.strip() or '(left out)'}"


def code_part(line):
    """The line up to a comment; texts are kept."""
    inside = False
    for i, c in enumerate(line):
        if c == '"' and (i == 0 or line[i - 1] != "\\"):
            inside = not inside
        if not inside and line[i:i + 2] in ("//", "/*"):
            return line[:i]
    return line


def texts(code):
    return [m for m in re.finditer(r'"((?:[^"\\]|\\.)*)"', code)]


def outside_texts(code, position):
    return all(not m.start() < position < m.end() for m in texts(code))


def text_variants(text):
    """Changes of a text that matter: an SQL text loses or gains what its answer depends on."""
    if text.startswith("SELECT"):
        column = re.match(r"SELECT (?:COUNT\(\*\) )?([\w.]+)", text).group(1)
        yield text.replace(column, "NULL AS x", 1) if "%1" in text else text + " LIMIT 1"
        yield text[:-1] if text.endswith(" ") else text + " "
        for i in range(1, 4):
            if f"'%{i}'" in text:
                yield text.replace(f"'%{i}'", f"%{i}")
            elif f"=%{i}" in text:
                yield text.replace(f"=%{i}", f"='%{i}'")
        if "NOT IN" in text:
            for family in re.findall(r"'(\w{3})'", text):
                yield text.replace(f"'{family}'", "'---'")
        if "ORDER BY" in text:
            yield text.replace(" ORDER BY LENGTH(SKU)", "")
    elif text:
        yield text + "x"
        if text.lower() != text:
            yield text.lower()


def mutants_of(path):
    relative = str(path.relative_to(ROOT))
    lines = path.read_text().splitlines()
    for number, line in enumerate(lines, 1):
        code = code_part(line)
        if not code.strip() or code.lstrip().startswith(("#", "static_assert", "using ", "template", "namespace")):
            continue
        if MEMORY_ONLY.match(code):
            continue
        found = set()

        def add(new):
            if new != line and new not in found:
                found.add(new)
                return [Mutant(relative, number, line, new)]
            return []

        for m in texts(code):
            for variant in text_variants(m.group(1)):
                yield from add(line[:m.start(1)] + variant + line[m.end(1):])
        for m in re.finditer(r"(?<![\w.])(\d+\.\d+|\d+(?:e-\d+)?|1e-12)(?![\w.%'])", code):
            if outside_texts(code, m.start()) and "operator" not in code:
                number_text = m.group(1)
                changed = (str(float(number_text) * 1.01 + 0.001) if "." in number_text or "e" in number_text
                           else str(int(number_text) + 1))
                yield from add(line[:m.start()] + changed + line[m.end():])
        for pattern, replacements in OPERATORS:
            for m in re.finditer(pattern, code):
                if outside_texts(code, m.start()) and "operator" not in code:
                    for replacement in replacements:
                        yield from add(line[:m.start()] + replacement + line[m.end():])
        for old, new in FAMILIES:
            pattern = (r"(?<![\w:])" if old[0].isalpha() else "") + re.escape(old) + (r"(?!\w)" if old[-1].isalnum() else "")
            if old in ("Ribbon1", "Ribbon2"):
                pattern = re.escape(old)
            for m in re.finditer(pattern, code):
                if outside_texts(code, m.start()) and "::" + old not in code and "ZrSupplyDatabase::" not in code[:m.start()][-18:]:
                    yield from add(line[:m.start()] + new + line[m.end():])
        if STATEMENT.match(line) and not DECLARATION.match(line) and path.suffix == ".cpp":
            yield from add(re.sub(r"\S.*$", ";", line, count=1))
        if re.match(r"^\s+return .*;$", line) and path.suffix == ".cpp" and "return {" not in line and number > 1:
            # An early return that does not happen.
            previous = lines[number - 2].strip()
            if previous.startswith("if (") and not previous.endswith("{"):
                yield from add(re.sub(r"return .*;", ";", line))


def statement_swaps():
    """Each use of an SQL text, with another text of the same placeholders in its place."""
    header = (ROOT / "src/cataloguesql_p.h").read_text()
    constants = dict(re.findall(r'auto (\w+) = "([^"]*)"_L1', header))
    names = list(constants)

    def shape(name):
        return len(set(re.findall(r"%\d", constants[name])))

    for path in sorted((ROOT / "src").glob("*.cpp")):
        for number, line in enumerate(path.read_text().splitlines(), 1):
            for m in re.finditer(r"sql::(\w+)", line):
                if m.group(1) not in constants:
                    continue
                alike = [n for n in names if shape(n) == shape(m.group(1)) and n != m.group(1)]
                other = alike[(names.index(m.group(1)) * 7 + number) % len(alike)]
                yield Mutant(str(path.relative_to(ROOT)), number, line, line[:m.start(1)] + other + line[m.end(1):])


def layout_mutants():
    """Two neighbouring fields of one width exchanged, and the layout a field is read in."""
    path = ROOT / "src/tag/taglayout_p.h"
    lines = path.read_text().splitlines()
    fields = [(i, re.search(r"Field\{\s*(\d+),\s*(\d+),.*?&SupplyC::(\w+)", l)) for i, l in enumerate(lines)]
    fields = [(i, m) for i, m in fields if m]
    for (i, a), (j, b) in zip(fields, fields[1:]):
        if (a.group(2) == "1") == (b.group(2) == "1"):
            line = lines[i]
            yield Mutant(str(path.relative_to(ROOT)), i + 1, line, line.replace(a.group(3), b.group(3)))


def all_mutants():
    sources = sorted((ROOT / "src").glob("*.cpp")) + sorted((ROOT / "src/tag").glob("*.cpp"))
    sources += [ROOT / "src" / h for h in ("cataloguesql_p.h", "supplyconstants_p.h", "combinationrule_p.h",
                                          "cataloguequery_p.h", "sqltext_p.h", "rounding_p.h")]
    sources += [ROOT / "src/tag/supplyc.h", ROOT / "src/tag/bitreader_p.h"]
    result, seen = [], set()
    for path in sources:
        result += mutants_of(path)
    result += statement_swaps()
    result += layout_mutants()
    unique = []
    for mutant in result:
        identity = (mutant.path, mutant.number, mutant.new)
        if identity not in seen:
            seen.add(identity)
            unique.append(mutant)
    return unique


def known_equivalents():
    known = {}
    reason = ""
    for line in (HERE / "equivalents.txt").read_text().splitlines():
        if line.startswith("# "):
            reason = line[2:]
        elif line.strip():
            known[line.strip()] = reason
    return known


class Workshop:
    """A copy of the tree with a build of its own, in which one mutant at a time is made and judged."""

    def __init__(self, folder):
        self.tree, self.build = folder / "tree", folder / "build"
        # The copies are alike but for their place, so that the second is built from the first one's cache.
        self.environment = {**os.environ, "LC_ALL": "C.UTF-8", "CCACHE_BASEDIR": str(folder), "CCACHE_NOHASHDIR": "1"}
        if folder.exists():
            shutil.rmtree(folder)
        self.tree.mkdir(parents=True)
        for name in COPIED:
            source = ROOT / name
            (shutil.copytree if source.is_dir() else shutil.copy2)(source, self.tree / name)
        launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        # Each mutant costs a build of what it is in: clang++ needs half of g++'s time for it.
        self.run(["cmake", "-S", str(self.tree), "-B", str(self.build), "-G", "Ninja", "-DCMAKE_CXX_COMPILER=clang++",
                  "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS=-O0 -g0", "-DZR_BUILD_TOOLS=OFF",
                  "-DZR_BUILD_EXAMPLES=OFF", "-DZR_BUILD_PANEL=OFF", *launcher], check=True)
        # What the library's operations are held to, row by row; the long random tests come to the same, later.
        names = sorted(path.stem for path in (ROOT / "tests/src").glob("tst_*.cpp") if "cutelogger" not in path.stem)
        self.run(["ninja", "-C", str(self.build), *names], check=True)
        self.seconds = {}
        for test in (self.build / "tests/src" / name for name in names):
            started = time.monotonic()
            if not self.passes(test):
                sys.exit(f"{test.name} fails without any change; mend that first")
            self.seconds[test] = time.monotonic() - started

    def run(self, command, check=False):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              env=self.environment)
        if check and done.returncode:
            sys.exit(done.stdout[-4000:])
        return done

    def passes(self, test):
        try:
            # A mutant may leave files behind, on which a test of the next one would fail: each test has its own folder.
            with tempfile.TemporaryDirectory() as folder:
                return subprocess.run([str(test)], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, cwd=folder,
                                      timeout=TEST_TIMEOUT, env=self.environment).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def judge(self, mutant):
        path = self.tree / mutant.path
        before = path.read_text()
        lines = before.split("\n")
        assert lines[mutant.number - 1] == mutant.old
        lines[mutant.number - 1] = mutant.new
        path.write_text("\n".join(lines))
        try:
            if self.run(["ninja", "-C", str(self.build), "-j1", "src/all"]).returncode:
                return "not compiled", ""
            for test in self.order(mutant):
                if not self.passes(test):
                    return "killed", test.name
            return "survived", ""
        finally:
            path.write_text(before)

    def order(self, mutant):
        """Tests of the mutated file's subject first, then the short ones."""
        name = pathlib.Path(mutant.path).stem
        likely = {"supplyc": "supplyc", "taglayout_p": "supplyc", "bitreader_p": "supplyc", "cataloguesql_p": "cataloguesql",
                  "zrsupplydatabase_rolls": "rolls", "zrsupplydatabase_rolltype": "rolltype",
                  "zrsupplydatabase_ribbons": "ribbon", "zrsupplydatabase_checks": "checks",
                  "zrsupplydatabase_installed": "flow", "zrsupplydatabase_catalogue": "catalogue"}.get(name, name)
        return sorted(self.seconds, key=lambda t: (likely not in t.name, self.seconds[t]))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--list", action="store_true", help="print the mutants and end")
    parser.add_argument("--only", default="", help="mutants whose line matches this regular expression")
    parser.add_argument("--sample", type=int, default=0, help="a random N of them, the same for the same tree")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--work", type=pathlib.Path, default=ROOT / "build/mutation")
    arguments = parser.parse_args()

    mutants = [m for m in all_mutants() if re.search(arguments.only, str(m))]
    if arguments.sample and arguments.sample < len(mutants):
        mutants = random.Random(1).sample(mutants, arguments.sample)
    # One after another in the same file: what is built of the last mutant is built again with the next.
    mutants.sort(key=lambda m: (m.path, m.number))
    if arguments.list:
        print("\n".join(map(str, mutants)))
        print(len(mutants), "mutants")
        return 0

    known = known_equivalents()
    started = time.monotonic()
    free = queue.Queue()
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for i in range(arguments.jobs):
            free.put(Workshop(arguments.work / str(i)))
        print(f"{len(mutants)} mutants, {arguments.jobs} at a time", flush=True)

        def judge(mutant):
            workshop = free.get()
            try:
                return mutant, *workshop.judge(mutant)
            finally:
                free.put(workshop)

        counts = {"killed": 0, "survived": 0, "equivalent": 0, "not compiled": 0}
        for mutant, verdict, test in pool.map(judge, mutants):
            if verdict == "survived" and mutant.key in known:
                verdict = "equivalent"
            counts[verdict] += 1
            told = test or (known[mutant.key] if verdict == "equivalent" else "")
            print(f"{verdict:12} {mutant}" + (f"  [{told}]" if told else ""), flush=True)

    judged = counts["killed"] + counts["survived"] + counts["equivalent"]
    rate = counts["killed"] / judged if judged else 0.0
    print(f"\n{judged} mutants judged in {time.monotonic() - started:.0f} s: {counts['killed']} killed ({rate:.1%}), "
          f"{counts['survived']} survived, {counts['equivalent']} change nothing a host could notice; "
          f"{counts['not compiled']} more did not compile")
    enough = rate >= FLOOR or (arguments.only and judged)
    return 1 if counts["survived"] or not enough else 0


if __name__ == "__main__":
    sys.exit(main())
