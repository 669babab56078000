#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Makes the ratios, the tables and the plot out of the runs of scripts/bench.

    bench/summary.py RESULTS_DIR... --commit NAME [--check] [--document FILE]
"""
import argparse
import json
import math
import os
import pathlib
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
BEGIN, END = "<!-- begin of what scripts/bench writes -->", "<!-- end of what scripts/bench writes -->"
WAYS = ["raw", "SQLiteCpp", "SOCI", "bare shape", "library", "naive", "QSqlQueryModel"]


def load(path):
    """Medians by name: CPU time in ns, or real time where that was asked for, and the counters."""
    document = json.loads(path.read_text())
    medians = {}
    for row in document["benchmarks"]:
        if row.get("aggregate_name") != "median":
            continue
        name = row["run_name"].removesuffix("/real_time")
        medians[name] = dict(row, ns=row["real_time"] if row["run_name"].endswith("/real_time") else row["cpu_time"])
    if not medians:
        sys.exit(f"{path} holds no medians")
    return document["context"], medians


def geometric_mean(values):
    values = list(values)
    return math.exp(sum(map(math.log, values)) / len(values))


def lookups_by_way(medians):
    """Nanoseconds by (rolls, text) and way: what a benchmark's row has beside Google Benchmark's own entries."""
    table = {}
    for name, row in medians.items():
        _, text, rolls, *_ = name.split("/")
        table[int(rolls), text] = {way: row[way] for way in WAYS if way in row}
    return table


def guard_table(medians, figures):
    """What the guard adds to a lookup."""
    ratios = {name.split("/")[1]: row["guarded"] / row["bare"] for name, row in medians.items()}
    mean = geometric_mean(ratios.values())
    figures["lookups with the guard, beside without, geometric mean at 1,000 rolls"] = mean
    worst = max(ratios, key=ratios.get)
    return ["### Lookups under the guard, 1,000 rolls", "",
            f"Beside the same lookups without it: {mean:.3f} in the geometric mean of {len(ratios)} texts,"
            f" {ratios[worst]:.3f} at worst ({worst}).", ""]


def tool_table(tools, figures):
    """The author's verbs. Their times are shown beside what is aimed at. Held to a goal are memory and ratios,
    those of processor time, which other load on the machine hardly moves."""
    rows = (
        ("generate", "`catalogue generate`, 100,000 rolls", "", None),
        ("generate a million", "`catalogue generate`, 1,000,000 rolls", "", None),
        ("build", "`catalogue build`, 100,000 rolls", "10 s", "schema/build-catalogue"),
        ("check", "`catalogue check`, 100,000 rolls", "20 s", "checks.sql in the sqlite3 shell"),
        ("report", "`catalogue report`, 2,000 rolls", "", None),
    )
    out = ["### The catalogue author's verbs, ten languages, 1,000 ribbons", "",
           "| what | seconds | aim | peak memory, MB | floor | its seconds | ratio, processor time |",
           "|---|---|---|---|---|---|---|"]
    for name, label, aim, floor in rows:
        if name not in tools:
            continue
        row = tools[name]
        figures[f"{name}, peak memory, MB"] = row["MB"]
        beside = ["", "", ""]
        if floor:
            below = tools[f"{name}, floor"]
            ratio = row["processor"] / below["processor"]
            figures[f"{name}, beside {floor}"] = ratio
            beside = [floor, f"{below['seconds']:.2f}", f"{ratio:.2f}"]
        out.append(f"| {label} | {row['seconds']:.2f} | {aim} | {row['MB']:.0f} | " + " | ".join(beside) + " |")
    figures["page of report, MB"] = tools["report"]["page MB"]
    return out + ["", f"The page of 2,000 rolls (30 ribbons, six languages) has {tools['report']['page MB']:.1f} MB.", ""]


def tables_of(results, commit):
    """The tables of one run as lines, and its figures by name."""
    figures = {}
    out = []

    context, lookups = load(results / "lookups.json")
    table = lookups_by_way(lookups)
    out += [f"Commit {commit}, {context['num_cpus']} x {context['mhz_per_cpu']} MHz, "
            f"load {context['load_avg'][0]:.1f}, {context['date'][:10]}.", ""]
    for rolls in sorted({rolls for rolls, _ in table}):
        texts = sorted(text for size, text in table if size == rolls)
        out += [f"### One lookup, {rolls:,} rolls, microseconds (ratio to raw)", "",
                "| text | " + " | ".join(WAYS) + " |", "|---|" + "---|" * len(WAYS)]
        for text in texts:
            row = table[rolls, text]
            out.append(f"| {text} | " + " | ".join(
                f"{row[way] / 1000:.1f} ({row[way] / row['raw']:.2f})" for way in WAYS) + " |")
        means = {way: geometric_mean(table[rolls, t][way] / table[rolls, t]["raw"] for t in texts) for way in WAYS}
        out += ["| **geometric mean** | " + " | ".join(f"**{means[way]:.3f}**" for way in WAYS) + " |", ""]
        figures[f"lookups at {rolls:,} rolls, beside raw, geometric mean"] = means["library"]
        for peer in ("bare shape", "naive", "QSqlQueryModel"):
            peer_ratios = {t: table[rolls, t]["library"] / table[rolls, t][peer] for t in texts}
            figures[f"lookups at {rolls:,} rolls, beside {peer}, geometric mean"] = geometric_mean(peer_ratios.values())
            figures[f"lookups at {rolls:,} rolls, beside {peer}, worst text"] = max(peer_ratios.values())

    out += guard_table(load(results / "guard.json")[1], figures)

    _, growth = load(results / "growth.json")
    grown = lookups_by_way(growth)
    sizes = sorted({rolls for rolls, _ in grown})
    texts = sorted({text for _, text in grown})
    out += ["### Growth, geometric mean over the keyed texts, microseconds", "",
            "| rolls | library | raw | library, beside 1,000 rolls |", "|---|---|---|---|"]
    base = {t: grown[1000, t]["library"] for t in texts}
    plot = []
    for rolls in sizes:
        library = geometric_mean(grown[rolls, t]["library"] for t in texts) / 1000
        raw = geometric_mean(grown[rolls, t]["raw"] for t in texts) / 1000
        ratio = geometric_mean(grown[rolls, t]["library"] / base[t] for t in texts)
        out.append(f"| {rolls:,} | {library:.2f} | {raw:.2f} | {ratio:.3f} |")
        plot.append(f"{rolls}\t{library}\t{raw}")
        if rolls > 1000:
            figures[f"growth from 1,000 to {rolls:,} rolls, geometric mean"] = ratio
    out.append("")
    (results / "growth.tsv").write_text("\n".join(plot) + "\n")

    _, flows = load(results / "flows.json")
    out += ["### Lists, flows, tags and calls", "", "| what | library | floor | ratio |", "|---|---|---|---|"]

    def beside(label, figure, library, floor):
        ratio = flows[library]["ns"] / flows[floor]["ns"]
        out.append(f"| {label} | {flows[library]['ns']:,.1f} ns | {flows[floor]['ns']:,.1f} ns | {ratio:.2f} |")
        if figure:
            figures[figure] = ratio

    for name in flows:
        part = name.split("/")
        if part[0] == "list" and part[2] == "library":
            entries = int(flows[name]["entries"])
            label = f"{part[1]}, {int(part[3]):,} rolls ({entries:,} entries)"
            beside(label, f"list {part[1]} at {int(part[3]):,} rolls, beside raw", name, name.replace("/library/", "/raw/"))
        elif part[0] == "flow" and part[2] == "library" and part[1] != "mileage":
            beside(part[1], f"flow {part[1]}, beside raw", name, f"flow/{part[1]}/raw")
    beside("a mileage reading, beside its signal", None, "flow/mileage/library", "flow/mileage/signal-alone")
    figures["mileage beyond its signal, ns"] = flows["flow/mileage/library"]["ns"] - flows["flow/mileage/signal-alone"]["ns"]
    beside("a tag of 24 digits, beside digits and shifts", "tag, beside its floor", "tag/library", "tag/floor")
    beside("a tag with a stray character", None, "tag/library-with-strays", "tag/floor")
    for way in ("by-name", "kept-QMetaMethod", "by-index"):
        beside(f"a call, {way}, beside a direct one", None, f"call/{way}", "call/direct")
    out.append("")

    _, start = load(results / "start.json")
    empty, bare, library = (start[f"start/start_{step}"] for step in ("empty", "bare", "library"))
    figures["start to first answer, beside an empty application"] = library["ns"] / empty["ns"]
    figures["start to first answer, beside QSqlQuery alone"] = library["ns"] / bare["ns"]
    figures["private memory beyond an empty application, kB"] = library["private_kB"] - empty["private_kB"]
    figures["stripped library, kB"] = os.path.getsize(results / "stripped.so") / 1024
    unit = {"ns": 1e6, "us": 1e3, "ms": 1}[library["time_unit"]]
    steps = (empty, bare, library)
    out += ["### Start and size", "",
            "| | empty application with the driver | first answer by QSqlQuery alone | first answer of the library |",
            "|---|---|---|---|",
            "| process, wall, ms | " + " | ".join(f"{step['ns'] / unit:.2f}" for step in steps) + " |",
            "| private memory, kB | " + " | ".join(f"{step['private_kB']:.0f}" for step in steps) + " |",
            f"| stripped library, kB | | | {figures['stripped library, kB']:.0f} |", ""]

    counts = dict(line.split("\t") for line in (results / "instructions.tsv").read_text().splitlines())
    counts = {name: int(count) for name, count in counts.items()}
    figures["instructions of the width lookup, beside raw"] = counts["width"] / counts["raw"]
    out += ["### Instructions (callgrind)", "", "| what | instructions |", "|---|---|"]
    for name, label in (("raw", "the width text, raw"), ("naive", "the width text, naive"), ("width", "`supplyWidth`"),
                        ("roll", "`setSupplyId`, revision 0 or 1"), ("tag", "one decode")):
        out.append(f"| {label} | {counts[name]:,} |")
    out.append("")

    out += tool_table(json.loads((results / "tools.json").read_text()), figures)

    return out, figures


def judge(goal, figures, at_most):
    """The measured figure and what it means; a goal is missed when it was not measured."""
    figure = figures.get(goal["figure"])
    other = goal.get("or")
    if figure is None:
        return "not measured", False
    if figure <= goal["at most"]:
        return f"{figure:.3f}", True
    if other and figures[other] <= at_most[other]:
        return f"{figure:.3f} (Qt's and SQLite's own)", True
    return f"**{figure:.3f}**", False


def goal_table(runs):
    """Each goal with what every run measured, as lines, and how often one was missed."""
    goals = json.loads((HERE / "goals.json").read_text())["goals"]
    at_most = {goal["figure"]: goal["at most"] for goal in goals}
    out = ["### Goals", "", "| figure | at most | " + " | ".join(f"run {i + 1}" for i in range(len(runs))) + " |",
           "|---|---|" + "---|" * len(runs)]
    missed = 0
    for goal in goals:
        verdicts = [judge(goal, figures, at_most) for figures in runs]
        missed += sum(not met for _, met in verdicts)
        out.append(f"| {goal['figure']} | {goal['at most']} | " + " | ".join(shown for shown, _ in verdicts) + " |")
    return out, missed


def write_into(document, lines):
    """Puts the lines between the two marks of a document."""
    text = document.read_text()
    before, rest = text.split(BEGIN)
    _, after = rest.split(END)
    document.write_text(before + BEGIN + "\n\n" + "\n".join(lines) + "\n\n" + END + after)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("results", type=pathlib.Path, nargs="+", help="a folder for each run; tables are of the last")
    parser.add_argument("--commit", required=True)
    parser.add_argument("--check", action="store_true", help="end with status 1 when a goal is missed in any run")
    parser.add_argument("--document", type=pathlib.Path, help="write tables and plot into this document's folder too")
    arguments = parser.parse_args()

    runs = []
    for results in arguments.results:
        out, figures = tables_of(results, arguments.commit)
        runs.append(figures)
        (results / "figures.json").write_text(json.dumps(figures, indent=4) + "\n")
        subprocess.run(["gnuplot", "-e", f"folder='{results}'", str(HERE / "growth.gnuplot")], check=True)
    goals, missed = goal_table(runs)
    out += goals
    last = arguments.results[-1]
    (last / "tables.md").write_text("\n".join(out) + "\n")
    if arguments.document:
        write_into(arguments.document, out)
        shutil.copyfile(last / "growth.svg", arguments.document.parent / "growth.svg")
    print("\n".join(out))
    print(f"\nTables, figures and plot: {last}")
    if arguments.check and missed:
        sys.exit(f"{missed} goals missed")


if __name__ == "__main__":
    main()
