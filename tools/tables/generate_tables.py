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
    rows = list(csv.DictReader(line for line in lines if line and not line.startswith("#")))
    return notes, rows


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
    out.append(f"}};\nstatic_assert(std::size({name}) == {len(cells)});\n")
    return "".join(out)


def terms(name, path, note=True):
    """A table of rows n x^I y^J; a table of one variable has no column I."""
    notes, rows = read(path)
    cells = [f"{{{r.get('I', '0')}, {r['J']}, {number(r['n'])}}}" for r in rows]
    return (comment(notes) if note else "") + array("Term", name, cells)


def quarter_terms(name, path):
    """A table whose exponents I of pi are printed in steps of 1/4: they become whole powers of pi^(1/4)."""
    notes, rows = read(path)
    cells = [f"{{{int(4 * float(r['I']))}, {r['J']}, {number(r['n'])}}}" for r in rows]
    return comment(notes + ["Here I counts quarters: powers of pi^(1/4)."]) + array("Term", name, cells)


def numbers(name, path):
    notes, rows = read(path)
    return comment(notes) + array("double", name, [number(r["n"]) for r in rows])


def constants(path):
    """Constants that the data name."""
    notes, rows = read(path)
    lines = [f"inline constexpr double {r['name']} = {number(r['value'])};\n" for r in rows]
    return comment(notes) + "".join(lines)


def viscosity():
    notes, rows = read("transport/viscosity_H0.csv")
    dilute = [f"{{0, {r['i']}, {number(r['H'])}}}" for r in rows]
    dense_notes, rows = read("transport/viscosity_H.csv")
    dense = [f"{{{r['i']}, {r['j']}, {number(r['H'])}}}" for r in rows]
    return (comment(notes) + array("Term", "dilute", dilute) + "\n"
            + comment(dense_notes) + array("Term", "dense", dense))


def dielectric():
    """The exponents j of Tc/T are printed in steps of 1/4: they become whole powers of (Tc/T)^(1/4)."""
    notes, rows = read("transport/dielectric.csv")
    cells = [f"{{{r['i']}, {int(4 * float(r['j']))}, {number(r['N'])}}}" for r in rows[:-1]]
    return (comment(notes + ["Here J counts quarters: powers of (Tc/T)^(1/4)."])
            + array("Term", "terms", cells)
            + f"inline constexpr double last = {number(rows[-1]['N'])};  // N12\n")


def region3():
    notes, rows = read("if97/t30_region3.csv")
    cells = [f"{{{r['I']}, {r['J']}, {number(r['n'])}}}" for r in rows[1:]]
    return (comment(notes) + f"inline constexpr double region3_log_coefficient = {number(rows[0]['n'])};\n"
            "\n// Rows 2 to 40.\n" + array("Term", "region3", cells))


def boundaries():
    notes, rows = read("region3_vpt/boundaries.csv")
    out = [comment(notes)]
    for name in dict.fromkeys(r["equation"] for r in rows):
        cells = [f"{{0, {r['I']}, {number(r['n'])}}}" for r in rows if r["equation"] == name]
        out.append("\n" + array("Term", name.replace("T3", "t3"), cells))
    return "".join(out)


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
        notes, _ = read(f"region3_vpt/v3{letter}.csv")
        table = notes[0].rsplit(", ", 1)[1]
        out.append(f"\n// {table}: subregion 3{letter}\n")
        out.append(terms(f"v3{letter}", f"region3_vpt/v3{letter}.csv", note=False))
    return "".join(out)


def backward():
    names = ("T3a_ph", "T3b_ph", "v3a_ph", "v3b_ph", "T3a_ps", "T3b_ps", "v3a_ps", "v3b_ps", "p3sat_h",
             "p3sat_s")
    parts = [terms(n.replace("T3", "t3"), f"region3_phps/{n}.csv") for n in names]
    parts += [terms(n, f"hs3/{n}.csv") for n in ("p3a_hs", "p3b_hs")]
    return "\n".join([numbers("h3ab", "region3_phps/h3ab_p.csv")] + parts)


def auxiliary_densities():
    notes, rows = read("transport/saturation_1992.csv")
    head = notes[0] + "\nEqs. (2) and (3): rho'/rhoc = 1 + sum b tau^(J/3), ln(rho''/rhoc) = sum c tau^(J/6),"
    head += "\ntau = 1 - T/Tc."
    out = [comment(head.splitlines())]
    for name, key in (("saturated_liquid_density", "b"), ("saturated_vapour_density", "c")):
        cells = [f"{{0, {r['exp_num']}, {number(r['value'])}}}" for r in rows if r["set"] == key]
        out.append(array("Term", name, cells))
    return "\n".join(out)


def auxiliary_energies():
    notes, rows = read("transport/saturation_1992.csv")
    head = notes[0] + "\nEqs. (4) and (5): d1 to d5, then d_alpha and d_phi."
    cells = [number(r["value"]) for r in rows if r["set"] in ("d", "d_alpha", "d_phi")]
    return comment(head.splitlines()) + array("double", "saturated_energies", cells)


FILES = {
    "boundaries_hs.hpp": lambda: "\n".join([terms(n, f"hs3/{n}.csv") for n in
                                            ("h1_liq_s", "h3a_liq_s", "h2ab_vap_s", "h2c3b_vap_s", "hb13_s",
                                             "tb23_hs")]),
    "b23.hpp": lambda: numbers("b23", "if97/t01_b23.csv"),
    "region1_backward.hpp": lambda: "\n".join([terms("t1_ph", "if97/t06_region1_T_ph.csv"),
                                              terms("t1_ps", "if97/t08_region1_T_ps.csv"),
                                              terms("p1_hs", "hs12/p1_hs.csv")]),
    "region2_backward.hpp": lambda: "\n".join([numbers("b2bc", "if97/t19_b2bc.csv"),
                                              terms("t2a_ph", "if97/t20_region2a_T_ph.csv"),
                                              terms("t2b_ph", "if97/t21_region2b_T_ph.csv"),
                                              terms("t2c_ph", "if97/t22_region2c_T_ph.csv"),
                                              quarter_terms("t2a_ps", "if97/t25_region2a_T_ps.csv"),
                                              terms("t2b_ps", "if97/t26_region2b_T_ps.csv"),
                                              terms("t2c_ps", "if97/t27_region2c_T_ps.csv"),
                                              numbers("h2ab", "hs12/h2ab_s.csv"),
                                              terms("p2a_hs", "hs12/p2a_hs.csv"),
                                              terms("p2b_hs", "hs12/p2b_hs.csv"),
                                              terms("p2c_hs", "hs12/p2c_hs.csv")]),
    "region1.hpp": lambda: terms("region1", "if97/t02_region1.csv"),
    "region2.hpp": lambda: (terms("region2_ideal", "if97/t10_region2_ideal.csv") + "\n"
                            + terms("region2_residual", "if97/t11_region2_residual.csv")),
    "region3.hpp": region3,
    "region3_backward.hpp": backward,
    "region3_boundaries.hpp": boundaries,
    "region3_volume.hpp": volumes,
    "region5.hpp": lambda: (terms("region5_ideal", "if97/t37_region5_ideal.csv") + "\n"
                            + terms("region5_residual", "if97/t38_region5_residual.csv")),
    "saturated_densities.hpp": auxiliary_densities,
    "saturated_energies.hpp": auxiliary_energies,
    "saturation.hpp": lambda: (numbers("saturation", "if97/t34_saturation.csv") + "\n"
                               + terms("tsat_hs", "hs3/tsat_hs.csv")),
}

TRANSPORT_FILES = {
    "conductivity.hpp": lambda: constants("transport/conductivity.csv"),
    "dielectric.hpp": dielectric,
    "refractive_index.hpp": lambda: constants("transport/refractive_index.csv"),
    "surface_tension.hpp": lambda: constants("transport/surface_tension.csv"),
    "viscosity.hpp": viscosity,
}


def main():
    stale = []
    paths = {ROOT / "VAPRIX" / floor / "tables" / name: body
             for floor, files in (("regions", FILES), ("transport", TRANSPORT_FILES)) for name, body in files.items()}
    for path, body in paths.items():
        # those of a correlation stand in a namespace of its name
        space = "vaprix::tables" + (f"::{path.stem}" if path.parts[-3] == "transport" else "")
        text = ("// SPDX-License-Identifier: MIT\n"
                "// Generated by tools/tables/generate_tables.py from published, do not edit.\n"
                "// Data: International Association for the Properties of Water and Steam (IAPWS), www.iapws.org\n"
                "#pragma once\n\n#include <iterator>\n\n"
                '#include "frame/polynomial.hpp"\n\n'
                f"namespace {space} {{\n\n{body()}\n}}  // namespace {space}\n")
        if "--check" in sys.argv[1:]:
            if not path.exists() or path.read_text(encoding="utf-8") != text:
                stale.append(path.name)
        else:
            path.write_text(text, encoding="utf-8")
    if stale:
        sys.exit("not what published gives, run tools/tables/generate_tables.py: " + ", ".join(stale))


if __name__ == "__main__":
    main()
