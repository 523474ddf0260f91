#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What statement.cpp measures, from the catalogue, as C++: rows.py OUTPUT."""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "VAPRIX" / "exports"))
from generate import catalogue, order, template  # noqa: E402


def row(entry, resolvers):
    """A Row of statement.cpp; a new resolver is added to those that are numbered."""
    variables = [a for a in order(entry) if a != "region"]
    given = ", ".join("region" if a == "region" else f"at[bound::{a}]" for a in order(entry))
    call = template(entry["resolver"], entry["property"]).replace("asked<", "measured<property::") + f"({given})"
    index = resolvers.setdefault(call, len(resolvers))
    letters = "".join(variables).upper()
    phase = "[12LV]?" if len(letters) == 1 else ""
    stem = re.fullmatch(rf"(.+?){phase}[BO]?(?:{letters}|{letters[::-1]})(?:\dN|Z)?", entry["name"]).group(1)
    names = ", ".join(f"bound::{v}" for v in variables if v != "x")
    backward = "true" if re.search("_b$|given", entry["resolver"]) else "false"
    on_line = "true" if re.search("liquid|vapour|line|saturated|of_[tp]x", entry["resolver"]) else "false"
    return f'    {{"{entry["name"]}", "{stem}", {index}, {backward}, {on_line}, {{{names}}}}},\n'


def main():
    resolvers = {}
    rows = [row(e, resolvers) for e in catalogue()[0] if e["resolver"] and e["property"] != "region"]
    states = "".join(f"    [](const Values& at, [[maybe_unused]] int region) -> vaprix::State {{ return {call}; }},\n"
                     for call in resolvers)
    pathlib.Path(sys.argv[1]).write_text(f"const Resolve resolvers[] = {{\n{states}}};\nconst Row rows[] = {{\n"
                                         f"{''.join(rows)}}};\n", encoding="utf-8")


main()
