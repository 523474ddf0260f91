# SPDX-License-Identifier: MIT
"""What an export answers where its property has no value: from its answer rule (rules.csv) and its resolver
(resolvers.csv), for the pages, the header and the test that compares both with the library.

A row of resolvers.csv is a resolver, or a function of the arguments that a row of the catalogue names instead of
a property of a state: where it answers (`range`), what coexisting phases it may find (`phases`: `line` on the
saturation line, `wet` steam, `single` phases only, `given` and `any` where the region is not determined), the words
for its refusals, the codes that it gives to rules with an `own` code, in the order of its tests, and the code of a
NaN where that is not the last one. {names} stand for constants of the library.
"""
import csv
import pathlib
import re
from typing import NamedTuple, Optional

HERE = pathlib.Path(__file__).resolve().parent
LIBRARY = HERE.parent


def rows(name):
    with open(HERE / name, newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))


def constants():
    """The named constants of the library that words and rules name, by name."""
    known = {}
    for header in ("frame/constants.hpp", "pt/region_pt.hpp", "transport/limits.hpp"):
        text = (LIBRARY / header).read_text(encoding="utf-8")
        for name, value in re.findall(r"inline constexpr double (\w+) =\s+([^;]+);", text):
            known[name] = sum(known[t] if t in known else float(t) for t in value.split(" + "))
    return known


def factors():
    """Factor of the unit of the properties that have one."""
    text = (LIBRARY / "transport/readings.hpp").read_text(encoding="utf-8")
    named = {name: float(value) for name, value in
             re.findall(r"inline constexpr double (\w+) = (\w+);", text)}
    made = re.findall(r"inline constexpr Reading (\w+)\{.*?(\w+)\};", text, re.DOTALL)
    return {name: named[last] for name, last in made if last in named}


def codes():
    """The table of codes by name, asserted to be that of frame/error_code.hpp."""
    table = rows("codes.csv")
    enum = (LIBRARY / "frame/error_code.hpp").read_text(encoding="utf-8")
    enum = re.search(r"enum class ErrorCode : int \{(.*?)\};", enum, re.DOTALL).group(1)
    in_code = re.findall(r"(\w+) = (-?\d+),", enum)
    in_table = [(row["name"], row["code"]) for row in table if row["name"]]
    assert in_code == in_table, f"codes.csv is not the enumeration: {set(in_code) ^ set(in_table)}"
    return {row["name"] or row["code"]: row for row in table}


CONSTANTS = constants()
FACTORS = factors()
CODES = codes()
RULES = {row["rule"]: row for row in rows("rules.csv")}
RESOLVERS = {row["resolver"]: row for row in rows("resolvers.csv")}


def number(value):
    """As a reader writes it: a limit without the rounding that it is widened by."""
    return f"{value:.12g}" if abs(value - float(f"{value:.8g}")) > 1e-9 else f"{value:.8g}"


def worded(text):
    return re.sub(r"\{(\w+)\}", lambda name: number(CONSTANTS[name.group(1)]), text)


class Refusal(NamedTuple):
    """A value that is no property of the state, where it is given, and the code that is stored with it."""

    where: str
    value: str
    code: Optional[int] = None

    def __str__(self):
        return self.value + (f", code {self.code}" if self.code is not None else "")


class Answers(NamedTuple):
    """What an export answers; None where there is nothing to say."""

    range: str
    outside: tuple = ()
    line: Optional[Refusal] = None  # of (p, T) on the saturation line
    wet: Optional[Refusal] = None
    single: Optional[Refusal] = None
    beyond: tuple = ()  # limits that the property has of its own
    nan: tuple = ()  # by argument, where they differ
    otherwise: str = ""  # in words
    stores_zero: bool = False

    def refusals(self):
        return [r for r in (*self.outside, self.line, self.wet, self.single, *self.beyond) if r]


VALUES = {"failed": -99999.0, "0": 0.0, "infinity": "positive infinity", "NaN": "NaN"}


def refusal(where, cell, entry, code=None):
    name, *rest = cell.split()
    value = VALUES[name]
    if "scaled" in rest:
        value *= FACTORS.get(entry["property"], 1)
    for word in rest:
        if word in CODES:
            code = int(CODES[word]["code"])
    return Refusal(where, str(value), code)


def coded(pairs):
    """(code name, words) of a cell `name: words; name: words`."""
    return [tuple(part.split(": ", 1)) for part in worded(pairs).split("; ")] if pairs else []


def outside(entry, rule, resolver):
    words = worded(resolver["outside"]) or "outside the range"
    if "own" not in rule["outside"].split():
        return (refusal(words, rule["outside"], entry),)
    own = [refusal(where, rule["outside"], entry, int(CODES[name]["code"])) for name, where in
           coded(resolver["codes"])]
    assert own, f"{entry['name']}: {entry['resolver']} has no code of its own"
    return tuple(own)


def limits(entry, rule):
    out = []
    for cell, words in ((rule["above"], "above"), (rule["below"], "below")):
        higher = None
        for part in filter(None, cell.split(";")):
            limit, what = part.strip().split(": ")
            if CONSTANTS[limit] > CONSTANTS["T_min"]:  # where the range itself ends
                up_to = f" up to {number(higher)}" if higher else ""
                out.append(refusal(f"{words} {number(CONSTANTS[limit])}{up_to} K", what, entry))
                higher = CONSTANTS[limit]
    return out


def nan(entry, rule, resolver, out):
    """Of a NaN for an argument: {argument: refusal}."""
    arguments = [a for a in entry["arguments"] if a != "region"]
    if rule["undefined"] and "undefined_first" in rule["other"]:
        return {a: refusal("", rule["undefined"], entry) for a in arguments}
    own = dict(part.split(" ") for part in resolver["nan"].split(", ")) if resolver["nan"] else {}
    answer = {}
    for argument in arguments:
        answer[argument] = out[-1]._replace(where="")
        if argument in own and "own" in rule["outside"].split():
            answer[argument] = answer[argument]._replace(code=int(CODES[own[argument]]["code"]))
        if argument == "wavelength":
            answer[argument] = refusal("", rule["undefined"], entry)
    return answer


def answers(entry):
    """What the export of a row of the catalogue answers."""
    if not entry["resolver"]:
        resolver = RESOLVERS[entry["property"].removesuffix("()")]
        return Answers(worded(resolver["range"]), otherwise=worded(resolver["failure"]))
    resolver, rule = RESOLVERS[entry["resolver"]], RULES[entry["rule"]]
    flags = rule["other"].split()
    spoken = worded(resolver["range"])
    phases = resolver["phases"]
    if phases == "any" and not resolver["outside"]:
        return Answers(spoken, otherwise="never fails")
    out = outside(entry, rule, resolver)
    if "of_any" in flags:
        return Answers(spoken, (Refusal(out[0].where, "0.0"),),
                       nan=tuple((a, Refusal("", "0.0")) for a in entry["arguments"]))
    wet = None
    if phases in ("line", "wet"):
        where = "on the saturation line" if phases == "line" else "for wet steam"
        if rule["wet"] == "liquid":
            wet = Refusal(where, "that of the saturated liquid", 0)
        elif rule["wet"] == "ends":
            wet = Refusal(where + " beyond 1e-6 of either end of the tie line", str(VALUES["failed"]))
        elif rule["wet"] != "mixed":
            wet = refusal(where, rule["wet"], entry)
    beyond = limits(entry, rule)
    if rule["undefined"]:
        first = "undefined_first" in flags
        words = ["for an argument not above 0"] if first else []
        words += [f"above {number(CONSTANTS['refractive_top'])} K"] if "{T_max}" in resolver["range"] else []
        words += ["for a wavelength outside 0.2 to 1.1 micrometres" + (", tested first" if first else "")]
        beyond += [refusal(w, rule["undefined"], entry) for w in words]
        if first:  # none of the state's own tests is reached but the last
            out = (out[-1]._replace(where="outside the range"),)
    if rule["nan"]:
        out += (refusal("for a temperature that is no number", rule["outside"], entry,
                        int(CODES[rule["nan"]]["code"])),)
    return Answers(
        spoken, out, wet if phases == "line" else None, wet if phases == "wet" else None,
        Refusal("for a single phase", str(VALUES["failed"])) if "only_wet" in flags and phases == "wet" and
        entry["resolver"] != "wet_of_td" else None,
        tuple(beyond), tuple(nan(entry, rule, resolver, out).items()) if phases != "any" else (),
        stores_zero="stores_zero" in flags)


def listed(words):
    words = list(dict.fromkeys(words))
    return " and ".join([", ".join(words[:-1]), words[-1]] if len(words) > 1 else words)


def prose(answer):
    """The same in a sentence."""
    if answer.otherwise:
        return answer.otherwise
    by_value = {}
    for refused in answer.refusals():
        by_value.setdefault(refused.value, {}).setdefault(refused.code, []).append(refused.where)
    out = []
    any_code = any(r.code is not None for r in answer.refusals())
    for value, by_code in by_value.items():
        parts = []
        for code, where in by_code.items():
            stored = f" with code {code}" if code is not None else " without a code" if any_code else ""
            parts.append(stored.strip() + (" " if stored else "") + listed(where))
        out.append(f"{value} {', '.join(parts)}")
    text = ", ".join(out)
    text += "" if any_code else ", no code"
    return text + (", a success stores 0" if answer.stores_zero else "")


def grouped(members, key):
    """[(key, members that share it)] in order of the first of them."""
    out = {}
    for entry in members:
        out.setdefault(key(entry), []).append(entry)
    return list(out.items())


def shared(members, words):
    """Sentences with the names of the exports they hold for: `words` of each, once."""
    groups = grouped(members, words)
    if len(groups) < 2:
        return groups[0][0] if groups else ""
    largest = max(groups, key=lambda group: len(group[1]))
    if len(largest[1]) > 8:
        groups = [g for g in groups if g is not largest] + [(largest[0], None)]
    return "; ".join(f"{', '.join(e['name'] for e in some) if some else 'the others'}: {text}"
                     for text, some in groups if text)
