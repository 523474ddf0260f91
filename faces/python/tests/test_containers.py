# SPDX-License-Identifier: MIT
"""States in the arrays of other libraries, these being the real ones."""
import pickle

import dask.array as da
import numpy as np
import pandas as pd
import pint
import pytest
import vaprix
import xarray as xr

P = np.linspace(1.0, 20.0, 12)
T = np.linspace(400.0, 900.0, 12)
PLAIN = vaprix.water(p=P, T=T)
NAMES = ("h", "s", "region", "phase", "code", "reason")


def test_dask():
    """Lazy, in chunks of any size, the state formed once for all that is asked of it."""
    steam = vaprix.water(p=da.from_array(P, chunks=5), T=da.from_array(T, chunks=4))
    asked = [getattr(steam, name) for name in NAMES] + [steam.derivative("h", "p", at="T"), steam.p]
    assert all(isinstance(a, da.Array) for a in asked) and asked[0].dtype == float and asked[2].dtype == np.int8
    resolved = {key for key in da.stack([steam.h, steam.s]).__dask_graph__() if "of_pt" in str(key)}
    assert len(resolved) == len({key for key in steam.h.__dask_graph__() if "of_pt" in str(key)}) > 0
    for found, name in zip(da.compute(*asked), NAMES):
        assert np.array_equal(found, getattr(PLAIN, name))
    assert np.array_equal(vaprix.HOPT(da.from_array(P, chunks=5), 600.0).compute(), vaprix.HOPT(P, 600.0))
    assert np.array_equal(pickle.loads(pickle.dumps(steam)).h.compute(scheduler="threads"), PLAIN.h)
    assert np.array_equal(vaprix.water(p=da.from_array(P), T=T).liquid.region.compute(), np.zeros(12))
    grid = vaprix.water(p=da.from_array(P[:, None], chunks=5), T=da.from_array(T, chunks=4))
    assert np.array_equal(grid.h.compute(), vaprix.HOPT(P[:, None], T))
    np.testing.assert_allclose(grid.derivative("h", "T", at="p"), grid.cp, 1e-12)
    p, t = da.from_array(P, chunks=5), da.from_array(T, chunks=5)
    warm = vaprix.water(p=p[t > 600], T=t[t > 600]).h  # chunks of unknown size
    assert np.isnan(warm.shape[0]) and np.array_equal(warm.compute(), vaprix.HOPT(P[T > 600], T[T > 600]))
    masked = vaprix.water(p=da.ma.masked_greater(p, 15), T=t).h.compute()
    assert np.array_equal(masked, np.where(P > 15, np.nan, PLAIN.h), equal_nan=True)
    with pytest.raises(TypeError):
        vaprix.water(p=p.astype(complex), T=t)


@pytest.mark.parametrize("lazy", [False, True])
def test_xarray(lazy):
    p = xr.DataArray(P, {"time": np.arange(12)}, "time", attrs={"source": "plant"})
    t = xr.DataArray(T[:5], {"unit": list("abcde")}, "unit")
    steam = vaprix.water(p=p.chunk(5) if lazy else p, T=t)
    wanted = vaprix.water(p=P[:, None], T=T[:5])
    for name in NAMES:
        found = getattr(steam, name)
        assert found.dims == ("time", "unit") and list(found.unit.values) == list("abcde") and found.name == name
        assert (found.chunks is not None) == lazy and np.array_equal(found.values, getattr(wanted, name))
    assert steam.h.attrs == {"units": "kJ/kg", "long_name": "specific enthalpy", "standard_name": "specific_enthalpy"}
    assert steam.phase.attrs["flag_meanings"].split()[vaprix.Phase.WET] == "wet"
    assert steam.p.attrs["source"] == "plant" and steam.p.attrs["units"] == "MPa"
    assert steam.derivative("h", "T", at="p").attrs["units"] == "kJ/kg/(K)"
    in_bar = vaprix.water(p=(p * 10).assign_attrs(units="bar"), T=t)
    np.testing.assert_allclose(in_bar.h, wanted.h, 1e-13)
    assert vaprix.HOPT(p, t).dims == ("time", "unit")
    other = xr.DataArray(P[:3], {"time": [10, 11, 12]}, "time")
    assert list(vaprix.water(p=p, T=other + 300).h.time) == [10, 11]


def test_pandas():
    times = pd.date_range("2020", periods=12, freq="h")
    p, t = pd.Series(P, times), pd.Series(T, times)
    steam = vaprix.water(p=p, T=t)
    for name in NAMES:
        found = getattr(steam, name)
        assert isinstance(found, pd.Series) and found.index.equals(times) and found.name == name
        assert np.array_equal(found, getattr(PLAIN, name))
    assert vaprix.HOPT(p, t).index.equals(times)
    apart = vaprix.water(p=p[:8], T=t[4:]).h
    assert list(apart.index) == list(times) and np.array_equal(apart.notna(), np.arange(12) // 4 == 1)
    gaps = vaprix.water(p=pd.Series([1.0, None], dtype="Float64"), T=300).h
    assert gaps.notna().tolist() == [True, False]
    frame = vaprix.water(p=pd.DataFrame({"a": P, "b": P}, times), T=600).h
    assert list(frame.columns) == ["a", "b"] and np.array_equal(frame["b"], vaprix.HOPT(P, 600.0))
    for wrong in (frame, p.astype(str), p.astype(object), p.astype("category"), p.astype(complex), times.to_series()):
        with pytest.raises(TypeError):
            vaprix.water(p=p, T=wrong)


def test_masked():
    steam = vaprix.water(p=np.ma.array(P, mask=P > 15), T=T)
    for name in NAMES[:-1]:
        found = getattr(steam, name)
        assert np.array_equal(found.mask, P > 15) and np.array_equal(found.compressed(), getattr(PLAIN, name)[P <= 15])


def test_named_units():
    units = {"p": "bar", "T": "degC"}
    named = vaprix.water(p=P * 10, T=T - 273.15, units=units)
    np.testing.assert_allclose(named.h, PLAIN.h, 1e-12)
    again = vaprix.water(p=P * 10, h=PLAIN.h, units=units)
    np.testing.assert_allclose(again.T, T - 273.15, 1e-9)
    np.testing.assert_allclose(again.derivative("T", "p", at="h"), PLAIN.mu / 10, 1e-9)
    assert vaprix.water(p=xr.DataArray(P * 10), T=600, units=units | {"h": "J/kg"}).h.attrs["units"] == "J/kg"
    for wrong, error in (({"p": "K"}, pint.DimensionalityError), ({"q": "K"}, ValueError)):
        with pytest.raises(error):
            vaprix.water(p=P, T=T, units=wrong)


@pytest.mark.parametrize("made", [np.asarray, da.from_array])
def test_quantities(made):
    registry = pint.UnitRegistry()
    of = registry.Quantity
    steam = vaprix.water(p=of(made(P * 10), "bar"), T=of(T - 273.15, "degC"))
    h, eta = steam.h.to("J/g"), steam.eta.to("Pa s")
    np.testing.assert_allclose(np.asarray(h.magnitude), PLAIN.h, 1e-12)
    np.testing.assert_allclose(np.asarray(eta.magnitude), PLAIN.eta * 1e-6, 1e-12)
    assert type(steam.h.magnitude) is type(made(P)) and str(steam.T.units) == "degree_Celsius"
    assert np.array_equal(np.asarray(steam.region), PLAIN.region)
    slope = vaprix.water(p=of(1.0, "MPa"), h=of(3e6, "J/kg"), units={"T": "degC"}).derivative("h", "T", at="p")
    assert slope.check("[energy]/[mass]/[temperature]") and slope.to("kJ/kg/K").magnitude == pytest.approx(
        vaprix.water(p=1.0, h=3000.0).cp)
