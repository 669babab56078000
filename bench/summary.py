#!/usr/bin/env python3
"""Makes the ratios, the tables and the plot out of one run of scripts/bench.

    bench/summary.py RESULTS_DIR --commit NAME [--check]
"""
import argparse
import collections
import json
import math
import os
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent


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
    table = collections.defaultdict(dict)
    for name, row in medians.items():
        _, text, way, rolls = name.split("/")
        table[int(rolls), text][way] = row["ns"]
    return table


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("results", type=pathlib.Path)
    parser.add_argument("--commit", required=True)
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    results = arguments.results

    figures = {}
    out = []

    context, lookups = load(results / "lookups.json")
    table = lookups_by_way(lookups)
    ways = ["raw", "SQLiteCpp", "SOCI", "library", "naive", "QSqlQueryModel"]
    out += [f"Commit {arguments.commit}, {context['num_cpus']} x {context['mhz_per_cpu']} MHz, "
            f"load {context['load_avg'][0]:.1f}, {context['date'][:10]}.", ""]
    for rolls in sorted({rolls for rolls, _ in table}):
        texts = sorted(text for size, text in table if size == rolls)
        out += [f"### One lookup, {rolls:,} rolls, microseconds (ratio to raw)", "",
                "| text | " + " | ".join(ways) + " |", "|---|" + "---|" * len(ways)]
        for text in texts:
            row = table[rolls, text]
            out.append(f"| {text} | " + " | ".join(
                f"{row[way] / 1000:.1f} ({row[way] / row['raw']:.2f})" for way in ways) + " |")
        means = {way: geometric_mean(table[rolls, t][way] / table[rolls, t]["raw"] for t in texts) for way in ways}
        out += ["| **geometric mean** | " + " | ".join(f"**{means[way]:.3f}**" for way in ways) + " |", ""]
        figures[f"lookups at {rolls:,} rolls, beside raw, geometric mean"] = means["library"]
        for peer in ("naive", "QSqlQueryModel"):
            peer_ratios = {t: table[rolls, t]["library"] / table[rolls, t][peer] for t in texts}
            figures[f"lookups at {rolls:,} rolls, beside {peer}, geometric mean"] = geometric_mean(peer_ratios.values())
            figures[f"lookups at {rolls:,} rolls, beside {peer}, worst text"] = max(peer_ratios.values())

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
    empty, library = start["start/start_empty"], start["start/start_library"]
    figures["start to first answer, beside an empty application"] = library["ns"] / empty["ns"]
    figures["private memory beyond an empty application, kB"] = library["private_kB"] - empty["private_kB"]
    figures["stripped library, kB"] = os.path.getsize(results / "stripped.so") / 1024
    unit = {"ns": 1e6, "us": 1e3, "ms": 1}[library["time_unit"]]
    out += ["### Start and size", "", "| | empty application with the driver | first answer of the library |", "|---|---|---|",
            f"| process, wall | {empty['ns'] / unit:.2f} ms | {library['ns'] / unit:.2f} ms |",
            f"| private memory | {empty['private_kB']:.0f} kB | {library['private_kB']:.0f} kB |",
            f"| stripped library | | {figures['stripped library, kB']:.0f} kB |", ""]

    counts = dict(line.split("\t") for line in (results / "instructions.tsv").read_text().splitlines())
    counts = {name: int(count) for name, count in counts.items()}
    figures["instructions of the width lookup, beside raw"] = counts["width"] / counts["raw"]
    out += ["### Instructions (callgrind)", "", "| what | instructions |", "|---|---|"]
    for name, label in (("raw", "the width text, raw"), ("naive", "the width text, naive"), ("width", "`supplyWidth`"),
                        ("roll", "`setSupplyId`, revision 0 or 1"), ("tag", "one decode")):
        out.append(f"| {label} | {counts[name]:,} |")
    out.append("")

    goals = json.loads((HERE / "goals.json").read_text())["goals"]
    missed = 0
    out += ["### Goals", "", "| figure | measured | at most | |", "|---|---|---|---|"]
    for goal in goals:
        figure = figures.get(goal["figure"])
        if figure is None:
            verdict, shown = "not measured", "-"
            missed += 1
        else:
            met = figure <= goal["at most"]
            verdict, shown = ("met" if met else "missed"), f"{figure:.3f}"
            missed += not met
        out.append(f"| {goal['figure']} | {shown} | {goal['at most']} | {verdict} |")

    (results / "tables.md").write_text("\n".join(out) + "\n")
    (results / "figures.json").write_text(json.dumps(figures, indent=4) + "\n")
    subprocess.run(["gnuplot", "-e", f"folder='{results}'", str(HERE / "growth.gnuplot")], check=True)
    print("\n".join(out))
    print(f"\nTables, figures and plot: {results}")
    if arguments.check and missed:
        sys.exit(f"{missed} goals missed")


if __name__ == "__main__":
    main()
