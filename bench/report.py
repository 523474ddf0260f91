#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the benchmarks of a build and writes docs/performance.md and docs/performance.svg.

The machine should be idle: the figures are medians, but a second program on the same core shows.
"""

import argparse
import datetime
import os
import subprocess
import sys
import tempfile

import chart

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def run(build, program, *arguments):
    """Standard output of a benchmark: the machine it names, and the rest."""
    command = [os.path.join(build, "bench", program), *arguments]
    text = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout
    machine, _, rest = text.partition("\n\n")
    return machine, rest.strip()


def cells(table):
    """Rows of the first Markdown table of a text."""
    lines = [line for line in table.splitlines() if line.startswith("|")]
    return [[cell.strip(" `") for cell in line.strip("|").split("|")] for line in lines[2:]]


def stripped_size(library):
    with tempfile.NamedTemporaryFile() as file:
        subprocess.run(["strip", "-o", file.name, library], check=True)
        return os.path.getsize(file.name)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", default=os.path.join(ROOT, "build", "release"), help="build directory")
    parser.add_argument("--output", default=os.path.join(ROOT, "docs"), help="directory of the report")
    parser.add_argument("--filter", default=".", help="only exports whose name/states match, e.g. 'BPT/region 1'")
    parser.add_argument("--repetitions", type=int, default=5, help="of which the median is taken")
    options = parser.parse_args()

    library = os.path.join(options.build, "VAPRIX", "libvaprix.so")
    machine, exports = run(
        options.build, "exports_benchmark", f"--benchmark_filter={options.filter}",
        f"--benchmark_repetitions={options.repetitions}", "--benchmark_enable_random_interleaving=true")
    if not cells(exports):
        sys.exit(f"no export matches {options.filter}")
    _, threads = run(options.build, "threads_benchmark", str(options.repetitions))
    _, load = run(options.build, "load_benchmark", library)

    report = f"""# Performance

Written by `bench/report.py`; `bench/README.md` says what is measured and how to repeat it.

{machine}
- date: {datetime.date.today().isoformat()}

![Nanoseconds a call of the library and of the bare equations](performance.svg)

## Exports

{exports}

## Threads

{threads}

## Loading

The stripped library has {stripped_size(library) / 1024:.0f} KiB.

{load}
"""
    with open(os.path.join(options.output, "performance.md"), "w", encoding="utf-8") as file:
        file.write(report)
    with open(os.path.join(options.output, "performance.svg"), "w", encoding="utf-8") as file:
        file.write(chart.draw(cells(exports)))


if __name__ == "__main__":
    main()
