# SPDX-License-Identifier: MIT
"""What comes with the functions: documentation, types, meanings of codes."""
import ast
import pathlib
import re

import numpy as np
import pytest
import vaprix

PACKAGE = pathlib.Path(vaprix.__file__).parent
FUNCTIONS = {name: f for name, f in vars(vaprix).items() if isinstance(f, np.ufunc)}


def test_documentation():
    """Each call in it fits the function, and a published value comes back to all its digits."""
    published = 0
    for name, function in FUNCTIONS.items():
        text = function.__doc__
        arguments = re.search(rf"^{name}\((.*)\): ", text, re.MULTILINE)[1].split(", ")
        assert len(arguments) == function.nin and "Range: " in text and "Failure: " in text
        for call, value in re.findall(r">>> (vaprix.*)  # .*\n\s+(.*)", text):
            digits = len(value.partition(".")[2])
            assert f"{eval(call):.{digits}f}" == value
            published += 1
    assert published >= 10
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
