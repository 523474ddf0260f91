# SPDX-License-Identifier: MIT
"""States by two variables: the same state by every pair, the failures, what is refused."""
import itertools
import warnings

import numpy as np
import pytest
import vaprix

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
        assert vaprix.water(p=[], T=[]).eta.shape == (0,)


def test_refusals():
    for given in ({}, {"p": 1}, {"p": 1, "T": 300, "h": 1}, {"p": 1, "q": 3}):
        with pytest.raises(TypeError):
            vaprix.water(**given)
    with pytest.raises(TypeError):
        vaprix.water(p="3", T=300)
    for given in ({"h": 1, "x": 0.5}, {"p": 1, "T": 300, "family": "C"}):
        with pytest.raises(ValueError):
            vaprix.water(**given)
    assert not hasattr(vaprix.water(p=3, T=300), "nothing")
