# SPDX-License-Identifier: MIT
"""What numbers come in, and results go back in: arrays of NumPy, Dask and xarray, Series and DataFrames of pandas,
quantities of pint. None of these but NumPy is imported before it is met."""
import itertools
import sys

import numpy as np

from ._quantities import QUANTITIES
from ._units import Units, derivative_parts, parsed

STATE = "8"  # the dimension that a state is stored along, as the signatures of the ufuncs name it
LABELS = {"region": "region of IAPWS-IF97", "phase": "phase", "code": "error code", "reason": "why there is no state"}
PHASES = {"flag_values": np.arange(5, dtype=np.int8), "flag_meanings": "none liquid vapour wet supercritical"}


def of_kind(values, library, *names):
    """Whether one of the values is of a library's classes: nobody has any of a library that is not imported."""
    module = sys.modules.get(library)
    return module is not None and any(isinstance(v, tuple(getattr(module, n) for n in names)) for v in values)


class Plain:
    """Arrays of NumPy, and numbers. Results are of float32 where all that was given counts as such."""
    OWN = ()  # another library, and its classes

    def __init__(self, given, units):
        self.given = {name: self._copied(value) for name, value in given.items()}
        self._units = units
        self._type = self._type_of(given)

    @classmethod
    def _is_own(cls, value):
        return bool(cls.OWN) and of_kind([value], *cls.OWN)

    def _copied(self, value):
        is_own = self._is_own(value)
        copy = value.copy() if is_own else np.array(value, subok=True)
        for kind in copy.dtypes if of_kind([copy], "pandas", "DataFrame") else [copy.dtype]:
            if kind.kind not in "biuf":
                raise TypeError(f"water() takes numbers, not {kind}")
        return copy if is_own else copy[()]

    def _type_of(self, given):
        """That of a ufunc of NumPy, to which numbers of Python are of no type of their own."""
        kinds = [given[name] if type(given[name]) in (int, float) else
                 value if isinstance(value, (np.ndarray, np.generic)) else value.dtype
                 for name, value in self.given.items()]
        return np.promote_types(np.result_type(*kinds), np.float32)

    def opened(self):
        return [self._units.inward(value, name) for name, value in self.given.items()]

    @staticmethod
    def apply(function, *arrays):
        return function(*arrays)

    @staticmethod
    def apply_plain(function, array, kind):
        """A function of arrays of NumPy, element by element, whose results are of the kind."""
        return function(array)

    def closed(self, values, name):
        if values.dtype != float:
            return values
        values = self._units.outward(values, name)
        return values if self._type == float else values.astype(self._type)


class Masked(Plain):
    def opened(self):
        self._mask = np.ma.getmaskarray(np.add(*self.given.values()))
        return [np.ma.filled(np.ma.asarray(value, float), np.nan) for value in super().opened()]

    def closed(self, values, name):
        return np.ma.array(super().closed(values, name), mask=self._mask)


class Dask(Plain):
    """Lazy, in chunks of any size, known or not. Masked elements are gaps."""
    OWN = "dask.array", "Array"

    def opened(self):
        return [sys.modules["dask.array"].ma.filled(value.astype(float), np.nan)
                if self._is_own(value) and isinstance(value._meta, np.ma.MaskedArray) else value
                for value in super().opened()]

    @staticmethod
    def apply(function, *arrays):
        """As Dask applies ufuncs, with the dimension of states after those that broadcast."""
        given, formed = ([(-1,) * (STATE in core) for core in part.split(",")]
                         for part in function.signature.split("->"))
        dimensions = [np.ndim(array) - len(core) for array, core in zip(arrays, given)]
        pairs = ((array, (*reversed(range(n)), *core) if np.ndim(array) else None)
                 for array, n, core in zip(arrays, dimensions, given))
        most = (*reversed(range(max(dimensions))), *formed[0])
        return sys.modules["dask.array"].blockwise(
            function, most, *itertools.chain(*pairs), new_axes=dict.fromkeys(formed[0], int(STATE)), concatenate=True,
            meta=np.empty((0,) * len(most), function.types[0][-1]))

    @staticmethod
    def apply_plain(function, array, kind):
        return array.map_blocks(function, dtype=kind)


class Pandas(Plain):
    """Series and DataFrames of numbers, aligned to each other as pandas does it. Results are of float64."""
    OWN = "pandas", "Series", "DataFrame"

    def __init__(self, given, units):
        first, second = given.values()
        if self._is_own(first) and self._is_own(second):
            if type(first) is not type(second):
                raise TypeError("a Series and a DataFrame have no index together")
            first, second = first.align(second)
        self._like = first if self._is_own(first) else second
        super().__init__(dict(zip(given, (first, second))), units)

    def _type_of(self, given):
        return np.dtype(float)

    def opened(self):
        return [value.to_numpy(float, na_value=np.nan) if self._is_own(value) else value
                for value in super().opened()]

    def closed(self, values, name):
        labels = {"index": self._like.index}
        if self._like.ndim == 2:
            labels["columns"] = self._like.columns
        elif isinstance(name, str):
            labels["name"] = name
        return type(self._like)(super().closed(values, name), **labels)


class Xarray(Plain):
    """By the names of dimensions, on arrays of NumPy or Dask inside."""
    OWN = "xarray", "DataArray"

    def __init__(self, given, units):
        super().__init__(given, units)
        for name, value in given.items():
            if self._is_own(value):
                self.given[name] = self.given[name].assign_attrs(attributes(name, units) | value.attrs)

    @classmethod
    def apply(cls, function, *arrays):
        cores = [[STATE] * (STATE in core) for core in function.signature.replace("->", ",").split(",")]
        return cls._mapped(lambda *inside: kind_of(inside).apply(function, *inside), cores, *arrays)

    @classmethod
    def apply_plain(cls, function, array, kind):
        return cls._mapped(lambda inside: kind_of([inside]).apply_plain(function, inside, kind), [[], []], array)

    @staticmethod
    def _mapped(function, cores, *arrays):
        xarray = sys.modules["xarray"]
        return xarray.apply_ufunc(function, *arrays, input_core_dims=cores[:-1], output_core_dims=cores[-1:],
                                  dask="allowed", join=xarray.get_options()["arithmetic_join"])

    def closed(self, values, name):
        values = super().closed(values, name)
        values.attrs = attributes(name, self._units)
        if isinstance(name, str):
            values.name = name
        return values


class Quantities:
    """Quantities of pint, of arrays of NumPy or Dask."""

    def __init__(self, given, units, registry):
        self._registry, self._units = registry, units
        numbers = {name: getattr(value, "magnitude", value) for name, value in given.items()}
        self._inside = kind_of(numbers.values())(numbers, units)
        self.given = given
        self.opened, self.apply, self.apply_plain = self._inside.opened, self._inside.apply, self._inside.apply_plain

    def closed(self, values, name):
        values = self._inside.closed(values, name)
        if name in LABELS:
            return values
        unit = parsed(self._registry, self._units.text(name))
        return self._registry.Quantity(values if unit.magnitude == 1 else values * unit.magnitude, unit.units)


def attributes(name, units):
    """What xarray keeps beside the numbers, named as the conventions for such data have it."""
    if isinstance(name, str):
        text = QUANTITIES[name][0] if name in QUANTITIES else LABELS[name]
    else:
        of, *by = (QUANTITIES[part][0] for part in derivative_parts(name))
        text = f"derivative of {of} by {' and '.join(by)}"
    known = {"long_name": text, "standard_name": text.lower().replace(" ", "_").replace("-", "_")}
    if name not in LABELS:
        known["units"] = units.text(name) or "1"
    return known | (PHASES if name == "phase" else {})


def kind_of(values):
    """The class for arrays that pint and xarray may have inside."""
    return Dask if of_kind(values, "dask.array", "Array") else Plain


def opened(given, named):
    """The container of what was given, and its arrays in the units of the library."""
    values, named = list(given.values()), dict(named or {})
    of = {name: named[name] for name in given if name in named}
    if of_kind(values, "pint", "Quantity"):
        registry = next(v._REGISTRY for v in values if hasattr(v, "_REGISTRY"))
        of |= {name: v.units for name, v in given.items() if hasattr(v, "units")}
        container = Quantities(given, Units(of, named, registry), registry)
    else:
        if of_kind(values, "xarray", "DataArray"):
            kind = Xarray
            for name, value in given.items():
                unit = getattr(value, "attrs", {}).get("units", "")
                if unit not in ("", "1", QUANTITIES[name][1]):
                    of[name] = unit
        elif of_kind(values, "pandas", "Series", "DataFrame"):
            kind = Pandas
        elif any(isinstance(v, np.ma.MaskedArray) for v in values):
            kind = Masked
        else:
            kind = kind_of(values)
        container = kind(given, Units(of, named))
    return container, container.opened()
