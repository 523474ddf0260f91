#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the VBA module from the catalogue and vaprix.bas.in: module.py OUTPUT."""
import math
import pathlib
import sys
import textwrap

sys.dont_write_bytecode = True  # the source tree may be read-only
HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "spreadsheet"))
from functions import (MEANINGS, REASON, REASON_HELP, RESETS_CODE, UNWRITTEN, WRITTEN, functions,  # noqa: E402
                       result_type)

LIBRARY = "vaprix.dll"
CATEGORY = "VAPRIX"
CHUNK = 60  # functions a procedure: VBA compiles none of more than 64 KB


def argument(name):
    return f"ByRef {name} As {'Long' if name == 'region' else 'Double'}"


def declare(entry):
    """An export as the prefixed c_NAME, since the plain name is the function of the worksheet."""
    kinds = {"double": ("Function", " As Double"), "int": ("Function", " As Long"), "void": ("Sub", "")}
    what, result = kinds[result_type(entry)]
    return (f"Private Declare PtrSafe {what} c_{entry['name']} Lib \"{LIBRARY}\" Alias \"{entry['name']}\" "
            f"({', '.join(map(argument, entry['arguments']))}){result}")


def call(function):
    """The statements that give Result of x."""
    names = function.arguments
    values = {name: f"x({n})" for n, name in enumerate(names, 1)}
    if function.conversion:
        (name, value), = values.items()
        return f"Result = {function.conversion.replace(name + ' ', value + ' ', 1)}"
    entry = function.export
    region = f"region = Whole({values['region']}): " if "region" in names else ""
    given = ", ".join({**values, "region": "region"}.get(a, "written") for a in entry["arguments"])
    if WRITTEN & set(entry["arguments"]):
        return f"{region}c_{entry['name']} {given}: Result = written"
    return f"{region}Result = c_{entry['name']}({given})"


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


def numbers(every):
    """A list of Case of numbers, neighbours as ranges."""
    runs = []
    for n in every:
        if runs and n == runs[-1][1] + 1:
            runs[-1][1] = n
        else:
            runs.append([n, n])
    text = ", ".join(str(a) if a == b else f"{a} To {b}" for a, b in runs)
    return " _\n        ".join(textwrap.wrap(text, 100))


def select(name, head, cases):
    """A function that answers a text by cases: (case, text)."""
    lines = "".join(f"    Case {case}: {name} = {text}\n" for case, text in cases)
    return (f"Private Function {name}({head}) As String\n    Select Case {head.split()[1]}\n{lines}"
            "    End Select\nEnd Function\n")


NUMBER = "ByVal n As Long"


def rows(made):
    """A text a function, in procedures of a chunk each."""
    texts = [(n, quoted("|".join([f.name, " ".join(f.arguments), f.description]))) for n, f in enumerate(made, 1)]
    parts = [texts[first:first + CHUNK] for first in range(0, len(texts), CHUNK)]
    which = [(f"Is <= {part[-1][0]}", f"Entry{k}(n)") for k, part in enumerate(parts)]
    return "\n".join([select("Entry", NUMBER, which)] +
                     [select(f"Entry{k}", NUMBER, part) for k, part in enumerate(parts)])


def alike(made, key):
    """[(key, numbers of the functions that share it)]"""
    found = {}
    for n, function in enumerate(made, 1):
        found.setdefault(key(function), []).append(n)
    return found.items()


def shared(name, made, key):
    return select(name, NUMBER, [(numbers(every), quoted(text)) for text, every in alike(made, key)])


def refusals(made):
    """A function of the number: the refusals of each."""
    out = []
    for refused, every in alike(made, lambda f: tuple((repr(r.value), r.code or 0, r.reason) for r in f.refusals)):
        listed = ", _\n            ".join(
            f"Array({value.replace('.0', '#') if math.isfinite(float(value)) else 'Null'}, {code}, {quoted(why)})"
            for value, code, why in refused)
        out.append(f"    Case {numbers(every)}\n        Refusals = Array({listed})\n")
    return ("' The refusals of a function: value, Null for any that is not finite; code; reason.\n"
            f"Private Function Refusals({NUMBER}) As Variant\n    Select Case n\n" + "".join(out) +
            "    End Select\nEnd Function\n")


def worksheet(n, function):
    names = function.arguments
    return (f"Public Function {function.name}({', '.join(f'{name} As Variant' for name in names)}) As Variant\n"
            f"    {function.name} = Over({', '.join([str(n), *names])})\nEnd Function\n")


def module():
    made = functions()
    name, state = RESETS_CODE
    filled = {
        "most_arguments": str(max(len(f.arguments) for f in made)),
        "functions_count": str(len(made)), "library": LIBRARY, "category": CATEGORY, "reason": REASON,
        "reason_help": REASON_HELP, "unwritten": f"{UNWRITTEN:.0f}#",
        "resets_code": f"value = c_{name}({state}#)",
        "declares": "\n".join(declare(f.export) for f in made if f.export),
        "results": "    Select Case n\n" + "".join(f"    Case {n}: {call(f)}\n" for n, f in enumerate(made, 1)) +
                   "    End Select",
        "refusals": refusals(made), "rows": rows(made), "titles": shared("Title", made, lambda f: f.title),
        "ranges": shared("Limits", made, lambda f: f.range),
        "meanings": select("Meaning", "ByVal name As String", [(quoted(a), quoted(m)) for a, m in MEANINGS.items()]),
        "functions": "\n".join(worksheet(n, f) for n, f in enumerate(made, 1))}
    text = (HERE / "vaprix.bas.in").read_text(encoding="utf-8")
    for mark, value in filled.items():
        text = text.replace(f"@{mark}@", value)
    assert all(len(f.help) < 256 for f in made), "Excel shows 255 characters"
    longest = max(map(len, text.splitlines()))
    assert longest < 1024, f"VBA takes no line of {longest} characters"
    return text


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pathlib.Path(sys.argv[1]).write_text(module(), encoding="ascii", newline="\r\n")
