# SPDX-License-Identifier: MIT
"""Properties of water and steam after IAPWS-IF97: every function of VAPRIX as a ufunc of NumPy, under its plain name.

    >>> print(vaprix.HBPT(3, 300).round(6))                 # MPa, K: kJ/kg
    115.331273
    >>> vaprix.HBPT(3, np.linspace(300, 800, 3)).round(3)   # arrays, which broadcast
    array([ 115.331, 2933.656, 3517.422])
    >>> print(vaprix.water(p=10, h=2900).T.round(3))        # states of any two variables
    617.322

Units are MPa, K, kg/m3, m3/kg, kJ/kg, kJ/(kg K), m/s, Pa s; help(vaprix.HBPT) has range, failures and source. A
failure is a number, -99999.0 of most functions, no exception and no warning; code(...) has the codes of the elements,
reason(...) their meaning. float32 for float32, rounded from float64. Constants are floats. A function that takes a
region, where 0 has it determined, answers (result, region).
"""
import numpy as _np

from . import _ufuncs
from ._ufuncs import *  # noqa: F401,F403
from ._water import Phase, texts as _texts, water  # noqa: F401

__version__ = _ufuncs.__version__


def code(function, *arguments, **how):
    """The codes of the elements, 0 where a call stores none: code(vaprix.HOPT, p, T) or code("HOPT", p, T).

    What a ufunc takes by name may follow: out=, where=.
    """
    name = getattr(function, "__name__", function)
    if name not in _ufuncs._codes:
        raise ValueError(f"{name!r} is no function of vaprix")
    return _ufuncs._codes[name](*arguments, **how)


def reason(code):
    """What a code says, as text; of an array, as an array."""
    codes = _np.asarray(code)
    if not _np.issubdtype(codes.dtype, _np.integer):
        raise TypeError("a code is an integer")
    return _texts(codes)[()] if codes.ndim else str(_texts(codes))
