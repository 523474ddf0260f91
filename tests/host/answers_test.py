#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What header and pages say that an export answers is what it answers: answers_test.py LIBRARY [EXPORTS].

Every export is called at the states of answers.csv and with a NaN for each of its arguments; value and code must be
those that VAPRIX/exports/answers.py reads from answer rule and resolver. The examples of the pages must give
the values that stand in them.
"""
import csv
import ctypes
import math
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
EXPORTS = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else HERE.parents[1] / "VAPRIX" / "exports"
sys.path.insert(0, str(EXPORTS))
sys.dont_write_bytecode = True
import answers  # noqa: E402
import generate  # noqa: E402

library = ctypes.CDLL(sys.argv[1])
failures = []


def call(entry, state):
    """Result and the code stored, None if none was."""
    function = getattr(library, entry["name"])
    function.restype = ctypes.c_double
    arguments = [ctypes.c_int(0) if a == "region" else ctypes.c_double(state[a]) for a in entry["arguments"]]
    stored = []
    for other in ("POT", "TSATOP"):  # failures that leave two different codes
        getattr(library, other)(ctypes.byref(ctypes.c_double(-1.0)))
        before = library.ECODETUL()
        result = function(*[ctypes.byref(a) for a in arguments])
        after = library.ECODETUL()
        stored.append(after if after != before else None)
    return result, next((code for code in stored if code is not None), None)


def expect(entry, state, refused, where):
    result, code = call(entry, state)
    if refused is None or refused.value.startswith("that"):  # a value
        good = math.isfinite(result) and not (result <= -99998.0 or result == 0 and entry["quantity"] == "region")
        wanted = refused.code if refused else 0 if answers.answers(entry).stores_zero else None
    else:
        value = float(refused.value.replace("positive ", ""))
        good = result == value or math.isnan(result) and math.isnan(value)
        wanted = refused.code
    if not good or code != wanted:
        failures.append(f"{entry['name']} {where} {state}: {result!r}, code {code}; said: {refused}, code {wanted}")


def chosen(refusals, words):
    """The refusal of which the words speak; of an export that does not tell them apart the only one."""
    fitting = [r for r in refusals if words in r.where]
    return fitting[0] if fitting else refusals[0] if len(refusals) == 1 else None


entries, _families = generate.catalogue()
calls = 0
met = set()  # the refusals that some state has reached
with open(HERE / "answers.csv", newline="", encoding="utf-8") as file:
    states = list(csv.DictReader(file))
for entry in entries:
    said = answers.answers(entry)
    if said.otherwise:
        continue
    known = [a for a in entry["arguments"] if a not in ("region", "wavelength")]
    for row in states:
        state = {k: float(v) for k, v in (part.split("=") for part in row["state"].split())}
        if set(state) - {"wavelength"} != set(known) or not re.fullmatch(row["resolvers"], entry["resolver"]):
            continue
        if "wavelength" in entry["arguments"]:
            state.setdefault("wavelength", 0.5893)
        kind, _, words = row["case"].partition(" ")
        if kind == "outside":
            refused = chosen(said.outside, words)
            if entry["name"] == "REFOTD" and not (state["d"] > 0 and state["T"] < 773.15):  # tested first
                refused = said.beyond[0]
        elif kind == "beyond":
            refused = next((r for r in said.beyond if words in r.where), None)
            if refused is None:
                continue
        elif kind == "line" and said.line is None or kind == "inside":
            refused = None
        else:
            refused = getattr(said, kind)
        if kind == "single" and entry["resolver"] == "wet_of_td":
            refused = said.outside[-1]
        expect(entry, state, refused, row["case"])
        met.add((entry["name"], refused))
        calls += 1
        if row["case"] in ("single", "inside"):
            for argument, refused_nan in said.nan:
                expect(entry, {**state, argument: math.nan}, refused_nan, f"NaN {argument}")
                calls += 1
    for refused in said.refusals():
        if (entry["name"], refused) not in met and "no number" not in refused.where:
            failures.append(f"{entry['name']}: no state for '{refused.where}'")

for example in generate.rows("examples.csv"):
    entry = next(e for e in entries if e["name"] == example["export"])
    state = dict(zip(entry["arguments"], map(float, example["arguments"].split())))
    result, _ = call(entry, state)
    digits = len(re.sub(r"e.*|^[-0.]*|\.", "", example["value"]))
    if f"{result:.{digits - 1}e}" != f"{float(example['value']):.{digits - 1}e}":
        failures.append(f"example {example['export']} {example['arguments']}: {result!r}, not {example['value']}")
    calls += 1

print(f"{calls} calls, {len(failures)} failures")
print("\n".join(failures[:60]))
sys.exit(bool(failures))
