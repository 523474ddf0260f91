# SPDX-License-Identifier: MIT
"""Every function in the cells of a sheet, at every kind of state and failure of tests/host/answers.csv, against the
library called from here."""
import ctypes
import csv
import re

from functions import (HERE, REASON, RESETS_CODE, UNWRITTEN, WRITTEN, answers, functions, is_failure,
                       result_type)

STATES = HERE.parents[1] / "tests" / "host" / "answers.csv"
USUAL = {"region": 0.0, "wavelength": 0.5893}
# for functions that no state of the table fits
MORE = [{}, {"t": 20}, {"p": 3}, {"T": 700}, {"bar": 30}, {"v": 0.002, "T": 650},
        {"p": 25, "v": 0.002, "T": 650, "region": 3}, {"p": 1, "v": 0.2, "T": 3000, "region": 0},
        {"p": 25, "T": 650, "d_start": 500, "tolerance": 1e-9}]
NOT_AVAILABLE = "#N/A"


class Checks:
    """What a test has compared, and what of it was wrong."""

    def __init__(self):
        self.count, self.wrong = 0, []

    def __call__(self, what, got, wanted):
        self.count += 1
        if got != wanted:
            self.wrong.append(f"{what}: {got!r}, not {wanted!r}")

    def report(self):
        """Prints the result; whether something was wrong."""
        print("\n".join(self.wrong[:60]))
        print(f"{self.count - len(self.wrong)} passed, {len(self.wrong)} failed")
        return bool(self.wrong)


class Library:
    """The exports as they are, by values."""

    def __init__(self, path):
        self.library = ctypes.CDLL(path)

    def result(self, entry, values):
        given = iter(values)
        arguments = [ctypes.c_double(UNWRITTEN) if a in WRITTEN else
                     ctypes.c_int(int(next(given))) if a == "region" else ctypes.c_double(next(given))
                     for a in entry["arguments"]]
        function = getattr(self.library, entry["name"])
        function.restype = {"double": ctypes.c_double, "int": ctypes.c_int, "void": None}[result_type(entry)]
        result = function(*map(ctypes.byref, arguments))
        return arguments[-1].value if result is None else float(result)

    def answer(self, function, values):
        """What a cell shows, and the code that a failing call stores."""
        if function.conversion:
            name, = function.arguments
            return eval(function.conversion, {name: values[0]}), 0
        getattr(self.library, RESETS_CODE[0])(ctypes.byref(ctypes.c_double(RESETS_CODE[1])))
        result = self.result(function.export, values)
        return NOT_AVAILABLE if is_failure(function, result) else result, self.library.ECODETUL()


def cases():
    """(function, values, kind of state) for every function."""
    with open(STATES, newline="", encoding="utf-8") as file:
        states = [(row["resolvers"], row["case"].split()[0], dict(part.split("=") for part in row["state"].split()))
                  for row in csv.DictReader(file)]
    for function in functions():
        names = function.arguments
        alike = [(resolvers, kind, state) for resolvers, kind, state in states
                 if set(names) - set(USUAL) == set(state) - set(USUAL)]
        resolver = function.export["resolver"] if function.export else ""
        found = [(kind, state) for resolvers, kind, state in alike
                 if resolver and re.fullmatch(resolvers, resolver)]
        # one that checks nothing: any state will do
        found = found or [("any", state) for state in MORE + [state for *_, state in alike] if set(state) == set(names)]
        assert found, f"{function.name}: no state"
        yield from ((function, [float({**USUAL, **state}[name]) for name in names], kind) for kind, state in found)


def must_fail(function, kind):
    """Whether the pages say that a state of this kind is refused; a state of another kind may be."""
    if kind == "outside":
        return True
    refused = getattr(answers.answers(function.export), kind) if kind in ("line", "wet", "single") else None
    return refused is not None and not refused.value.startswith("that of")


def sweep(sheet, library, every):
    """What the cells say of these cases, compared; a list of differences and the number of cases."""
    last = len(every)
    columns = "ABCD"
    sheet.getCellRangeByName(f"A1:D{last}").setDataArray(
        [tuple(values) + ("",) * (4 - len(values)) for _, values, _ in every])
    given = [";".join(f"{c}{row}" for c in columns[:len(values)]) for row, (_, values, _) in enumerate(every, 1)]
    sheet.getCellRangeByName(f"E1:G{last}").setFormulaArray([
        (f"={f.name}({g})", f'={REASON}("{f.name}"{";" * bool(g)}{g})',
         f'=IF(ISNA(E{row});"{NOT_AVAILABLE}";IF(ISERROR(E{row});"error";E{row}))')
        for row, ((f, _, _), g) in enumerate(zip(every, given), 1)])
    cells = sheet.getCellRangeByName(f"E1:G{last}").getDataArray()
    wrong = []
    for (function, values, kind), (_, reason, shown) in zip(every, cells):
        wanted, code = library.answer(function, values)
        shown = NOT_AVAILABLE if shown == "Error 2042" else shown  # an error value of Basic as Calc shows it
        stored = re.search(r"\(code (-\d+)\)", reason)
        said = int(stored[1]) if stored else 0
        failed = wanted == NOT_AVAILABLE
        odd = must_fail(function, kind) and not failed or kind == "inside" and failed
        if shown != wanted or bool(reason) != failed or failed and said != code or odd:
            wrong.append(f"{function.name}{tuple(values)} {kind}: {shown!r} '{reason}', not {wanted!r} code {code}")
    return wrong, last
