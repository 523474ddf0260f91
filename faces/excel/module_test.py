#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The VBA module in the Basic of LibreOffice, in its VBA mode: module_test.py MODULE LIBRARY.

The module as it is has to compile. Basic declares procedures of DLLs on Windows only, so for the rest of the test each
declared export is a Basic function that calls the library in this process, and a range has no Value2 but Value; all
else of the module runs as it stands, from cells: every function at every kind of failure, ranges, what is no number.
"""
import pathlib
import re
import sys

sys.dont_write_bytecode = True  # the source tree may be read-only
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "spreadsheet"))
import unohelper
from com.sun.star.sheet import XFunctionAccess
from functions import functions
from office import office, opened
from sweep import NOT_AVAILABLE, Checks, Library, cases, sweep

module = pathlib.Path(sys.argv[1]).read_text(encoding="ascii")
library = Library(sys.argv[2])
BY_NAME = {f.name: f for f in functions()}
NOT_A_NUMBER = "Error 2015"  # as Calc shows CVErr(xlErrValue)
expect = Checks()


class Exports(unohelper.Base, XFunctionAccess):
    """The library as an object that Basic can call."""

    entries = {f.export["name"]: f.export for f in BY_NAME.values() if f.export}

    def callFunction(self, name, values):
        return library.result(self.entries[name], values)


def bridged(declared):
    """A declaration as a procedure that calls the library through the object `exports`."""
    _, name, arguments, result = declared.groups()
    names = re.findall(r"ByRef (\w+)", arguments)
    if result:
        return (f"Private Function c_{name}({arguments}){result}\n"
                f"    c_{name} = exports.callFunction(\"{name}\", Array({', '.join(names)}))\nEnd Function")
    return (f"Private Sub c_{name}({arguments})\n"
            f"    {names[-1]} = exports.callFunction(\"{name}\", Array({', '.join(names[:-1])}))\nEnd Sub")


def with_module(desktop, text):
    """A document with the module."""
    document = opened(desktop)
    libraries = document.BasicLibraries
    libraries.VBACompatibilityMode = True
    if not libraries.hasByName("Standard"):
        libraries.createLibrary("Standard")
    libraries.getByName("Standard").insertByName("vaprix", "Option VBASupport 1\n" + text)
    return document


def check_compiles(desktop, text, compiles):
    """A function that calls nothing of the library answers if the whole module compiles."""
    document = with_module(desktop, text)
    cell = document.Sheets.getByIndex(0).getCellRangeByName("A1")
    cell.setFormula("=VAPRIX_KELVIN(20)")
    expect("compiles", cell.Value == 293.15, compiles)
    document.close(True)


def shown(cell):
    return cell.Value if re.fullmatch(r"[-+.\dE]+", cell.String) else cell.String


def check_ranges(sheet):
    sheet.getCellRangeByName("A1:A4").setDataArray([(3.0,), ("text",), (101.0,), ("",)])
    sheet.getCellRangeByName("B1:C1").setDataArray([(300.0, 500.0)])
    result = sheet.getCellRangeByName("E1:F4")
    result.setArrayFormula("=HBPT(A1:A4;B1:C1)")
    for column, t in enumerate((300.0, 500.0)):
        inside = library.answer(BY_NAME["HBPT"], (3.0, t))[0]
        for row, wanted in enumerate((inside, NOT_A_NUMBER, "Error 2042", NOT_A_NUMBER)):
            expect(f"range {row} {column}", shown(result.getCellByPosition(column, row)), wanted)
    for formula, wanted in (("=HBPT(A2;300)", NOT_A_NUMBER), ("=HBPT(A4;300)", NOT_A_NUMBER),
                            ("=HPT(3;300;1E+300)", "Error 2042"), ('=VAPRIX_REASON("NONE";3)', NOT_A_NUMBER),
                            ('=VAPRIX_REASON("HBPT";3)', NOT_A_NUMBER), ('=VAPRIX_REASON("HBPT";3;A2)', NOT_A_NUMBER),
                            ("=SUM(VAPRIX_MPA({10;20;30}))", 6.0)):
        cell = sheet.getCellRangeByName("J1")
        cell.setFormula(formula)
        expect(formula, shown(cell), wanted)


with office() as (desktop, context):
    check_compiles(desktop, module, True)
    check_compiles(desktop, module.replace("End Select", "End Select Case", 1), False)
    declaration = r"Private Declare PtrSafe (Function|Sub) c_(\w+) Lib .*? \((.*?)\)( As \w+)?$"
    text, count = re.subn(declaration, bridged, module.replace(".Value2", ".Value"), flags=re.MULTILINE)
    expect("declared exports", count, len(Exports.entries))
    document = with_module(desktop, text + "\nPublic exports As Object\nSub Connect(library As Object)\n"
                                           "    Set exports = library\nEnd Sub\n")
    connect = document.getScriptProvider().getScript(
        "vnd.sun.star.script:Standard.vaprix.Connect?language=Basic&location=document")
    connect.invoke((Exports(),), (), ())
    one_of_a_kind = {(function.name, kind): (function, values, kind) for function, values, kind in cases()}
    differences, cells = sweep(document.Sheets.getByIndex(0), library, list(one_of_a_kind.values()))
    expect.wrong += differences
    expect.count += cells
    document.Sheets.insertNewByName("odd", 1)
    check_ranges(document.Sheets.getByName("odd"))
    document.close(True)

sys.exit(expect.report())
