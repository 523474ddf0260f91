# SPDX-License-Identifier: MIT
"""The functions that a spreadsheet sees: every export of the catalogue and the conversions of units, with the help of
their arguments and the one rule of failure of the spreadsheet faces (README.md)."""
import csv
import math
import pathlib
import re
import sys
from typing import NamedTuple, Optional

sys.dont_write_bytecode = True  # the source tree may be read-only
HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "VAPRIX" / "exports"))
import answers  # noqa: E402
from generate import ARGUMENTS, WRITTEN, catalogue, result_type  # noqa: E402

REASON = "VAPRIX_REASON"
REASON_HELP = "Why a function answers #N/A, in words; empty where it answers a value"
REASON_ARGUMENTS = ["function", "arguments"]
# name of an argument -> what the spreadsheet says of it
MEANINGS = {name: meaning.replace(", read and written", "") for name, meaning in ARGUMENTS.items()} | {
    "t": "temperature, degC", "bar": "absolute pressure, bar", "function": "name of the function, as text",
    "arguments": "its arguments, in order"}
# A function answering 0 stores this code; called before another, what is read after that is the other's own.
RESETS_CODE = ("HVAPOT", 300)
UNWRITTEN = -99999.0  # what an export writes is this before, and so after a failure that writes nothing


class Refusal(NamedTuple):
    """A result that is a failure, the code that is stored with it, and the reason in words."""

    value: float
    code: Optional[int]
    reason: str


class Function(NamedTuple):
    name: str  # in the spreadsheet
    arguments: list  # as the spreadsheet gives them, explained in MEANINGS
    description: str
    title: str  # of its family
    export: Optional[dict] = None  # its row of the catalogue
    conversion: str = ""  # else the formula
    refusals: tuple = ()
    range: str = ""

    @property
    def help(self):
        return f"{self.description}. {self.title}."


def worksheet_name(export):
    """The name of an export; one that is also the address of a cell ends in an underscore."""
    return export + "_" * bool(re.fullmatch("[A-Z]{1,3}[0-9]+", export))


def refusals(entry):
    """The results of an export that are failures."""
    said = answers.answers(entry)
    if said.otherwise == "never fails":
        return ()
    if said.otherwise:  # `VALUE where; more`, or nothing is written
        value, where = re.match(r"(-?[\d.]+)? ?([^;]*)", said.otherwise).groups()
        found = {(value or str(UNWRITTEN), None): [where]}
    else:
        found = {}
        for refused in said.refusals():
            if not refused.value.startswith("that of"):  # the saturated liquid is an answer
                found.setdefault((refused.value, refused.code), []).append(refused.where)
    return tuple(Refusal(float(value.replace("positive ", "")), code, worded(where, code))
                 for (value, code), where in found.items())


def worded(where, code):
    return " or ".join(where) + (f" (code {code})" if code is not None else "")


def conversion(row):
    """The formula of a conversion between a unit of the catalogue and another one."""
    unit = next(u for u in answers.rows("units.csv") if {u["unit"], u["of"]} == {row["from"], row["to"]})
    steps = [(sign, unit[column]) for sign, column in (("+", "plus"), ("*", "times"), ("/", "per")) if unit[column]]
    if row["to"] == unit["unit"]:
        steps = [({"+": "-", "*": "/", "/": "*"}[sign], number) for sign, number in reversed(steps)]
    formula = row["argument"]
    for sign, number in steps:
        formula = f"({formula})" if sign in "*/" and re.search("[+-]", formula) else formula
        formula += f" {sign} ({number})" if " " in number else f" {sign} {number}"
    return formula


def conversions():
    with open(HERE / "conversions.csv", newline="", encoding="utf-8") as file:
        return [Function(row["name"], [row["argument"]], row["description"], "Conversion of units", None,
                         conversion(row)) for row in csv.DictReader(file)]


def exported(entry, families):
    unit = f", {entry['unit']}" if entry["unit"] else ""
    return Function(worksheet_name(entry["name"]), [a for a in entry["arguments"] if a not in WRITTEN],
                    entry["description"] + unit, families[entry["family"]]["title"], entry, "", refusals(entry),
                    answers.answers(entry).range)


def functions():
    entries, families = catalogue()
    return [exported(entry, families) for entry in entries] + conversions()


def is_failure(function, result):
    """The rule: a result that is not finite, or one that the export refuses by."""
    return not math.isfinite(result) or any(result == refused.value for refused in function.refusals)
