# SPDX-License-Identifier: MIT
"""States by any two variables, over the ufuncs."""
import numpy as np

from . import _ufuncs
from ._readings import READINGS

VARIABLES = ("p", "T", "v", "d", "h", "s", "x")
ATTRIBUTES = {attribute for attribute, _, _ in READINGS}
DENSE = {"v": "d", "d": "v"}  # reciprocals
BASE = {"O": ("Td", "Tp"), "B": ("Tp",)}  # what a family has most properties of


class Water:
    """States of water: see water()."""

    def __init__(self, given, family):
        self._family = family
        self._pairs = [given]
        for a, b in DENSE.items():
            if a in given:
                self._pairs.append({b if name == a else name: 1 / value if name == a else value
                                    for name, value in given.items()})
        # a number that is given, or follows from one, is not asked for
        self.__dict__.update({name: value for pair in self._pairs for name, value in pair.items()})
        if "T" not in given and not self._direct("T"):
            raise ValueError(f"no state is found of {' and '.join(given)}")

    def _direct(self, attribute):
        """The function of what was given, with what it takes. Where a family has none, the other answers for both."""
        families = [self._family, ""] + [other for other in BASE if attribute in ("p", "T")]
        for family in families:
            for pair in self._pairs:
                for names in (pair, pair.keys() - {"x"}):
                    if found := READINGS.get((attribute, family, "".join(sorted(names)))):
                        return found
        return None

    def __getattr__(self, attribute):
        if attribute not in ATTRIBUTES:
            raise AttributeError(f"water has no {attribute!r}")
        found = self._direct(attribute)
        if not found and self._direct(DENSE.get(attribute)):
            value = 1 / getattr(self, DENSE[attribute])
        else:
            bases = [(attribute, "", "Tv"), *((attribute, self._family, pair) for pair in BASE[self._family])]
            found = found or next((READINGS[base] for base in bases if base in READINGS), None)
            if not found:
                raise AttributeError(f"no function of the {self._family}-family has {attribute!r}")
            value = self._asked(attribute, *found)
        self.__dict__[attribute] = value
        return value

    def _asked(self, attribute, name, arguments, failures):
        value = getattr(_ufuncs, name)(*(getattr(self, a) for a in arguments))
        if attribute == "region":
            return value.astype(int)
        failed = ~np.isfinite(value)
        for failure in failures:
            failed |= value == value.dtype.type(failure)
        return _ufuncs._checked(value, failed)

    def __repr__(self):
        given = ", ".join(f"{name}={value!r}" for name, value in self._pairs[0].items())
        return f"vaprix.water({given}, family={self._family!r})"


def water(*, family="O", **given):
    """The states of two of p, T, v, d, h, s and x (kg of vapour per kg), numbers or arrays, which broadcast.

        >>> steam = vaprix.water(p=10, h=[2900, 3100])
        >>> steam.T, steam.s, steam.region

    Attributes, formed when they are asked for, in the units of the functions: p, T, v, d, h, s, x; u, f, g, cp, cv, w,
    z, mu (Joule-Thomson), alpha_p, alpha_v, beta_p, kappa, kappa_T, fugacity; eta [1e-6 Pa s], nu [1e-6 m2/s], lambda_
    [1e-3 W/(m K)], Pr, epsilon; region (4: wet, 0: none). A failure is NaN with NumPy's invalid flag, for which
    np.errstate(invalid="raise") raises. What the O-family has no function of is read from (T, d), the transport
    properties up to 1073.15 K; of the B-family, from (p, T), where wet steam has none.
    """
    if len(given) != 2 or not given.keys() <= set(VARIABLES):
        raise TypeError(f"water() takes two of {', '.join(VARIABLES)}")
    if family not in BASE:
        raise ValueError("family is 'O' or 'B'")
    return Water({name: np.positive(value) for name, value in given.items()}, family)
