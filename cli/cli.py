#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes what the command-line tool knows of the catalogue, the tables of tables.hpp: cli.py OUTPUT."""
import json
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.dont_write_bytecode = True  # the source tree may be read-only
sys.path[:0] = [str(HERE.parent / folder) for folder in
                ("VAPRIX/exports", "arrays", "faces/spreadsheet", "faces/python")]
from answers import CODES, CONSTANTS, answers, prose, rows  # noqa: E402
from arrays import call  # noqa: E402
from functions import refusals  # noqa: E402
from generate import ARGUMENTS, WRITTEN, catalogue, result_type  # noqa: E402
from package import quantities  # noqa: E402

# what a name begins with -> the property, where two state variables or one for T are given
BEGINS = {"P": "p", "T": "T", "V": "v", "D": "d", "H": "h", "S": "s", "X": "x", "U": "u", "F": "f", "G": "g",
          "CP": "cp", "CV": "cv", "W": "w", "Z": "z", "ETA": "eta", "VNU": "nu", "TCO": "lambda", "PR": "Pr",
          "EPS": "epsilon", "FUG": "fugacity", "ALP": "alpha_p", "ALV": "alpha_v", "BET": "beta_p", "CAP": "kappa",
          "CAPT": "kappa_T", "GAM": "cp_per_cv", "RJT": "mu", "A": "a"}
# What an example is asked for where no published one is of this function: by resolver and property, else by argument.
USUAL = {"p": "3", "T": "300", "v": "0.002", "h": "1863.43", "s": "4.05427", "d": "500", "x": "0.5", "region": "0",
         "wavelength": "0.5893", "tolerance": "1e-9", "d_start": "500"}
USUAL_OF = {
    "(of_p[hs]_.|agreed_.*) [^x]*": {"h": "500", "s": "1.5"}, "of_pv x|wet_of_pv_b .*": {"p": "1", "v": "0.1"},
    "of_(pv|dp) .*": {"p": "25"}, "cold_of_(pv|dp) .*": {"p": "1", "v": "0.00099966", "d": "1000.33"},
    "next_of_th .*": {"h": "150"}, "next_of_ts .*": {"T": "273.5", "s": "0.005733"},
    "of_td n|fugacity_of_td .*": {"d": "997"}, "(of_t[vd]|region3_of_vt) .*": {"T": "650"}, "wet_of_td .*": {"d": "10"},
    "saturated_of_d .*": {"d": "2"}, "cold_liquid_of_d .*": {"d": "999.9"}, "liquid_of_[hs] .*": {"h": "500", "s": "1"},
    "((cold_)?vapour_of_[hs]|saturated_of_h) .*": {"h": "2700", "s": "6"},
    "region3_of_pt .*| (region3_density::d_iterated|transport::viscosity_.*)": {"p": "25", "T": "650"},
    "region2_of_pt .*": {"T": "700"}, "region5_of_pt .*": {"p": "30", "T": "1500"},
    " region1::.*": {"h": "500", "s": "1.5"}, " region2::.*": {"h": "3000", "s": "6.5"},
    " region3::.*": {"p": "25.5837"}, " region5::.*": {"p": "30", "h": "5167", "s": "7.73"},
    " p_b23": {"T": "650"}, " d_.*_estimate": {"T": "640"}}


def quoted(text):
    return json.dumps(text, ensure_ascii=False)


def initializer(*cells):
    return "{" + ", ".join(cells) + "}"


def table(kind, name, lines):
    """A constant array, and the span of it that tables.hpp declares."""
    return (f"constexpr {kind} all_{name}[] = {{\n" + "".join(f"    {line},\n" for line in lines) + "};\n",
            f"const std::span<const {kind}> {name}{{all_{name}}};\n")


def inputs(entry):
    return [a for a in entry["arguments"] if a not in WRITTEN]


def example(entry, examples):
    """A call, and where it is published its value and source."""
    given = inputs(entry)
    row = examples.get(entry["name"])
    what = f"{entry['resolver']} {entry['property']}"
    usual = USUAL | next((usual for of, usual in USUAL_OF.items() if re.fullmatch(of, what)), {})
    values = row["arguments"] if row else " ".join(usual[a] for a in given)
    call = f"vaprix call {entry['name']} {values}".rstrip()
    return call + (f"   # {row['value']}: {row['source']}" if row else "")


def export(entry, family, examples):
    said = answers(entry)
    refused = [initializer(repr(r.value).replace("inf", "infinity").replace("nan", "not_a_number"), str(r.code or 0),
                           quoted(r.reason)) for r in refusals(entry)]
    texts = [entry["name"], " ".join(inputs(entry)), entry["unit"], entry["description"], family["title"], said.range,
             prose(said), family["notes"], family["source"], example(entry, examples)]
    listed = f"refusals_of_{entry['name']}" if refused else "{}"
    before = f"constexpr Refusal {listed}[] = {{{', '.join(refused)}}};\n" if refused else ""
    return before, initializer(*map(quoted, texts), listed, "\n     " + call(entry))


def units(entries):
    """The units of the catalogue, and those that units.csv has for them."""
    own = [e["unit"] for e in entries] + [variable_unit(a) for a in ARGUMENTS]
    lines = [initializer(quoted(u), quoted(u), quoted(""), "0", "1", "1") for u in dict.fromkeys(filter(None, own))]
    return lines + [initializer(quoted(u["of"]), quoted(u["unit"]), quoted(u["also"]), u["plus"] or "0",
                                u["times"] or "1", u["per"] or "1") for u in rows("units.csv")]


def variable_unit(name):
    """The unit in which an argument is given, kg/kg of a fraction."""
    meaning = ARGUMENTS[name].removesuffix(", written").removesuffix(", read and written")
    _, _, unit = meaning.partition(", ")
    return {"kg of vapour per kg": "kg/kg"}.get(unit, unit)


def properties(entries):
    of_n = next((e["quantity"], e["unit"]) for e in entries if e["property"] == "n")
    for name, (quantity, unit) in {**quantities(), "n": of_n}.items():
        symbol = name.rstrip("_")
        argument = "wavelength_of_n" if symbol == "n" else ""
        yield initializer(quoted(symbol), quoted(quantity), quoted(unit),
                          f"[](const State& state) {{ return state.{symbol}({argument}); }}")


def readings(entries):
    """(property, family, export) of those of two state variables, or of one for T."""
    begins = "|".join(BEGINS)
    for entry in entries:
        letters = "".join(entry["arguments"]).upper()
        found = re.fullmatch(rf"({begins})([BO]){letters}", entry["name"])
        if found and (len(letters) == 2 or entry["property"] == "T"):
            yield BEGINS[found[1]], found[2], entry


def tables():
    entries, families = catalogue()
    entries = [e for e in entries if result_type(e) != "int"]  # the code is told with each answer
    examples = {row["export"]: row for row in rows("examples.csv")}
    number = {e["name"]: k for k, e in enumerate(entries)}
    made = [export(e, families[e["family"]], examples) for e in entries]
    parts = [
        table("Export", "exports", [line for _, line in made]),
        table("Unit", "units", units(entries)),
        table("Variable", "variables", [initializer(quoted(a), quoted(ARGUMENTS[a].split(", ")[0]),
                                                    quoted(variable_unit(a))) for a in ARGUMENTS if a not in WRITTEN]),
        table("Property", "properties", properties(entries)),
        table("Reading", "readings", [
            initializer(quoted(symbol), quoted(family), quoted(" ".join(entry["arguments"])),
                        f"&all_exports[{number[entry['name']]}]") for symbol, family, entry in readings(entries)]),
        table("Code", "codes", [initializer(c["code"], quoted(c["meaning"])) for c in CODES.values()]),
    ]
    return ("// Generated by cli/cli.py from the catalogue, do not edit.\n#include \"tables.hpp\"\n\n"
            "#include <vaprix_arrays.h>\n\n#include <limits>\n\nnamespace vaprix::cli {\nnamespace {\n\n"
            "constexpr double infinity = std::numeric_limits<double>::infinity();\n"
            "constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();\n"
            + "".join(before for before, _ in made) + "".join(data for data, _ in parts)
            + "\n}  // namespace\n\n" + "".join(span for _, span in parts)
            + "".join(f"const double {name} = {CONSTANTS[name]!r};\n" for name in ("p_crit", "T_crit", "T_min"))
            + "\n}  // namespace vaprix::cli\n")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    pathlib.Path(sys.argv[1]).write_text(tables(), encoding="utf-8")


if __name__ == "__main__":
    main()
