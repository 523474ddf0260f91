#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Runs the benchmarks of a build and writes docs/performance.md and docs/performance.svg.

The machine should be idle: the figures are medians, but a second program on the same core shows.
"""
import argparse
import datetime
import json
import pathlib
import re
import statistics
import subprocess
import tempfile

import matplotlib
matplotlib.rcParams.update({"backend": "svg", "svg.fonttype": "none", "svg.hashsalt": "vaprix"})
from matplotlib import pyplot

ROOT = pathlib.Path(__file__).resolve().parents[1]
# Frequency of use in percent, IAPWS R7-97(2012), Tables 45 and 46.
MIX = {"VBPT/region 1": 2.9, "HBPT/region 1": 9.7, "TBPH/region 1": 3.5, "HBPS/region 1": 1.2,
       "VBPT/region 2": 6.1, "HBPT/region 2": 12.1, "SBPT/region 2": 1.4, "TBPH/region 2": 8.5,
       "VBPH/region 2": 3.1, "SBPH/region 2": 1.7, "TBPS/region 2": 1.7, "HBPS/region 2": 4.9,
       "PBT/saturation line": 8.0, "TBP/saturation line": 30.7, "H1BP/saturation line": 2.25,
       "H2BP/saturation line": 2.25}
# What the chart shows.
CHART = [f"{name}/region {k}" for name in ("HBPT", "HOPT", "WBPT", "TBPH", "TOPH") for k in (1, 2, 3, 5)
         if (name, k) != ("TBPH", 5)] + ["PBT/saturation line", "TBP/saturation line", "H1BT/saturation line",
                                         "HBTX/wet steam"]


def run(program, repetitions, *arguments):
    """Context, and by name the medians of processor and wall time, ns a call, and the label."""
    command = [program, f"--benchmark_repetitions={repetitions}", "--benchmark_format=json", *arguments]
    result = json.loads(subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)
    found = {}
    for line in sorted(result["benchmarks"], key=lambda line: line["family_index"]):
        if line["run_type"] == "iteration":
            found.setdefault(line["run_name"].split("/min_time")[0], []).append(line)
    return result["context"], {
        name: {"cpu": statistics.median(line["cpu_time"] for line in lines),
               "wall": statistics.median(line["real_time"] for line in lines),
               "label": lines[0].get("label", "")} for name, lines in found.items()}


def table(head, rows):
    lines = [head, ["---"] * len(head), *rows]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines).replace("| --- ", "|---").replace("--- |", "---|")


def exports(timed):
    """By name: ns of the export, of the sum term by term and of the floor, or None."""
    compared = {}
    for name, found in timed.items():
        if "|" in found["label"]:
            plain, floor = (timed[other]["cpu"] if other else None for other in found["label"].split("|"))
            compared[name] = (found["cpu"], plain, floor)
    return compared


def exports_table(compared):
    rows = []
    for name, (ns, plain, floor) in compared.items():
        export, states = name.split("/")
        rows.append([f"`{export}`", states, f"{ns:.1f}", f"{plain / ns:.1f}" if plain else "-",
                     f"{ns / floor:.2f}" if floor else "-"])
    text = table(["export", "states", "ns a call", "times faster than term by term", "times the floor"], rows)
    if MIX.keys() <= compared.keys():
        ns, plain, floor = (sum(MIX[name] * compared[name][k] for name in MIX) for k in range(3))
        text += (f"\nMix weighted by frequency of use (IAPWS R7-97(2012), Tables 45 and 46): {ns / sum(MIX.values()):.1f} "
                 f"ns a call, {plain / ns:.1f} times faster than term by term, {ns / floor:.2f} times the floor.\n")
    return text


def threads_table(timed):
    rows = []
    for name in dict.fromkeys(name.split("/real_time")[0] for name in timed if "/threads:" in name):
        one, two = (timed[f"{name}/real_time/threads:{k}"] for k in (1, 2))
        rows.append([f"`{name.split('/')[0]}`", name.split("/")[1], f"{1e3 / one['wall']:.1f}",
                     f"{1e3 / two['wall']:.1f}", f"{one['wall'] / two['wall']:.2f}", f"{one['cpu']:.1f}",
                     f"{two['cpu']:.1f}"])
    return table(["export", "states", "1 thread, 1e6 calls/s", "2 threads", "ratio",
                  "ns of processor time a call, alone", "together"], rows)


def arrays_tables(program):
    """Of 4096 elements by each instruction set; of 2^20 by the widest, the first. And what the benchmark says beside."""
    small, large, beside = {}, {}, ""
    for instruction_set in ("AVX-512", "AVX2", "SSE2", "NEON"):
        found = subprocess.run([program, "--instruction-set", instruction_set], stdout=subprocess.PIPE, text=True)
        if found.returncode != 0:
            continue
        for title, numbers in re.findall(r"^(\w+, [\w. ]+?) {2,}([\d. ]+)$", found.stdout, re.MULTILINE):
            calls, array, _, _, *of_many = map(float, numbers.split())
            small.setdefault(title, {"calls": calls})[instruction_set] = f"{array:.1f} (1/{calls / array:.1f})"
            large.setdefault(title, [title] + [f"{ns:.1f}" for ns in (*of_many[:2], of_many[3], of_many[4])]
                             + [f"{of_many[1] / of_many[4]:.2f}"])
        beside += f"{instruction_set}: {found.stdout.splitlines()[-1]}.\n"
    sets = list(dict.fromkeys(name for row in small.values() for name in row if name != "calls"))
    return (table(["export and states", "calls", *sets],
                  [[title, f"{row['calls']:.1f}", *(row[name] for name in sets)] for title, row in small.items()])
            + "\n" + beside + f"\nOf 2^20 elements with {sets[0]}, beside what memory alone takes:\n\n"
            + table(["export and states", "calls", "array", "memory", "array by 2 threads", "ratio"], large.values()))


def load_table(program, library):
    runs = [subprocess.run([program, library], stdout=subprocess.PIPE, text=True, check=True).stdout.split()
            for _ in range(101)]
    medians = [statistics.median(float(cells[k]) for cells in runs) for k in range(4)]
    steps = ["dlopen", "dlsym of one export", "first call", "all together"]
    return table(["step", "microseconds"], [[step, f"{us:.1f}"] for step, us in zip(steps, medians)])


def draw(compared, path):
    shown = [name for name in CHART if name in compared]
    _, axes = pyplot.subplots(figsize=(8, 0.5 + 0.25 * len(shown)), layout="constrained")
    ns, floors = ([compared[name][k] or 0 for name in shown] for k in (0, 2))
    axes.barh(shown, ns, 0.7, color="tab:blue", label="the library, ns a call")
    axes.barh(shown, floors, 0.3, color="black", label="the bare equation")
    for k, name in enumerate(shown):
        own, plain, floor = compared[name]
        faster = f"  {plain / own:.0f}×" if plain else ""
        axes.text(max(own, floor or 0), k, f" {own:.1f}{faster}", va="center", fontsize="small")
    axes.invert_yaxis()
    axes.margins(0.12, 0.02)
    axes.legend(title="9×: faster than term by term")
    pyplot.savefig(path, metadata={"Date": None})


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build" / "release", help="build directory")
    parser.add_argument("--output", type=pathlib.Path, default=ROOT / "docs", help="directory of the report")
    parser.add_argument("--filter", default=".", help="only exports whose name/states match, e.g. 'BPT/region 1'")
    parser.add_argument("--repetitions", type=int, default=5, help="of which the median is taken")
    options = parser.parse_args()

    bench, library = options.build / "bench", options.build / "VAPRIX" / "libvaprix.so"
    context, timed = run(bench / "exports_benchmark", options.repetitions, f"--benchmark_filter={options.filter}",
                         "--benchmark_enable_random_interleaving=true")
    compared = exports(timed)
    processor = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8"))
    with tempfile.NamedTemporaryFile() as stripped:
        subprocess.run(["strip", "-o", stripped.name, library], check=True)
        size = pathlib.Path(stripped.name).stat().st_size / 1024
    (options.output / "performance.md").write_text(f"""# Performance

Written by `bench/report.py`; `bench/README.md` says what is measured and how to repeat it.

- processor: {processor[1] if processor else "unknown"}
- compiler: {context["compiler"]}
- flags: `{context["flags"]}`
- date: {datetime.date.today().isoformat()}

![Nanoseconds a call of the library and of the bare equations](performance.svg)

## Exports

{exports_table(compared)}
## Threads

{threads_table(timed)}
## Arrays

Nanoseconds an element of 4096, and the part of what calls in a loop take.

{arrays_tables(bench / "arrays_benchmark")}
## Loading

The stripped library has {size:.0f} KiB.

{load_table(bench / "load_benchmark", library)}""", encoding="utf-8")
    draw(compared, options.output / "performance.svg")


if __name__ == "__main__":
    main()
