#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the C++ coefficient tables in VAPRIX/*/tables/ from the published tables in published/.

Digits stay as printed. With --check nothing is written; the exit status says whether the committed
headers are what the data give.
"""
import csv
import pathlib
import string
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
DATA = ROOT / "published"


def read(path):
    """Comment lines (without the mark) and rows of a data file."""
    lines = (DATA / path).read_text(encoding="utf-8").splitlines()
    notes = [line[1:].strip() for line in lines if line.startswith("#")]
    return notes, list(csv.DictReader(line for line in lines if line and not line.startswith("#")))


def number(text):
    """The printed digits, as a C++ literal of type double."""
    return text if any(c in text for c in ".e") else text + ".0"


def comment(notes):
    keep = [n for n in notes if not n.startswith(("Source:", "(c)", "coefficients in"))]
    return "".join(f"// {n}\n" for n in keep)


def array(kind, name, cells):
    """One printed row a line, a mark every ten rows."""
    out = [f"inline constexpr {kind} {name}[] = {{\n"]
    for k, cell in enumerate(cells):
        if len(cells) > 10 and k % 10 == 0:
            out.append(f"    // {k + 1}-{min(k + 10, len(cells))}\n")
        out.append(f"    {cell},\n")
    return "".join(out) + f"}};\nstatic_assert(std::size({name}) == {len(cells)});\n"


def term_array(name, rows, first="I", second="J", value="n"):
    """Rows n x^I y^J, the columns named; a column that is not there stands for exponents of 0."""
    return array("Term", name, [f"{{{r.get(first, 0)}, {r.get(second, 0)}, {number(r[value])}}}" for r in rows])


def terms(name, path):
    notes, rows = read(path)
    return comment(notes) + term_array(name, rows)


def in_quarters(rows, column):
    """Exponents printed in steps of 1/4 become whole powers of the fourth root."""
    return [{**r, column: int(4 * float(r[column]))} for r in rows]


def quarter_terms(name, path):
    notes, rows = read(path)
    return comment(notes + ["Here I counts quarters: powers of pi^(1/4)."]) + term_array(name, in_quarters(rows, "I"))


def numbers(name, path):
    notes, rows = read(path)
    return comment(notes) + array("double", name, [number(r["n"]) for r in rows])


def constants(path):
    """Constants that the data name."""
    notes, rows = read(path)
    return comment(notes) + "".join(f"inline constexpr double {r['name']} = {number(r['value'])};\n" for r in rows)


def viscosity():
    notes, dilute = read("transport/viscosity_H0.csv")
    dense_notes, dense = read("transport/viscosity_H.csv")
    return (comment(notes) + term_array("dilute", dilute, "-", "i", "H") + "\n"
            + comment(dense_notes) + term_array("dense", dense, "i", "j", "H"))


def dielectric():
    notes, rows = read("transport/dielectric.csv")
    return (comment(notes + ["Here J counts quarters: powers of (Tc/T)^(1/4)."])
            + term_array("terms", in_quarters(rows[:-1], "j"), "i", "j", "N")
            + f"inline constexpr double last = {number(rows[-1]['N'])};  // N12\n")


def region3():
    notes, rows = read("if97/t30_region3.csv")
    return (comment(notes) + f"inline constexpr double region3_log_coefficient = {number(rows[0]['n'])};\n"
            "\n// Rows 2 to 40.\n" + term_array("region3", rows[1:]))


def boundaries():
    notes, rows = read("region3_vpt/boundaries.csv")
    return comment(notes) + "".join(
        "\n" + term_array(name.replace("T3", "t3"), [r for r in rows if r["equation"] == name], "-", "I")
        for name in dict.fromkeys(r["equation"] for r in rows))


def volumes():
    notes, rows = read("region3_vpt/reducing.csv")
    out = ["// " + notes[0].split(", Table")[0] + ", Tables 4 and 12: reducing quantities and\n"
           "// parameters of v/v* = (sum n ((p/p* - a)^c)^I ((T/T* - b)^d)^J)^e; subregion 3n is the\n"
           "// exponential of its sum (c, d, e do not exist there).\n"
           "struct VolumeForm {\n"
           "    double v_star, p_star, T_star;  // m3/kg, MPa, K\n"
           "    double a, b;\n"
           "    double c, d, e;\n"
           "};\n"]
    for r in rows:
        values = [number(r[c] or "1") for c in ("v_star", "p_star", "T_star", "a", "b", "c", "d", "e")]
        out.append(f"inline constexpr VolumeForm form_{r['subregion']}{{{', '.join(values)}}};\n")
    for letter in string.ascii_lowercase:
        notes, rows = read(f"region3_vpt/v3{letter}.csv")
        out.append(f"\n// {notes[0].rsplit(', ', 1)[1]}: subregion 3{letter}\n" + term_array(f"v3{letter}", rows))
    return "".join(out)


def auxiliary_densities():
    notes, rows = read("transport/saturation_1992.csv")
    head = [notes[0], "Eqs. (2) and (3): rho'/rhoc = 1 + sum b tau^(J/3), ln(rho''/rhoc) = sum c tau^(J/6),",
            "tau = 1 - T/Tc."]
    return comment(head) + "\n" + "\n".join(
        term_array(f"saturated_{phase}_density", [r for r in rows if r["set"] == key], "-", "exp_num", "value")
        for phase, key in (("liquid", "b"), ("vapour", "c")))


def auxiliary_energies():
    notes, rows = read("transport/saturation_1992.csv")
    cells = [number(r["value"]) for r in rows if r["set"] in ("d", "d_alpha", "d_phi")]
    return (comment([notes[0], "Eqs. (4) and (5): d1 to d5, then d_alpha and d_phi."])
            + array("double", "saturated_energies", cells))


def all_terms(folder, names):
    """Tables of the names of their files."""
    return [terms(name.replace("T3", "t3"), f"{folder}/{name}.csv") for name in names.split()]


# The tables of each header, in their order.
HEADERS = {
    "regions/boundaries_hs": lambda: all_terms("hs3", "h1_liq_s h3a_liq_s h2ab_vap_s h2c3b_vap_s hb13_s tb23_hs"),
    "regions/b23": lambda: [numbers("b23", "if97/t01_b23.csv")],
    "regions/region1_backward": lambda: [terms("t1_ph", "if97/t06_region1_T_ph.csv"),
                                         terms("t1_ps", "if97/t08_region1_T_ps.csv"),
                                         *all_terms("hs12", "p1_hs")],
    "regions/region2_backward": lambda: [numbers("b2bc", "if97/t19_b2bc.csv"),
                                         terms("t2a_ph", "if97/t20_region2a_T_ph.csv"),
                                         terms("t2b_ph", "if97/t21_region2b_T_ph.csv"),
                                         terms("t2c_ph", "if97/t22_region2c_T_ph.csv"),
                                         quarter_terms("t2a_ps", "if97/t25_region2a_T_ps.csv"),
                                         terms("t2b_ps", "if97/t26_region2b_T_ps.csv"),
                                         terms("t2c_ps", "if97/t27_region2c_T_ps.csv"),
                                         numbers("h2ab", "hs12/h2ab_s.csv"),
                                         *all_terms("hs12", "p2a_hs p2b_hs p2c_hs")],
    "regions/region1": lambda: [terms("region1", "if97/t02_region1.csv")],
    "regions/region2": lambda: [terms("region2_ideal", "if97/t10_region2_ideal.csv"),
                                terms("region2_residual", "if97/t11_region2_residual.csv")],
    "regions/region3": lambda: [region3()],
    "regions/region3_backward": lambda: [numbers("h3ab", "region3_phps/h3ab_p.csv"),
                                         *all_terms("region3_phps", "T3a_ph T3b_ph v3a_ph v3b_ph T3a_ps T3b_ps "
                                                                    "v3a_ps v3b_ps p3sat_h p3sat_s"),
                                         *all_terms("hs3", "p3a_hs p3b_hs")],
    "regions/region3_boundaries": lambda: [boundaries()],
    "regions/region3_volume": lambda: [volumes()],
    "regions/region5": lambda: [terms("region5_ideal", "if97/t37_region5_ideal.csv"),
                                terms("region5_residual", "if97/t38_region5_residual.csv")],
    "regions/saturated_densities": lambda: [auxiliary_densities()],
    "regions/saturated_energies": lambda: [auxiliary_energies()],
    "regions/saturation": lambda: [numbers("saturation", "if97/t34_saturation.csv"), *all_terms("hs3", "tsat_hs")],
    "transport/conductivity": lambda: [constants("transport/conductivity.csv")],
    "transport/dielectric": lambda: [dielectric()],
    "transport/refractive_index": lambda: [constants("transport/refractive_index.csv")],
    "transport/surface_tension": lambda: [constants("transport/surface_tension.csv")],
    "transport/viscosity": lambda: [viscosity()],
}


def main():
    stale = []
    for name, tables in HEADERS.items():
        floor, stem = name.split("/")
        # those of a correlation stand in a namespace of its name
        space = "vaprix::tables" + (f"::{stem}" if floor == "transport" else "")
        text = ("// SPDX-License-Identifier: MIT\n"
                "// Generated by tools/tables/generate_tables.py from published, do not edit.\n"
                "// Data: International Association for the Properties of Water and Steam (IAPWS), www.iapws.org\n"
                "#pragma once\n\n#include <iterator>\n\n"
                '#include "frame/polynomial.hpp"\n\n'
                f"namespace {space} {{\n\n" + "\n".join(tables()) + f"\n}}  // namespace {space}\n")
        path = ROOT / "VAPRIX" / floor / "tables" / f"{stem}.hpp"
        if "--check" not in sys.argv[1:]:
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            stale.append(path.name)
    if stale:
        sys.exit("not what published gives, run tools/tables/generate_tables.py: " + ", ".join(stale))


if __name__ == "__main__":
    main()
