#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plants one fault at a time in the library and says which ones the quick tests do not notice.

    tools/mutants/mutants.py [--count 60] [--seed 1]

A mutant changes one line of VAPRIX/**/*.hpp or *.cpp, tables apart: a numeric constant (a tolerance by the factor 1000),
a comparison, a sign, the call of a sibling, a dropped statement. Left out are lines that only say where a search starts
and when it is given up, and other systems' code. It is built and tested in one of two copies of the tree in
build/mutants. Not counted, and drawn again, is one that does not compile, or that passes the quick tests and changes none
of the digests' results: no fault. The digests are no quick test themselves, as they notice any change, right or wrong.
Exit status: 0 none survived, 1 some did, 2 the tree fails without any fault.
"""
import argparse
import concurrent.futures
import itertools
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
TREES = [ROOT / "build" / "mutants" / name for name in ("a", "b")]
FIRST = ["exports_test", "tables_test", "pairs_test", "regions_test"]  # they need no compiling
SIBLINGS = [("liquid", "vapour"), ("region1", "region2"), ("region2", "region3"), ("p_min", "p_max"), ("T_min", "T_max"),
            ("T_13", "T_25"), ("p_crit", "psat_13"), ("psat", "p_b23"), ("low", "high"), ("::h", "::s"), ("::v", "::h"),
            ("std::min", "std::max"), ("true", "false"), ("_ph", "_ps"), ("cp", "cv"), ("&&", "||")]
COMPARISONS = {"<": ">", "<=": ">=", ">": "<", ">=": "<=", "==": "!=", "!=": "=="}
NUMBER = re.compile(r"(?<![\w.])\d+\.?\d*(?:e[+-]?\d+)?(?![\w.])")
COMPARISON = re.compile(r"(?<= )(?:<=|>=|==|!=|<|>)(?= )")
SIGN = re.compile(r"(?<= )[+-](?= )")
STATEMENT = re.compile(r"\s+(?=\S)(?!return|using|const|static|auto|double|int|bool|template|inline|struct|break|case)[^{}]*;\s*")
NEVER = re.compile(r"\s*(#|template|using|namespace|static_assert|$)|.*(start|box|around|rounds|patience)")


def mutants_of(line):
    """Every line that one fault makes of it; comments stay."""
    code, mark, note = line.partition("//")
    if NEVER.match(code): return []
    swaps = [(m, str(int(m[0]) + 1) if m[0].isdigit() else f"({m[0]} * {1000 if 'e-' in m[0] else 1.001})")
             for m in NUMBER.finditer(code)]
    swaps += [(m, COMPARISONS[m[0]]) for m in COMPARISON.finditer(code)]
    swaps += [(m, "-" if m[0] == "+" else "+") for m in SIGN.finditer(code)]
    swaps += [(m, b) for pair in SIBLINGS for a, b in (pair, pair[::-1])
              for m in re.finditer(rf"(?<![A-Za-z0-9]){re.escape(a)}(?![A-Za-z0-9])", code)]
    return [code[:m.start()] + new + code[m.end():] + mark + note for m, new in swaps] + ([mark + note] if STATEMENT.fullmatch(code) else [])


def all_mutants():
    """(file, index of the line, line, mutant)"""
    return [(path.relative_to(ROOT), index, line, mutant)
            for path in sorted((ROOT / "VAPRIX").rglob("*.[hc]pp")) if not {"tables", "thread.cpp"} & {*path.parts}
            for index, line in enumerate(path.read_text(encoding="utf-8").splitlines()) for mutant in mutants_of(line)]


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)


def judge(tree):
    for targets, tests in ((["--target", *FIRST], ["-R", "|".join(FIRST)]), ([], ["-L", "quick"])):
        if run("cmake", "--build", tree / "build", "--parallel", "1", *targets).returncode: return "does not compile"
        if run("ctest", "--test-dir", tree / "build", "--stop-on-failure", *tests).returncode: return "killed"
    return "survived" if run("ctest", "--test-dir", tree / "build", "-R", "^host_digests$").returncode else "no change"


def prepare(tree):
    """Brings the copy up to date, writing only what differs; whether it passes."""
    for name in run("git", "-C", ROOT, "ls-files").stdout.splitlines():
        source, copy = ROOT / name, tree / name
        if source.exists() and not (copy.exists() and copy.read_bytes() == source.read_bytes()):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, copy)
    run("cmake", "-S", tree, "--preset", "release", "-B", tree / "build",
        *(f"-DVAPRIX_BUILD_{part}=OFF" for part in ("ARRAYS", "BENCHMARKS", "CLI", "CPP", "EXAMPLES", "VARIANTS")),
        "-DVAPRIX_TEST_STATES=2000", "-DCMAKE_CXX_FLAGS_RELEASE=-O1")
    return judge(tree) == "no change"


def fate(free, mutant):
    (path, index, _, changed), tree = mutant, free.get()
    original = (tree / path).read_text(encoding="utf-8")
    lines = original.splitlines(keepends=True)
    lines[index] = changed + "\n"
    try:
        (tree / path).write_text("".join(lines), encoding="utf-8")
        return judge(tree)
    finally:
        (tree / path).write_text(original, encoding="utf-8")
        free.put(tree)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=60, help="mutants that compile")
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    drawn = iter(random.Random(options.seed).sample(every := all_mutants(), len(every)))
    free, counts = queue.Queue(), {"killed": 0, "survived": 0, "no change": 0, "does not compile": 0}
    with concurrent.futures.ThreadPoolExecutor(len(TREES)) as pool:
        if not all(list(pool.map(prepare, TREES))):
            print(f"without any fault {TREES[0]} does not build or fails its tests", file=sys.stderr)
            return 2
        for tree in TREES:
            free.put(tree)
        while batch := list(itertools.islice(drawn, options.count - counts["killed"] - counts["survived"])):
            for mutant, found in zip(batch, pool.map(lambda mutant: fate(free, mutant), batch)):
                counts[found] += 1
                print(f"\r{counts['killed']} killed, {counts['survived']} survived", end="", file=sys.stderr, flush=True)
                if found in ("survived", "no change"):
                    print(f"{found}: {mutant[0]}:{mutant[1] + 1}\n  - {mutant[2].strip()}\n  + {mutant[3].strip()}", flush=True)
    print(", ".join(f"{count} {name}" for name, count in counts.items()))
    return 1 if counts["survived"] else 0


if __name__ == "__main__":
    sys.exit(main())
