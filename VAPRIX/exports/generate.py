#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the faces of the library from its catalogue: generate.py FACE OUTPUT [VERSION].

FACE is one of
  entry-points   C++ source of the exported functions
  answer-rules   C++ constants of the answer rules
  header         the public C header, from include/vaprix.h.in
  version-script the linker's list of exported symbols
  def            the same as a module-definition file of Windows
  names          the exported names, one a line
  signatures     the exported functions, one a line: name and arguments
  abi            the declarations, one a line, to compare with those of the releases
  pages          the pages of docs/ that are made, in Markdown, into the folder OUTPUT

catalogue.csv has a row an export: its name, its arguments in order, the resolver of its state, the property of the
state and the rule by which it answers, the quantity and unit of its result, its family, and a one-line description.
families.csv has what the exports of a family share: page, title, source and facts that no rule knows. No other file
lists exports. Ranges are in resolvers.csv, answer rules in rules.csv, codes in codes.csv, the pages and their examples
in pages.csv and examples.csv.
"""
import csv
import pathlib
import re
import sys
import textwrap

sys.dont_write_bytecode = True  # the source tree may be read-only
from answers import answers, grouped, prose, rows, shared
from pages import pages

HERE = pathlib.Path(__file__).resolve().parent
TEMPLATE = HERE.parents[1] / "include" / "vaprix.h.in"

# name in the catalogue -> what the header says of it
ARGUMENTS = {
    "p": "pressure, MPa",
    "T": "temperature, K",
    "v": "specific volume, m3/kg",
    "h": "specific enthalpy, kJ/kg",
    "s": "specific entropy, kJ/(kg K)",
    "d": "density, kg/m3",
    "x": "vapour quality, kg of vapour per kg",
    "d_start": "density, kg/m3",
    "tolerance": "relative tolerance",
    "region": "region, read and written",
    "wavelength": "wavelength in vacuum, micrometres",
    "eta": "dynamic viscosity, Pa s, written",
    "out": "result, written",
}
WRITTEN = {"eta", "out"}  # a function that writes one of these returns nothing
BESIDE = {"wavelength"}  # arguments of the property, not of its state
DATA = ["CODE"]  # exported data; everything else is a function


def catalogue():
    entries = rows("catalogue.csv")
    families = {f["family"]: f for f in rows("families.csv")}
    names = [e["name"] for e in entries]
    assert len(set(names)) == len(names), "an export stands twice in the catalogue"
    for entry in entries:
        entry["arguments"] = entry["arguments"].split()
        assert entry["family"] in families, f"{entry['name']}: no such family: {entry['family']}"
        unknown = [a for a in entry["arguments"] if a not in ARGUMENTS]
        assert not unknown, f"{entry['name']}: no such argument: {unknown}"
    return entries, families


def result_type(entry):
    if WRITTEN & set(entry["arguments"]):
        return "void"
    return "int" if entry["quantity"] == "error code" else "double"


def argument_type(argument):
    if argument == "region":
        return "int *"
    return "double *" if argument in WRITTEN else "const double *"


def parameters(entry, prefix=""):
    kinds = [argument_type(a) + prefix + a for a in entry["arguments"]]
    return ", ".join(kinds) or "void"


def order(entry):
    """The arguments of the resolver: in the order of the letters in its name, then what else it takes."""
    letters = re.search(r"of_([a-z]+)", entry["resolver"]).group(1)
    by_letter = {a.lower(): a for a in entry["arguments"]}
    first = [by_letter[c] for c in letters]
    assert len(first) == len(letters), f"{entry['name']}: arguments of {entry['resolver']}"
    return first + [a for a in entry["arguments"] if a not in first and a not in BESIDE]


def template(resolver, what):
    """A resolver for what is asked of it: liquid_of_t and vapour_of_t are phase_of_t of a phase; of_ph_b and of_ps_b,
    of_vh and of_vs and their like are of_py_b and of_vy of the second variable; region1_of_pt and those of regions 2
    and 5 are gibbs_of_pt of the region."""
    given = ""
    if phase := re.search(r"liquid|vapour", resolver):
        given = f"Phase::{phase[0]}, "
    elif region := re.match(r"region([125])", resolver):
        given, resolver = f"Region{{{region[1]}}}, ", resolver.replace(region[0], "gibbs")
    elif second := re.search(r"(?<=of_[ptvd])[hs]", resolver):
        given = {"h": "Enthalpy, ", "s": "Entropy, "}[second[0]]
        resolver = resolver[:second.start()] + "y" + resolver[second.end():]
    return re.sub(r"liquid|vapour", "phase", resolver) + f"<{given}asked<{what}>>"


def expression(entry):
    """What answers an export: a constant, a function of the arguments, or a property of a state by its rule."""
    def value(argument):
        return "*" + argument if argument == "region" or argument in WRITTEN else argument
    if not entry["resolver"]:
        arguments = ", ".join(value(a) for a in entry["arguments"])
        return entry["property"] + ("" if entry["family"] == "constants" else f"({arguments})")
    what = f"rules::{entry['rule']}, property::{entry['property']}"
    state = f"{template(entry['resolver'], what)}({', '.join(value(a) for a in order(entry))})"
    beside = "".join(f", {a}" for a in entry["arguments"] if a in BESIDE)
    return f"answer<{what}>({state}{beside})"


def refusal(cell):
    """A cell of rules.csv: a value, the code that is stored with it, and whether the value is scaled."""
    values = {"failed": "failed", "0": "0.0", "infinity": "std::numeric_limits<double>::infinity()",
              "NaN": "std::numeric_limits<double>::quiet_NaN()"}
    value, *rest = cell.split()
    out = "." "value = " + values[value]
    codes = [r for r in rest if r not in ("own", "scaled")]
    out += "".join(f", .code = ErrorCode::{c}" for c in codes)
    return "{" + out + (", .scaled = true" if "scaled" in rest else "") + "}"


def limits(field, cell):
    names = [field, field + "_too"]
    return [f".{name} = {{.t = {t}, .refusal = {refusal(what)}}}" for name, (t, what) in
            zip(names, (part.split(":") for part in cell.split(";")))]


def answer_rules(_entries, _families, _version):
    """The table of answer rules as constants."""
    out = ["// Generated by VAPRIX/exports/generate.py from rules.csv, do not edit.\n#pragma once\n\n"
           '#include "exports/answer.hpp"\n#include "transport/limits.hpp"\n\nnamespace vaprix::rules {\n']
    for rule in rows("rules.csv"):
        flags = rule["other"].split()
        fields = [".of_any = true"] * ("of_any" in flags) + [".outside = " + refusal(rule["outside"])]
        if "own" in rule["outside"].split():
            fields.append(".own_code = true")
        if rule["nan"]:
            fields.append(f".nan_code = ErrorCode::{rule['nan']}")
        if rule["wet"] in ("mixed", "liquid", "ends"):
            fields.append(f".of_wet = OfWet::{rule['wet']}")
        else:
            fields.append(".wet = " + refusal(rule["wet"]))
        fields += [".only_wet = true"] * ("only_wet" in flags)
        for field in ("above", "below"):
            fields += limits(field, rule[field]) if rule[field] else []
        if rule["undefined"]:
            fields.append(".undefined = " + refusal(rule["undefined"]))
        fields += [f".{flag} = true" for flag in ("undefined_first", "stores_zero") if flag in flags]
        out.append(f"\ninline constexpr Answers {rule['rule']}{{\n    " + ",\n    ".join(fields) + "};\n")
    out.append("\n}  // namespace vaprix::rules\n")
    return "".join(out)


def entry_points(entries, _families, _version):
    out = ["// Generated by VAPRIX/exports/generate.py from the catalogue, do not edit.\n"
           '#include "vaprix.h"\n\n#include "answer_rules.hpp"\n#include "exports/functions.hpp"\n\n'
           "using namespace vaprix;\nusing namespace vaprix::inverse;\n\n"]
    for entry in entries:
        reads = "".join(f"    {argument_type(a)}const {a} = at_{a};\n" if a == "region" or a in WRITTEN else
                        f"    const double {a} = *at_{a};\n" for a in entry["arguments"])
        give = "" if result_type(entry) == "void" else "return "
        out.append(f'extern "C" {result_type(entry)} {entry["name"]}({parameters(entry, "at_")}) noexcept {{\n'
                   f"{reads}    {give}{expression(entry)};\n}}\n\n")
    return "".join(out)


def comment(lines):
    """A C89 comment of wrapped lines."""
    wrapped = [w for line in lines for w in textwrap.wrap(line, 92, subsequent_indent="    ")]
    return "/* " + "\n * ".join(wrapped) + "\n */\n"


def header(entries, families, version):
    out = []
    by_title = grouped([e for key in families for e in entries if e["family"] == key],
                       lambda e: families[e["family"]]["title"])
    for title, members in by_title:
        lines = [f"{label}: {text}." for label, text in
                 (("Range", shared(members, lambda e: answers(e).range)),
                  ("Failure", shared(members, lambda e: prose(answers(e)))),
                  ("Note", shared(members, lambda e: families[e["family"]]["notes"])),
                  ("Source", shared(members, lambda e: families[e["family"]]["source"]))) if text]
        out.append("\n" + comment([title + ".", *lines]))
        for entry in members:
            unit = f", {entry['unit']}" if entry["unit"] else ""
            out.append(f"/* {entry['description']}{unit}. */\n"
                       f"VAPRIX_API {result_type(entry)} {entry['name']}({parameters(entry)}) VAPRIX_NOEXCEPT;\n")
    arguments = "".join(f" *   {name:10} {meaning}\n" for name, meaning in ARGUMENTS.items())
    major, minor, patch = version.split(".")
    text = TEMPLATE.read_text(encoding="utf-8")
    for mark, value in (("@arguments@\n", arguments), ("@declarations@\n", "".join(out)), ("@version@", version),
                        ("@major@", major), ("@minor@", minor), ("@patch@", patch)):
        text = text.replace(mark, value)
    return text


def version_script(entries, _families, _version):
    symbols = "".join(f"        {name};\n" for name in all_names(entries))
    return f"{{\n    global:\n{symbols}    local:\n        *;\n}};\n"


def module_definition(entries, _families, _version):
    """Names in quotes: CODE is also a word of such files."""
    symbols = "".join(f'    "{name}"{" DATA" if name in DATA else ""}\n' for name in all_names(entries))
    return "EXPORTS\n" + symbols


def names(entries, _families, _version):
    return "".join(f"{name}\n" for name in all_names(entries))


def signatures(entries, _families, _version):
    return "".join(" ".join([e["name"], *e["arguments"]]) + "\n" for e in entries)


def abi(entries, _families, _version):
    functions = [f"{result_type(e)} {e['name']}({parameters(e)})" for e in entries]
    return "".join(sorted(f"{declaration};\n" for declaration in functions + [f"int {name}" for name in DATA]))


def all_names(entries):
    return sorted([e["name"] for e in entries] + DATA)


def documents(entries, families, _version):
    """The pages by file name."""
    return pages(entries, families, ARGUMENTS)


FACES = {"pages": documents, "entry-points": entry_points, "answer-rules": answer_rules, "header": header,
         "version-script": version_script, "def": module_definition, "names": names, "signatures": signatures,
         "abi": abi}


def main():
    if len(sys.argv) < 3 or sys.argv[1] not in FACES:
        sys.exit(__doc__)
    face, output, version = sys.argv[1], pathlib.Path(sys.argv[2]), (sys.argv + ["0.0.0"])[3]
    made = FACES[face](*catalogue(), version)
    if isinstance(made, str):
        output.write_text(made, encoding="utf-8")
        return
    (output / "reference").mkdir(parents=True, exist_ok=True)
    for file in (output / "reference").glob("*.md"):
        file.unlink()
    for name, text in made.items():
        (output / name).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
