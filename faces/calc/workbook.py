#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the workbook of examples, a flat OpenDocument spreadsheet: workbook.py OUTPUT."""
import pathlib
import re
import sys
from xml.sax.saxutils import escape, quoteattr

sys.dont_write_bytecode = True  # the source tree may be read-only
from addin import REASON, SERVICE, functions, identifier, method

METHODS = {f.name: method(f) for f in functions()} | {REASON: identifier(REASON)}

TITLE, HEAD, UNIT, AFTER, TEXT, GIVEN = "title", "head", "unit", "after", "text", "given"
LINE = 'fo:border-bottom="0.5pt solid #1f4e79"'
# style -> properties of the text, the cell and the paragraph
STYLES = {
    TITLE: ('fo:font-size="14pt" fo:font-weight="bold" fo:color="#1f4e79"', "", ""),
    TEXT: ("", "", ""),
    HEAD: ('fo:font-weight="bold" fo:color="#ffffff"', 'fo:background-color="#1f4e79"', 'fo:text-align="center"'),
    AFTER: ("", "", 'fo:text-align="start" fo:margin-left="0.2cm"'),
    UNIT: ('fo:font-style="italic" fo:color="#1f4e79"', f'fo:background-color="#dce6f1" {LINE}',
           'fo:text-align="center"'),
    GIVEN: ('fo:color="#0000c0"', 'fo:background-color="#fff8dc"', ""),
}
DECIMALS = range(9)
SHEET_WIDTHS = {"Rankine cycle": [5.4, 2.4, 2.4, 2.6, 2.6, 2.4], "Saturation table": [1.8] + [2.5] * 8,
                "Failures": [2.6, 3.0, 3.0, 2.4, 31.0]}


def text(value, style=TEXT):
    return (f'<table:table-cell table:style-name="{style}" office:value-type="string">'
            f"<text:p>{escape(value)}</text:p></table:table-cell>")


def number(value, style=GIVEN):
    return f'<table:table-cell table:style-name="{style}" office:value-type="float" office:value="{value!r}"/>'


def qualified(formula):
    """A formula whose functions bear the full names that are stored in a document."""
    def full(match):
        return f"{SERVICE.upper()}.{METHODS[match[1]]}(" if match[1] in METHODS else match[0]
    return re.sub(r"\b([A-Z][A-Z0-9_]*)\(", full, formula)


def formula(content, decimals=None, rows=0, style=TEXT):
    """A cell of a formula, or of an array formula of so many rows."""
    style = style if decimals is None else f"decimals{decimals}"
    array = f' table:number-matrix-columns-spanned="1" table:number-matrix-rows-spanned="{rows}"' if rows else ""
    attribute = quoteattr("of:=" + qualified(content))
    return f'<table:table-cell table:style-name="{style}" table:formula={attribute}{array}/>'


def heads(*names, style=HEAD):
    return [text(name, style) for name in names]


EMPTY = "<table:table-cell/>"
GIVEN_OF_THE_CYCLE = [("Live steam pressure", 150, "bar"), ("Live steam temperature", 600, "degC"),
                      ("Condenser pressure", 0.05, "bar"), ("Efficiency of the turbine", 0.88, "-"),
                      ("Efficiency of the pump", 0.8, "-"), ("Live steam flow", 100, "kg/s")]
# A state: name, p, h and s by what stands left of it or above it
STATES = [("1  condensate", "VAPRIX_MPA([.$B$6])", "H1OP([.B{row}])", "S1OP([.B{row}])"),
          ("2  behind the pump", "VAPRIX_MPA([.$B$4])",
           "[.D13]+(HOPS([.B{row}];[.E13])-[.D13])/[.$B$8]", "SOPH([.B{row}];[.D{row}])"),
          ("3  live steam", "VAPRIX_MPA([.$B$4])", "HOPT([.B{row}];VAPRIX_KELVIN([.$B$5]))",
           "SOPT([.B{row}];VAPRIX_KELVIN([.$B$5]))"),
          ("4  exhaust steam", "VAPRIX_MPA([.$B$6])",
           "[.D15]-(([.D15]-HOPS([.B{row}];[.E15]))*[.$B$7])", "SOPH([.B{row}];[.D{row}])")]
BALANCE = [("Work of the turbine", "[.D15]-[.D16]", 2, "kJ/kg"), ("Work of the pump", "[.D14]-[.D13]", 2, "kJ/kg"),
           ("Heat given", "[.D15]-[.D14]", 2, "kJ/kg"), ("Power", "([.B19]-[.B20])*[.B9]/1000", 2, "MW"),
           ("Thermal efficiency", "([.B19]-[.B20])/[.B21]", 5, "-")]


def rankine():
    rows = [[text("Rankine cycle", TITLE)], [], heads("Given", "", "")]
    rows += [[text(name), number(value), text(unit, AFTER)] for name, value, unit in GIVEN_OF_THE_CYCLE]
    rows += [[], heads("State", "p", "t", "h", "s", "x"),
             heads("", "MPa", "degC", "kJ/kg", "kJ/(kg K)", "kg/kg", style=UNIT)]
    for row, (name, p, h, s) in enumerate(STATES, len(rows) + 1):
        ph = f"[.B{row}];[.D{row}]"
        rows.append([text(name), formula(p, 4), formula(f"VAPRIX_CELSIUS(TOPH({ph}))", 3),
                     formula(h.format(row=row), 2), formula(s.format(row=row), 5),
                     formula(f'IFNA(XOPH({ph});"-")', 4)])
    rows += [[], heads("Balance", "", "")]
    return rows + [[text(name), formula(content, decimals), text(unit, AFTER)]
                   for name, content, decimals, unit in BALANCE]


TEMPERATURES = [0.01, *range(10, 371, 10), 373.946]
SATURATED = [("p", "bar", "VAPRIX_BAR(POT({T}))", 5), ("v'", "m3/kg", "V1OT({T})", 7), ("v''", "m3/kg", "V2OT({T})", 6),
             ("h'", "kJ/kg", "H1OT({T})", 2), ("r", "kJ/kg", "HVAPOT({T})", 2), ("h''", "kJ/kg", "H2OT({T})", 2),
             ("s'", "kJ/(kg K)", "S1OT({T})", 4), ("s''", "kJ/(kg K)", "S2OT({T})", 4)]


def saturation():
    first = 5
    last = first + len(TEMPERATURES) - 1
    rows = [[text("Saturation table by temperature", TITLE)],
            [text("Each column is one array formula of the temperatures on its left.")],
            heads("t", *(name for name, *_ in SATURATED)),
            heads("degC", *(unit for _, unit, *_ in SATURATED), style=UNIT)]
    kelvin = f"VAPRIX_KELVIN([.A{first}:.A{last}])"
    rows.append([number(TEMPERATURES[0])] + [formula(content.format(T=kelvin), decimals, len(TEMPERATURES))
                                             for _, _, content, decimals in SATURATED])
    # the cells that the array formulas cover
    return rows + [[number(t)] + [f'<table:table-cell table:style-name="decimals{decimals}"/>'
                                  for *_, decimals in SATURATED] for t in TEMPERATURES[1:]]


FAILING = [("HBPT", 3, 300), ("HBPT", 101, 300), ("HOPT", 101, 300), ("DBPT", 20, 638.8959115457017),
           ("TCOBPT", 1, 1100), ("XOPH", 3, 500), ("CPOPH", 1, 1500), ("TOPH", 1, 8000), ("HOTX", 300, 1.2),
           ("REGIONPT", 1, 2300), ("POTS", 300, "text")]


def failures():
    rows = [[text("Failures and their reasons", TITLE)],
            [text("A failure is #N/A, an argument that is no number #VALUE!; VAPRIX_REASON says why.")],
            heads("Function", "1st argument", "2nd argument", "Result", "Reason")]
    for row, (name, *values) in enumerate(FAILING, len(rows) + 1):
        given = f"[.B{row}];[.C{row}]"
        rows.append([text(name), *(text(v, GIVEN) if isinstance(v, str) else number(v) for v in values),
                     formula(f"{name}({given})", 4), formula(f"VAPRIX_REASON([.A{row}];{given})", style=AFTER)])
    return rows


SHEETS = {"Rankine cycle": rankine, "Saturation table": saturation, "Failures": failures}


def styles():
    out = []
    for name, (letters, cell, paragraph) in STYLES.items():
        out.append(f'<style:style style:name="{name}" style:family="table-cell"><style:table-cell-properties {cell}/>'
                   f"<style:paragraph-properties {paragraph}/><style:text-properties {letters}/></style:style>")
    for places in DECIMALS:
        out.append(f'<number:number-style style:name="number{places}"><number:number number:decimal-places="{places}" '
                   f'number:min-decimal-places="{places}" number:min-integer-digits="1"/></number:number-style>'
                   f'<style:style style:name="decimals{places}" style:family="table-cell" '
                   f'style:data-style-name="number{places}"><style:paragraph-properties fo:text-align="end"/>'
                   "</style:style>")
    for width in sorted({w for widths in SHEET_WIDTHS.values() for w in widths}):
        out.append(f'<style:style style:name="wide{width}" style:family="table-column">'
                   f'<style:table-column-properties style:column-width="{width}cm"/></style:style>')
    return "".join(out)


def sheet(name, rows):
    columns = "".join(f'<table:table-column table:style-name="wide{w}"/>' for w in SHEET_WIDTHS[name])
    lines = "".join(f"<table:table-row>{''.join(row) or EMPTY}</table:table-row>\n" for row in rows)
    return f'<table:table table:name="{name}" table:style-name="sheet">{columns}\n{lines}</table:table>\n'


NAMES = "".join(f' xmlns:{prefix}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"' for prefix, name in (
    ("office", "office"), ("table", "table"), ("text", "text"), ("style", "style"), ("number", "datastyle"),
    ("fo", "xsl-fo-compatible"))) + ' xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2"'
PAGE = ('<style:page-layout style:name="page"><style:page-layout-properties style:print-orientation="landscape" '
        'fo:page-width="29.7cm" fo:page-height="21cm" style:scale-to="100%" style:scale-to-X="1" '
        'style:scale-to-Y="1"/><style:header-style/><style:footer-style/></style:page-layout>')


def workbook():
    return ('<?xml version="1.0" encoding="UTF-8"?>\n'
            f'<office:document{NAMES} office:version="1.3" '
            'office:mimetype="application/vnd.oasis.opendocument.spreadsheet">\n<office:styles><style:default-style '
            'style:family="table-cell"><style:text-properties fo:font-family="Liberation Sans" fo:font-size="10pt"/>'
            '</style:default-style></office:styles>\n<office:automatic-styles>'
            f'<style:style style:name="sheet" style:family="table" style:master-page-name="Default"/>{styles()}{PAGE}'
            '</office:automatic-styles>\n<office:master-styles><style:master-page style:name="Default" '
            'style:page-layout-name="page"><style:header style:display="false"/><style:footer style:display="false"/>'
            "</style:master-page></office:master-styles>\n<office:body><office:spreadsheet>\n"
            + "".join(sheet(name, rows()) for name, rows in SHEETS.items())
            + "</office:spreadsheet></office:body>\n</office:document>\n")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pathlib.Path(sys.argv[1]).write_text(workbook(), encoding="utf-8")
