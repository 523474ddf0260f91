# SPDX-License-Identifier: MIT
"""States by two variables: the same state by every pair, the failures, what is refused."""
import itertools
import os
import subprocess
import sys
import warnings

import numpy as np
import pytest
import vaprix
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as of_numpy
from vaprix._quantities import QUANTITIES
from vaprix._water import PAIRS

# single phases of regions 1, 2, 3 and 5, away from the density maximum
P = np.array([5.0, 60.0, 1.0, 20.0, 30.0, 10.0])
T = np.array([450.0, 500.0, 600.0, 800.0, 680.0, 1100.0])
X = np.array([0.1, 0.5, 0.9])
T_WET = np.array([350.0, 500.0, 640.0])
BACK = {"O": 1e-8, "B": 2e-3}  # how well a state comes back, relative: backward equations of B


@pytest.mark.parametrize("family", "OB")
@pytest.mark.parametrize("pair", itertools.combinations("pTvdhs", 2), ids="".join)
def test_pairs(family, pair):
    single = vaprix.water(p=P, T=T, family=family)
    if set(pair) == set("vd"):
        with pytest.raises(ValueError):
            vaprix.water(v=P, d=T)
        return
    of_pair = vaprix.water(**{name: getattr(single, name) for name in pair}, family=family)
    # (T, h) and (T, s) may have several states, pairs of h, s and the density none in region 5
    few = set(pair) <= set("vdhs") or pair in [("T", "h"), ("T", "s")]
    keep = slice(2, 4) if few else slice(None)
    for name in ("p", "T", "d", "v", "h", "s", "u", "cp", "w", "eta", "lambda_"):
        with np.errstate(invalid="ignore"):
            value, wanted = getattr(of_pair, name)[keep], getattr(single, name)[keep]
        if name == "lambda_":  # of which the correlation ends at 1073.15 K
            value, wanted = value[T[keep] < 1073.15], wanted[T[keep] < 1073.15]
        assert np.isfinite(wanted).all()
        np.testing.assert_allclose(value, wanted, BACK[family])
    assert list(of_pair.region[keep]) == [1, 1, 2, 2, 3, 5][keep]
    assert of_pair.T is of_pair.T


@pytest.mark.parametrize("pair", ["Tx", "px", "ph", "ps", "pv", "pd", "Td", "hs", "vh"])
def test_wet(pair):
    wet = vaprix.water(T=T_WET, x=X)
    again = vaprix.water(**{name: getattr(wet, name) for name in pair})
    for name in ("p", "T", "x", "v", "h", "s", "u"):
        np.testing.assert_allclose(getattr(again, name), getattr(wet, name), 1e-6)
    assert list(again.region) == [4, 4, 4] and (again.phase == vaprix.Phase.WET).all()
    assert list(vaprix.water(T=T_WET, x=X, family="B").p) == list(wet.p)
    with np.errstate(invalid="ignore"):
        assert np.isnan(again.cp).all()


NAMES = {"d": "D", "h": "H", "s": "S", "u": "U", "cp": "CP", "w": "W", "T": "T", "p": "P", "x": "X", "eta": "ETA"}


@pytest.mark.parametrize("family", "OB")
@pytest.mark.parametrize("pair", ["pT", "ph", "ps", "hs", "px", "Tx", "TD", "Th", "vh"])
def test_exports(family, pair):
    """The digits of the exports of the same pair."""
    random, asked = np.random.default_rng(2), 0
    of = {"p": np.geomspace(0.001, 90, 999), "T": random.uniform(273.2, 1073, 999), "x": random.uniform(0, 1, 999),
          "h": random.uniform(10, 3800, 999), "s": random.uniform(0, 8, 999), "d": np.geomspace(1e-3, 1000, 999)}
    of["v"] = 1 / of["d"]
    given = {name: of[name] for name in pair.lower().replace("t", "T")}
    with np.errstate(invalid="ignore"):
        states = vaprix.water(**given, family=family)
        for attribute, begins in NAMES.items():
            function = getattr(vaprix, begins + family + pair.upper(), None)
            if function:
                value, wanted = getattr(states, attribute), function(*given.values())
                fine = (wanted > -99999) & np.isfinite(value) & (states.code == 0)
                assert fine.sum() > 100
                np.testing.assert_allclose(value[fine], wanted[fine], 3e-16 if (pair, attribute) == ("TD", "p") else 0)
                asked += 1
    assert asked or family == "B"


def test_derivatives():
    """Against differences, the heat capacity, and exports; along the saturation line."""
    steam = vaprix.water(p=P[:4], T=T[:4])
    for of, by, at in itertools.product("Tvdhsufg", "Ths", "pvd"):
        a, b = (vaprix.water(**{by: getattr(steam, by) * (1 + step), at: getattr(steam, at)}) for step in (-1e-5, 1e-5))
        found = steam.derivative(of, by, at)
        wanted = (getattr(b, of) - getattr(a, of)) / (getattr(b, by) - getattr(a, by))
        np.testing.assert_allclose(found, wanted, 2e-3, 1e-12)
    np.testing.assert_allclose(steam.derivative("h", "T", at="p"), steam.cp, 1e-12)
    np.testing.assert_allclose(steam.derivative("d", "h", at="p"), vaprix.DDDHOPT(P[:4], T[:4]), 1e-9)
    for by, at in ((("T", "T"), "p"), (("p", "T"), None), (("p", "p"), "T")):
        kept = {"T", "p"} - {by[1]}
        a, b = (vaprix.water(**{by[1]: getattr(steam, by[1]) * (1 + step), **{k: getattr(steam, k) for k in kept}})
                .derivative("v", by[0], at="T" if by[0] == "p" else "p") for step in (-1e-5, 1e-5))
        wanted = (b - a) / (2e-5 * getattr(steam, by[1]))
        np.testing.assert_allclose(steam.derivative("v", by, at), wanted, 1e-5)
    wet = vaprix.water(T=T_WET, x=X)
    rise = (vaprix.PSATOT(T_WET + 1e-3) - vaprix.PSATOT(T_WET - 1e-3)) / 2e-3
    np.testing.assert_allclose(wet.derivative("p", "T", at="x"), rise, 1e-6)
    with np.errstate(invalid="raise"), pytest.raises(FloatingPointError):
        wet.derivative("h", "T", at="p")
    for wrong in (("q", "T", "p"), ("h", "T"), ("h", ("T", "h")), ("u", ("T", "T"), "p"), ("h", ("p", "T"), "s")):
        with pytest.raises(ValueError):
            steam.derivative(*wrong)


def test_phases():
    states = vaprix.water(p=[1, 1, 30, 30, 20, 20, -1], T=[300, 600, 600, 700, 640, 700, 300])
    assert [vaprix.Phase(k).name for k in states.phase] == [
        "LIQUID", "VAPOUR", "LIQUID", "SUPERCRITICAL", "VAPOUR", "VAPOUR", "NONE"]
    assert list(states.code) == [0] * 6 + [-10055] and states.reason[6] == vaprix.reason(-10055)
    wet = vaprix.water(p=P[:1], x=0.3)
    np.testing.assert_allclose(0.7 * wet.liquid.h + 0.3 * wet.vapour.h, wet.h, 1e-12)
    assert list(wet.liquid.phase) == [1] and list(wet.vapour.phase) == [2]
    with np.errstate(invalid="ignore"):
        assert np.isnan(states.liquid.h).all() and (states.liquid.code[:6] != 0).all()


def test_failures():
    outside = vaprix.water(p=[3.0, -1.0], T=300)
    with pytest.warns(RuntimeWarning, match="invalid value"):
        assert list(np.isnan(outside.h)) == [False, True]
    with np.errstate(invalid="raise"), pytest.raises(FloatingPointError):
        outside.s
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        assert vaprix.water(p=3, T=300).h == vaprix.HOPT(3, 300)
        assert vaprix.water(p=3, T=300, family="B").h == vaprix.HBPT(3, 300)
        assert np.isnan(vaprix.water(p=[3, np.nan], T=300).h[1])  # a gap is no failure
        narrow = vaprix.water(p=np.float32([3, 4]), T=np.float32([300, 300]))
        assert narrow.h.dtype == np.float32 == (1 / narrow.d).dtype
        assert vaprix.water(p=np.float32([3, 4]), T=300.0).h.dtype == np.float32
        assert vaprix.water(p=np.float16([3]), T=np.int16(300)).h.dtype == np.float32
        assert vaprix.water(p=[], T=[]).eta.shape == (0,)


# numbers of every kind of state, beside the range, and of none
ODD = [np.nan, np.inf, -np.inf, 0.0, -0.0, -1.0, 5e-324, 1.7e308]
POOLS = {name: np.concatenate([numbers, ODD]) for name, numbers in {
    "p": [5e-4, 6.12e-4, 0.1, 1, 16.6, 18, 22.064, 30, 50, 99.9, 101],
    "T": [273.15, 273.16, 400, 623.15, 640, 650, 900, 1100, 2300],
    "v": [9.9e-4, 1.1e-3, 2e-3, 3.1e-3, 0.02, 1, 300], "d": [4e-3, 0.5, 20, 322, 600, 980, 1020],
    "h": [-0.1, 10, 800, 1700, 2087.5, 2500, 3300, 4200, 7000], "s": [-0.01, 0.5, 3.8, 4.41, 6.2, 7.5, 9.1, 11],
    "x": [0, 1e-9, 0.3, 1, 1.1]}.items()}
KINDS = {"a list": np.ndarray.tolist, "big-endian": lambda a: a.astype(">f8"), "float32": lambda a: a.astype("f4"),
         "float64": lambda a: a, "read-only": lambda a: np.broadcast_to(a, a.shape),
         "every second": lambda a: np.repeat(a, 2, -1)[..., ::2] if a.ndim else a}


@settings(max_examples=300, deadline=None, database=None)
@given(st.sampled_from(list(PAIRS.values())), st.sampled_from("OB"), st.data(),
       of_numpy.mutually_broadcastable_shapes(num_shapes=2, max_dims=3, max_side=4))
def test_any_arrays(pair, family, data, shapes):
    """Whatever is given: the shape and kind of the results, what failures say, the state from T and d or x again."""
    numbers = [data.draw(of_numpy.arrays(float, shape, elements=st.sampled_from(list(POOLS[name]))), label=name)
               for name, shape in zip(pair[0], shapes.input_shapes)]
    kinds = data.draw(st.lists(st.sampled_from(sorted(KINDS)), min_size=2, max_size=2))
    with np.errstate(all="ignore"):
        values = dict(zip(pair[0], (KINDS[kind](a) for kind, a in zip(kinds, numbers))))
        states = vaprix.water(**values, family=family)
        exact = dict(zip(pair[0], np.broadcast_arrays(*(np.asarray(v, float) for v in values.values()))))
        none, gap = states.region == 0, np.logical_or(*map(np.isnan, exact.values()))
        number = vaprix.HOPT(*values.values()).dtype
        found = {name: np.asarray(getattr(states, name)) for name in QUANTITIES}
        assert all(a.shape == shapes.result_shape and a.dtype == number for n, a in found.items() if n not in exact)
        assert all(np.isnan(a[none]).all() for n, a in found.items() if n not in exact)
        assert ((states.phase == vaprix.Phase.NONE) == none).all() and ((states.code != 0) == none).all()
        assert (states.reason == vaprix.reason(states.code)).all() and none[gap].all()
        wide = vaprix.water(**exact, family=family)
        wet = wide.region == 4
        for again, of in ((vaprix.water(T=wide.T, d=wide.d), ~none & ~wet), (vaprix.water(T=wide.T, x=wide.x), wet)):
            for name, given in exact.items() if family == "O" else ():
                keep = of & ~np.isnan(getattr(again, name)) & (np.abs(given) > 5e-324)  # a pressure below all of T
                np.testing.assert_allclose(np.asarray(getattr(again, name))[keep], given[keep], 1e-11, 1e-11)
    with np.errstate(all="ignore", invalid="raise"):
        if (none & ~gap).any():
            with pytest.raises(FloatingPointError):
                vaprix.water(**exact, family=family).u
        else:
            vaprix.water(**exact, family=family).u


PROGRAM = """import sys, numpy as np, vaprix
from vaprix._quantities import QUANTITIES
random = np.random.default_rng(4)
p = np.exp(random.uniform(np.log(5e-4), np.log(110), 20000))
T = np.where(np.arange(20000) % 3, random.uniform(270, 1100, 20000), random.uniform(600, 2300, 20000))
p[::3] = random.uniform(15, 101, len(p[::3]))
of = {"T": T, "h": vaprix.HOPT(p, T), "s": vaprix.SOPT(p, T)}
of["h"][::7], of["s"][::7] = random.uniform(0, 4000, 2858), random.uniform(0, 9, 2858)
np.seterr(all="ignore")
all = [getattr(vaprix.water(p=p, **{y: of[y]}, family=family), name) for y in of for family in "OB"
       for name in [*QUANTITIES, "region", "phase", "code"]]
sys.stdout.buffer.write(b"".join(a.tobytes() for a in all))"""


def test_packs():
    """States that packs of lanes resolve and read, to the bits of the same one by one."""
    def answered(**how):
        return subprocess.run([sys.executable, "-c", PROGRAM], check=True, stdout=subprocess.PIPE,
                              env=os.environ | how).stdout
    one_by_one = answered(VAPRIX_ARRAYS="scalar")
    assert len(one_by_one) > 25_000_000 and answered() == one_by_one


def test_refusals():
    for given in ({}, {"p": 1}, {"p": 1, "T": 300, "h": 1}, {"p": 1, "q": 3}):
        with pytest.raises(TypeError):
            vaprix.water(**given)
    for wrong in ("3", b"3", None, 3j, [None], ["3"], [1, 2j], 2**70, {}, np.ones(2, object), np.ones(2, "M8[s]"),
                  np.longdouble(3)):
        with pytest.raises(TypeError):
            vaprix.water(p=wrong, T=300)
    with pytest.raises(ValueError):
        vaprix.water(p=[1, 2, 3], T=[300, 400])
    with pytest.raises(ValueError):
        vaprix.water(p=[[1], [2, 3]], T=300)
    for given in ({"h": 1, "x": 0.5}, {"p": 1, "T": 300, "family": "C"}):
        with pytest.raises(ValueError):
            vaprix.water(**given)
    assert not hasattr(vaprix.water(p=3, T=300), "nothing")
