#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What each export may answer where it has no result, for the fuzz targets: refusals.py OUTPUT.

A line an export: its name; `checked`, `given` where that is so for region 0 alone, or `unchecked`; words for what its
notes tell of results (`zero`: a result may store the code 0, `below`: it may be below -99998.0, `infinite`, `thin`: a
density may be 0, `any`: next to the critical point); then value:code of every refusal, `-` for no code.
"""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "VAPRIX" / "exports"))
from generate import catalogue  # noqa: E402
from answers import RESOLVERS, answers  # noqa: E402


def line(entry, notes):
    resolver = RESOLVERS[entry["resolver"] or entry["property"].removesuffix("()")]
    answer = answers(entry)
    refused = answer.refusals() + [r for _, r in answer.nan]
    words = ["zero"] * (answer.stores_zero or any(r.code == 0 for r in refused))
    words += [word for word, said in (("below", "below -99998.0"), ("infinite", "infinite"),
                               ("thin", "1e-308"), ("thin", "infinite"), ("any", "any value")) if said in notes]
    pairs = [(r.value.removeprefix("positive "), "-" if r.code is None else r.code) for r in refused if r.code != 0]
    pairs += [(value, "-") for value in re.findall(r"-99999\.0(?= outside the range; no code)", answer.otherwise) +
              re.findall(r"-99999\.0(?= without a code)", notes)]
    kind = "unchecked" if resolver["phases"] == "any" or not pairs else "given" if "region" in entry["arguments"] else \
        "checked"
    return " ".join([entry["name"], kind, *words, *(f"{value}:{code}" for value, code in dict.fromkeys(pairs))])


def main():
    entries, families = catalogue()
    lines = [line(entry, families[entry["family"]]["notes"]) for entry in entries]
    pathlib.Path(sys.argv[1]).write_text("\n".join(lines) + "\n", encoding="utf-8")


main()
