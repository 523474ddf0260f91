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
        if name in ("eta", "lambda_"):  # by some pairs not for region 5
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
    assert list(again.region) == [4, 4, 4] and again.region.dtype == int
    assert list(vaprix.water(T=T_WET, x=X, family="B").p) == list(wet.p)
    with np.errstate(invalid="ignore"):
        assert np.isnan(again.cp).all()


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
