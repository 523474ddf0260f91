# SPDX-License-Identifier: MIT
"""What comes with the functions: documentation, types, meanings of codes."""
import ast
import doctest
import pathlib
import re

import numpy as np
import pytest
import vaprix

PACKAGE = pathlib.Path(vaprix.__file__).parent
FUNCTIONS = {name: f for name, f in vars(vaprix).items() if isinstance(f, np.ufunc)}


GIVEN = {"p": [3.0, 10.0], "T": [300.0, 900.0], "h": 3000.0, "s": 6.0, "v": 0.1, "d": 10.0, "x": 0.5, "region": 0,
         "d_start": 10.0, "tolerance": 1e-9, "wavelength": 0.6}
EXAMPLES = FUNCTIONS | {"vaprix": vaprix, "water": vaprix.water, "derivative": vaprix._water.Water.derivative}


def test_documentation():
    """Each function's own; the examples run as they stand, published values come back to all their digits."""
    runner, parser, published = doctest.DocTestRunner(), doctest.DocTestParser(), 0
    for name, function in EXAMPLES.items():
        text = function.__doc__
        runner.run(parser.get_doctest(text, {"vaprix": vaprix, "np": np, **GIVEN}, name, None, 0))
        published += "  # IAPWS" in text
        if name in FUNCTIONS:
            arguments = re.search(rf"^{name}\((.*)\): ", text, re.MULTILINE)[1].split(", ")
            assert len(arguments) == function.nin and "Range: " in text and "Failure: " in text
    assert runner.failures == 0 and runner.tries > 800 and published >= 10
    assert "kJ/kg" in vaprix.HBPT.__doc__ and "pressure, MPa" in vaprix.HBPT.__doc__


def test_types():
    """The stubs name what the package has, with as many arguments."""
    tree = ast.parse((PACKAGE / "__init__.pyi").read_text(encoding="utf-8"))
    classes = {c.name: len(c.body[0].args.posonlyargs) - 1 for c in tree.body
               if isinstance(c, ast.ClassDef) and c.name.startswith("_Of_")}
    declared = {d.target.id: d.annotation.id for d in tree.body if isinstance(d, ast.AnnAssign)}
    for name, kind in declared.items():
        value = getattr(vaprix, name)
        assert value.nin == classes[kind] if kind in classes else type(value).__name__ == kind
    assert FUNCTIONS.keys() < declared.keys() and (PACKAGE / "py.typed").exists()
    steam = next(c for c in tree.body if isinstance(c, ast.ClassDef) and c.name == "Water")
    members = {getattr(d, "name", None) or d.target.id for d in steam.body if not isinstance(d, ast.Expr)}
    assert members == {name for name in dir(vaprix.water(p=3, T=300)) if not name.startswith("_")}


def test_reasons():
    code = vaprix.code("HOPT", -1.0, 300.0)
    assert vaprix.reason(code) == "outside the range of validity" and vaprix.reason(0) == "success"
    assert list(vaprix.reason(vaprix.code("HOPT", [3.0, -1.0], 300.0))) == [vaprix.reason(0), vaprix.reason(code)]
    with pytest.raises(ValueError):
        vaprix.reason([0, 1])
    with pytest.raises(TypeError):
        vaprix.reason("0")
