# SPDX-License-Identifier: MIT
"""Every ufunc against the export of the shared library, called element by element: results, regions and codes."""
import ctypes
import os
import pathlib
import sys

import numpy as np
import pytest
import vaprix

ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "VAPRIX" / "exports"))
from generate import WRITTEN, catalogue, result_type  # noqa: E402

STATES = 10000
LIBRARY = ctypes.CDLL(os.environ["VAPRIX_LIBRARY"])
CODE = ctypes.c_int.in_dll(LIBRARY, "CODE")  # of the initial thread
KIND = {"double": ctypes.c_double, "void": None}
CATALOGUE = [e for e in catalogue()[0] if e["name"] != "ECODETUL"]
FUNCTIONS = [e for e in CATALOGUE if e["arguments"]]


def states():
    """Columns by the name of the argument: states of one phase and wet ones, values that are of no state together,
    limits and numbers that are none."""
    random = np.random.default_rng(439)
    p = np.exp(random.uniform(np.log(5e-4), np.log(110), STATES))
    T = random.uniform(270, 1100, STATES)
    T[::10] = random.uniform(1000, 2300, STATES // 10)
    x = random.uniform(-0.05, 1.05, STATES)
    wet = np.arange(STATES) % 3 == 0
    T[wet] = random.uniform(273, 648, wet.sum())
    p[wet] = vaprix.POT(T[wet])
    at = {"p": p, "T": T, "x": x}
    for name, single, mixed in (("h", vaprix.HOPT, vaprix.HOTX), ("s", vaprix.SOPT, vaprix.SOTX),
                                ("v", vaprix.VOPT, vaprix.VOTX), ("d", vaprix.DOPT, vaprix.DOTX)):
        at[name] = np.where(wet, mixed(T, x), single(p, T))
    at["d_start"] = at["d"] * random.uniform(0.9, 1.1, STATES)
    at["tolerance"] = np.full(STATES, 1e-9)
    at["wavelength"] = random.uniform(0.1, 1.2, STATES)
    at["region"] = random.integers(-1, 7, STATES)
    odd = [0.0, -0.0, -1.0, np.nan, np.inf, -np.inf, 5e-324, 1.7e308, 273.15, 623.15, 647.096, 22.064, 100.0]
    for name in at.keys() - {"region"}:
        at[name][1::50] = random.permutation(at[name])[1::50]
        at[name][7::50] = random.choice(odd, STATES // 50)
    return at


@pytest.fixture(scope="module")
def every_state():
    return states()


def one_by_one(entry, given):
    """Results, regions as they were written back, and codes of the export."""
    function = getattr(LIBRARY, entry["name"])
    function.restype = KIND[result_type(entry)]
    result = np.full(STATES, -99999.0)
    given = {name: np.array(given[name], np.intc if name == "region" else float) for name in given}
    given |= dict.fromkeys(WRITTEN, result)
    columns = [given[name] for name in entry["arguments"]]
    function.argtypes = [ctypes.c_void_p] * len(columns)
    code = np.empty(STATES, np.int32)
    for k, addresses in enumerate(zip(*(range(c.ctypes.data, c.ctypes.data + c.nbytes, c.itemsize) for c in columns))):
        CODE.value = 0
        answer = function(*addresses)
        code[k] = CODE.value
        if answer is not None:
            result[k] = answer
    return result, given.get("region"), code


def bits(numbers):
    return np.ascontiguousarray(numbers).view(np.int64)


@pytest.mark.parametrize("entry", FUNCTIONS, ids=lambda e: e["name"])
def test_function(entry, every_state):
    names = [a for a in entry["arguments"] if a not in WRITTEN]
    arguments = [every_state[a] for a in names]
    function = getattr(vaprix, entry["name"])
    results, region, codes = one_by_one(entry, dict(zip(names, arguments)))
    before = [a.copy() for a in arguments]
    answer = function(*arguments)
    if region is not None:
        answer, regions = answer
        assert np.array_equal(regions, region)
    assert np.array_equal(bits(answer), bits(results))
    assert np.array_equal(vaprix.code(function, *arguments), codes)
    assert all(np.array_equal(bits(a), bits(b)) for a, b in zip(arguments, before))
    # numbers, and a float32 for float32, take other ways
    some = range(0, STATES, 97)
    numbers = [function(*(a[k].item() for a in arguments)) for k in some]
    assert np.array_equal(bits(numbers if region is None else [n[0] for n in numbers]), bits(results[some]))
    with np.errstate(all="ignore"):
        narrow = [a[:999].astype(np.float32) if a.dtype == float else a[:999] for a in arguments]
        wide = function(*(a.astype(float) if a.dtype == np.float32 else a for a in narrow))
        wide = (wide if region is None else wide[0]).astype(np.float32)
        narrow = function(*narrow) if region is None else function(*narrow)[0]
    assert narrow.dtype == np.float32 and np.array_equal(narrow.view(np.int32), wide.view(np.int32))


def test_names():
    ufuncs = {name for name in dir(vaprix) if isinstance(getattr(vaprix, name), np.ufunc)}
    assert ufuncs == {e["name"] for e in FUNCTIONS}
    for entry in CATALOGUE:
        if not entry["arguments"]:
            function = getattr(LIBRARY, entry["name"])
            function.restype = ctypes.c_double
            assert getattr(vaprix, entry["name"]) == function()
