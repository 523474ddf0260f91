# SPDX-License-Identifier: MIT
"""The entry of each export in the handbook: what is evaluated, range, failure, accuracy, and the call in each language.

formulas.csv has the formula of a property, in regions 1, 2 and 5 and in region 3 where that differs; ways.csv how a
resolver finds the state. The results of the examples are the library's, which the environment names as VAPRIX_LIBRARY.
"""
import csv
import ctypes
import os
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path[:0] = [str(ROOT / folder) for folder in ("VAPRIX/exports", "cli", "faces/spreadsheet")]
import cli  # noqa: E402
from answers import answers, prose, rows  # noqa: E402
from functions import exported, is_failure, worksheet_name  # noqa: E402
from generate import WRITTEN, argument_type, catalogue, parameters, result_type  # noqa: E402
from pages import REGIONS, stated  # noqa: E402

LEGEND = """
## Function by function

In the formulas $\\gamma(\\pi, \\tau)$ is the dimensionless Gibbs energy of the equation of regions 1, 2 and 5,
$\\phi(\\delta, \\tau)$ the dimensionless Helmholtz energy of region 3; a subscript is a derivative, a prime the saturated
liquid, two the saturated vapour. The lines of a language are the same call, whose result is that of the example.

"""
OF_DENSITY = {"eta", "vis", "vnu", "vki", "tco", "tcon", "pr", "a", "eps", "n"}  # and of T


def table(name):
    with open(HERE / name, newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))


ENTRIES, FAMILIES = catalogue()
PAGES = {row["page"]: row["title"] for row in rows("pages.csv")}
NAMES = {e["name"]: FAMILIES[e["family"]]["page"] for e in ENTRIES}  # of an export: its page
FORMULAS = {row["property"]: row for row in table("formulas.csv")}
WAYS = table("ways.csv")
EXAMPLES = {row["export"]: row for row in rows("examples.csv")}
STATED = stated()
LIBRARY = ctypes.CDLL(os.environ["VAPRIX_LIBRARY"])


def plain(entry):
    """The property of an export without the way it is formed, as v of v_of_d."""
    return re.sub("(_of_[vd])+$|_or_infinite", "", entry["property"])


def formula(entry):
    row = FORMULAS.get(plain(entry))
    if not row:
        return ""
    region3 = f", in region 3 ${row['region3']}$" if row["region3"] else ""
    return f"${row['formula']}${region3}"


def way(entry):
    """How the state of an export is found."""
    for row in WAYS:
        if found := re.fullmatch(row["resolver"], entry["resolver"]):
            of_density = "the correlation in density and T, of the density by " * (entry["property"] in OF_DENSITY)
            return of_density + found.expand(row["way"])
    assert not entry["resolver"], f"ways.csv has nothing of {entry['resolver']}"
    return ""


def accuracy(entry):
    """The largest errors of an export that docs/statement.csv has, and residuals but for 0 of what was given."""
    said = []
    for region, name in REGIONS.items():
        row = STATED.get((entry["name"], region), {})
        residual = row.get("residual", "").removeprefix("0") and f"residual {row['residual']}"
        figures = [row.get("max_relative"), residual]
        if any(figures):
            said.append("region " * name.isdigit() + f"{name} {', '.join(filter(None, figures))}")
    return "; ".join(said)


def called(entry):
    """The arguments of an example, and the result that the library answers."""
    _, _, _, *values = cli.example(entry, EXAMPLES).partition(" #")[0].split()
    held = {"const double *": ctypes.c_double, "double *": ctypes.c_double, "int *": ctypes.c_int}
    given = dict(zip([a for a in entry["arguments"] if a not in WRITTEN], values))
    numbers = [held[argument_type(a)](float(given.get(a, 0)) if argument_type(a) != "int *" else int(given[a]))
               for a in entry["arguments"]]
    function = getattr(LIBRARY, entry["name"])
    function.restype = {"double": ctypes.c_double, "int": ctypes.c_int, "void": None}[result_type(entry)]
    result = function(*map(ctypes.byref, numbers))
    result = numbers[-1].value if result is None else result
    assert not is_failure(exported(entry, FAMILIES), result), f"{entry['name']}: the example fails"
    return given, f"{result:.9g}"


def calls(entry, given):
    """The call in each language."""
    name, arguments, values = entry["name"], entry["arguments"], ", ".join(given.values())
    result = "" if result_type(entry) == "void" else f"{result_type(entry)} result = "
    yield "C, C++", f"{result}{name}({', '.join('&' + a for a in arguments)});"
    yield "Fortran", f"{'result = ' if result else 'call '}{name.lower()}({', '.join(arguments)})"
    if name != "ECODETUL":  # of which each element of an array has one
        yield "Python", f"vaprix.{name}" + f"({values})" * bool(given)
    yield "Excel, Calc, VBA", f"={worksheet_name(name)}({values})"
    if name != "ECODETUL":
        yield "Shell", " ".join(["vaprix call", name, *given.values()])


def entry_of(entry):
    given, result = called(entry)
    unit = entry["unit"]
    of_unit = f" ({unit})" if unit[:1].isdigit() else " " + unit  # 1e-6 Pa s is no factor of the number
    with_units = [f"{name} = {value} {'' if name == 'region' else cli.variable_unit(name)}".rstrip()
                  for name, value in given.items()]
    fields = [("Formula", formula(entry)), ("Evaluated", way(entry)), ("Range", answers(entry).range),
              ("Failure", prose(answers(entry))), ("Accuracy", accuracy(entry)),
              ("Example", f"{', '.join(with_units)}: {result}{of_unit}".removeprefix(": "))]
    fields += [(language, f"`{call}`") for language, call in calls(entry, given)]
    return (f"```{{c:function}} {result_type(entry)} {entry['name']}({parameters(entry)})\n\n"
            f"{entry['description']}{unit and ', ' + unit}.\n\n" +
            "".join(f":{label}: {text}\n" for label, text in fields if text) + "```\n\n")


def of_page(page):
    """The entries of a page of the reference."""
    members = [entry_of(e) for e in ENTRIES if NAMES[e["name"]] == page]
    return LEGEND + "".join(members) if members else ""
