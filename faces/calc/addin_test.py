#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The add-in in LibreOffice Calc: addin_test.py EXTENSION WORKBOOK LIBRARY.

Every function at every kind of failure, ranges, what is no number, the workbook of examples, help, and the time that
100,000 cells take.
"""
import math
import pathlib
import sys
import time

sys.dont_write_bytecode = True  # the source tree may be read-only
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "spreadsheet"))
import uno
from functions import MEANINGS, REASON, functions
from office import office, opened
from sweep import NOT_AVAILABLE, Checks, Library, cases, sweep
from workbook import FAILING, STATES, TEMPERATURES

extension, workbook, library = *sys.argv[1:3], Library(sys.argv[3])
BY_NAME = {f.name: f for f in functions()}
ERRORS = {32767: NOT_AVAILABLE, 519: "#VALUE!"}
expect = Checks()


def answer(name, *values):
    return library.answer(BY_NAME[name], values)[0]


def shown(cell):
    return ERRORS.get(cell.getError(), cell.getError()) if cell.getError() else cell.Value


def check_ranges(sheet):
    """A range is answered by a range, a row or column stands for all; outside a range #N/A."""
    sheet.getCellRangeByName("A1:A3").setDataArray([(3.0,), ("text",), (101.0,)])
    sheet.getCellRangeByName("B1:C1").setDataArray([(300.0, 500.0)])
    result = sheet.getCellRangeByName("E1:F3")
    result.setArrayFormula("=HBPT(A1:A3;B1:C1)")
    for column, t in enumerate((300.0, 500.0)):
        for row, wanted in enumerate((answer("HBPT", 3.0, t), "#VALUE!", NOT_AVAILABLE)):
            expect(f"range {row} {column}", shown(result.getCellByPosition(column, row)), wanted)
    result = sheet.getCellRangeByName("E5:E7")
    result.setArrayFormula("=VAPRIX_MPA({10|20|30}+VAPRIX_BAR({1|2}))")
    for row, wanted in enumerate((2.0, 4.0, NOT_AVAILABLE)):
        expect(f"nested range {row}", shown(result.getCellByPosition(0, row)), wanted)


def check_odd_arguments(sheet):
    sheet.getCellRangeByName("H1").setDataArray([("text",)])
    for formula, wanted in (("=HBPT(H1;300)", "#VALUE!"), ("=HBPT(H2;300)", NOT_AVAILABLE), ("=HBPT(3)", NOT_AVAILABLE),
                            ("=HBPT(NA();300)", NOT_AVAILABLE), ("=HPT(3;300;1E+300)", NOT_AVAILABLE),
                            ("=HPT(3;300;-0.5)", NOT_AVAILABLE), ('=VAPRIX_REASON("NONE";3)', "#VALUE!"),
                            ('=VAPRIX_REASON("HBPT";3)', "#VALUE!"), ("=VAPRIX_REASON(3;3)", "#VALUE!"),
                            ("=HBPT(1E+308*10;300)", 503), ("=hbpt(3;300)", answer("HBPT", 3.0, 300.0))):
        cell = sheet.getCellRangeByName("J1")
        cell.setFormula(formula)
        expect(formula, shown(cell), wanted)


def check_workbook(document):
    def cell(sheet, row, column):
        return document.Sheets.getByName(sheet).getCellByPosition(column, row - 1)
    names = [("V1OT", 2), ("V2OT", 3), ("H1OT", 4), ("HVAPOT", 5), ("H2OT", 6), ("S1OT", 7), ("S2OT", 8)]
    for row, t in enumerate(TEMPERATURES, 5):
        expect(f"p at {t}", shown(cell("Saturation table", row, 1)), answer("POT", t + 273.15) * 10)
        for name, column in names:
            expect(f"{name} at {t}", shown(cell("Saturation table", row, column)), answer(name, t + 273.15))
    for row, (name, *values) in enumerate(FAILING, 4):
        wanted = "#VALUE!" if "text" in values else answer(name, *values)
        expect(f"{name} {values}", shown(cell("Failures", row, 3)), wanted)
    # the cycle, by the same steps: p, h and s of the states, and what they give
    high, low = 150 / 10, 0.05 / 10
    h = [answer("H1OP", low), 0, answer("HOPT", high, 600 + 273.15), 0]
    s = [answer("S1OP", low), 0, answer("SOPT", high, 600 + 273.15), 0]
    h[1] = h[0] + (answer("HOPS", high, s[0]) - h[0]) / 0.8
    h[3] = h[2] - (h[2] - answer("HOPS", low, s[2])) * 0.88
    for n, p in enumerate((low, high, high, low)):
        wanted = (p, answer("TOPH", p, h[n]) - 273.15, h[n], answer("SOPH", p, h[n]) if n % 2 else s[n])
        for column, value in enumerate(wanted, 1):
            got = shown(cell("Rankine cycle", 13 + n, column))
            expect(f"{STATES[n][0]} {column}: {got} {value}", math.isclose(got, value, rel_tol=1e-13), True)
    efficiency = 1 - (h[3] - h[0]) / (h[2] - h[1])
    expect("efficiency", math.isclose(shown(cell("Rankine cycle", 23, 1)), efficiency, rel_tol=1e-13), True)


def check_help(context):
    shown_by_calc = context.ServiceManager.createInstanceWithContext("com.sun.star.sheet.FunctionDescriptions", context)
    every = [{p.Name: p.Value for p in shown_by_calc.getByIndex(n)} for n in range(shown_by_calc.Count)]
    for function in BY_NAME.values():
        found = [d for d in every if d["Name"] == function.name]
        expect(f"functions named {function.name}", len(found), 1)
        expect(f"help of {function.name}", found[0]["Description"], function.help)
        expect(f"arguments of {function.name}", [(a.Name, a.Description) for a in found[0]["Arguments"] or ()],
               [(a, MEANINGS[a]) for a in function.arguments])
    expect("functions named " + REASON, sum(d["Name"] == REASON for d in every), 1)


def seconds(document):
    """The best of three recalculations."""
    times = []
    for _ in range(3):
        start = time.monotonic()
        document.calculateAll()
        times.append(time.monotonic() - start)
    return min(times)


def time_recalculation(desktop):
    """100,000 cells of HBPT: a formula each, then as one array."""
    count = 100_000
    document = opened(desktop)
    sheet = document.Sheets.getByIndex(0)
    states = [(0.01 + n * 9e-4, 300 + n * 0.006) for n in range(count)]
    sheet.getCellRangeByName(f"A1:B{count}").setDataArray(states)
    results = sheet.getCellRangeByName(f"C1:C{count}")
    sheet.getCellRangeByName("C1").setFormula("=HBPT(A1;B1)")
    results.fillAuto(uno.Enum("com.sun.star.sheet.FillDirection", "TO_BOTTOM"), 1)
    each = seconds(document)
    values = results.getDataArray()
    results.clearContents(31)
    results.setArrayFormula(f"=HBPT(A1:A{count};B1:B{count})")
    array = seconds(document)
    expect("array of 100,000 cells", results.getDataArray() == values, True)
    expect("100,000 cells", [v for v, in values[::97]], [answer("HBPT", *state) for state in states[::97]])
    print(f"100,000 cells recalculated in {each:.2f} s, as one array formula in {array:.2f} s")
    document.close(True)


with office(extension) as (desktop, context):
    document = opened(desktop)
    differences, cells = sweep(document.Sheets.getByIndex(0), library, list(cases()))
    expect.wrong += differences
    expect.count += cells
    document.Sheets.insertNewByName("odd", 1)
    check_ranges(document.Sheets.getByName("odd"))
    check_odd_arguments(document.Sheets.getByName("odd"))
    document.close(True)
    document = opened(desktop, pathlib.Path(workbook).resolve().as_uri())
    document.calculateAll()
    check_workbook(document)
    document.close(True)
    check_help(context)
    time_recalculation(desktop)

sys.exit(expect.report())
