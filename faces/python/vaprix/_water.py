# SPDX-License-Identifier: MIT
"""States by any two variables: resolved once, in the array library of what was given."""
import enum

import numpy as np

from . import _containers, _ufuncs
from ._quantities import QUANTITIES
from ._reasons import REASONS

VARIABLES = ("p", "T", "v", "d", "h", "s", "x")
PAIRS = {frozenset(pair): (pair, "of_" + "".join(pair).lower())
         for pair in map(tuple, "pT ph ps pv pd px Tx Td Tv Th Ts hs vh vs dh ds".split())}
SLOPES = ("p", "T", "v", "d", "h", "s", "u", "f", "g")  # what derivatives are of and by, as the C++ interface counts
CURVED = ("T", "v", "h", "s")
LABELS = ("region", "phase", "code")
PHASES = ("liquid", "vapour")


class Phase(enum.IntEnum):
    """What the attribute phase of water() says; vapour is all gas below the critical pressure or temperature."""
    NONE, LIQUID, VAPOUR, WET, SUPERCRITICAL = range(5)


def texts(codes):
    """What the codes of an array say."""
    numbers, at = np.unique(codes, return_inverse=True)
    if unknown := set(numbers.tolist()) - REASONS.keys():
        raise ValueError(f"{unknown.pop()} is no code of vaprix")
    return np.array([REASONS[number] for number in numbers.tolist()], str)[at].reshape(np.shape(codes))


class Water:
    """States of water: see water()."""

    def __init__(self, state, container, said):
        self._state, self._container, self._said = state, container, said

    def __getattr__(self, attribute):
        if attribute in QUANTITIES:
            value = self._read(getattr(_ufuncs, attribute), attribute)
        elif attribute in LABELS:
            value = self._container.closed(self._container.apply(getattr(_ufuncs, attribute), self._state), attribute)
        elif attribute in PHASES:
            state = self._container.apply(getattr(_ufuncs, attribute), self._state)
            value = Water(state, self._container, f"{self._said}.{attribute}")
        else:
            raise AttributeError(f"water has no {attribute!r}")
        self.__dict__[attribute] = value
        return value

    def __dir__(self):
        return sorted({*super().__dir__(), *QUANTITIES, *LABELS, *PHASES})

    def __getstate__(self):
        return self.__dict__

    def __setstate__(self, state):
        self.__dict__.update(state)

    def __repr__(self):
        return self._said

    def _read(self, function, name, *numbers):
        return self._container.closed(self._container.apply(function, self._state, *numbers), name)

    @property
    def reason(self):
        """What the codes say, as text."""
        codes = self._container.apply(_ufuncs.code, self._state)
        return self._container.closed(self._container.apply_plain(texts, codes, str), "reason")

    def derivative(self, of, by, at=None):
        """The partial derivative of one property by another where a third stays, (dz/dx)_y: those of p, T, v, d, h, s,
        u, f and g are there.

            >>> steam = vaprix.water(p=10, T=700)
            >>> print(f'{steam.derivative("h", by="p", at="T"):.6f}')         # (dh/dp)_T, kJ/(kg MPa)
            -18.172842
            >>> print(f'{steam.derivative("v", by=("T", "T"), at="p"):.6e}')  # (d2v/dT2)_p
            -1.625570e-07
            >>> print(f'{steam.derivative("h", by=("p", "T")):.6f}')          # d2h/dpdT
            0.113790
            >>> wet = vaprix.water(T=400, x=0.5)
            >>> print(f'{wet.derivative("p", by="T", at="x"):.6f}')           # along the saturation line: dps/dT
            0.007482

        Wet steam has those of the lever rule. Second derivatives are of T, v, h and s by p and by T, h or s, in single
        phases. NaN with NumPy's invalid flag where there is none, as by T at constant p in wet steam. Units are the
        quotients of those of the attributes.
        """
        by = (by,) if isinstance(by, str) else tuple(by)
        function, numbers = ((_ufuncs.derivative, _first(of, *by, at)) if len(by) == 1 else
                             (_ufuncs.second_derivative, _second(of, by, at)))
        if numbers is None:
            raise ValueError(f"no derivative of {of!r} by {' and '.join(by)} at constant {at!r}")
        return self._read(function, (of, by), *numbers)


def _first(of, by, at):
    if of in SLOPES and by in SLOPES and at in (*SLOPES, "x"):
        return SLOPES.index(of), SLOPES.index(by), len(SLOPES) if at == "x" else SLOPES.index(at)
    return None


def _second(of, by, at):
    """Of coordinates p and y, in which second derivatives are formed."""
    others = {*by, at} - {"p", None}
    if of not in CURVED or len(by) != 2 or len(others) != 1 or at in by:
        return None
    y = others.pop()
    if y not in ("T", "h", "s") or (at is None) != (by[0] != by[1]):
        return None
    return SLOPES.index(of), SLOPES.index(y), by.count(y)


def water(*, family="O", units=None, **given):
    """The states of two of p, T, v, d, h, s and x (kg of vapour per kg), numbers or arrays, which broadcast.

        >>> steam = vaprix.water(p=10, h=[2900, 3100])
        >>> steam.T.round(3), steam.region
        (array([617.322, 673.999]), array([2, 2], dtype=int8))
        >>> print(vaprix.water(p=100, T=400, units={"p": "bar", "T": "degC"}).h.round(3))
        3097.375

    Resolved once, by the O-family or, family="B", by the B-family. Attributes, formed when they are asked for, in the
    units of the functions: p, T, v, d, h, s, x; u, f, g, cp, cv, w, z, mu (Joule-Thomson), kappa, cp_per_cv, alpha_p,
    alpha_v, beta_p, kappa_T, fugacity, g_ideal; eta [1e-6 Pa s], nu and a [1e-6 m2/s], lambda_ [1e-3 W/(m K)], Pr,
    epsilon, sigma [N/m] of saturated states; region (4: wet, 0: none), phase (a vaprix.Phase), code and reason, why
    there is no state; liquid and vapour, the states of the phases of wet steam. What was given is given back.

    What a state has not, is NaN with NumPy's invalid flag, for which np.errstate(invalid="raise") raises; what follows
    from a NaN, NaN without it. Arrays of Dask stay lazy, those of xarray keep their dimensions and coordinates and get
    attributes, Series and DataFrames of pandas keep their index. With pint, units of the attributes may be named, and
    quantities are taken and given back.
    """
    if len(given) != 2 or not given.keys() <= set(VARIABLES):
        raise TypeError(f"water() takes two of {', '.join(VARIABLES)}")
    if family not in ("O", "B"):
        raise ValueError("family is 'O' or 'B'")
    if frozenset(given) not in PAIRS:
        raise ValueError(f"no state is found of {' and '.join(given)}")
    names, resolver = PAIRS[frozenset(given)]
    container, arrays = _containers.opened({name: given[name] for name in names}, units)
    state = container.apply(getattr(_ufuncs, f"{resolver}_{family}"), *arrays)
    said = ", ".join(f"{name}={value!r}" for name, value in given.items())
    result = Water(state, container, f"vaprix.water({said}, family={family!r})")
    result.__dict__.update(container.given)
    return result
