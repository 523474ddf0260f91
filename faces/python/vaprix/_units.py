# SPDX-License-Identifier: MIT
"""Units by name, through pint: of what is given and of what is answered."""
import re

from ._quantities import QUANTITIES


class Units:
    """The library's own units for all that is not named. `given` and `answered` are {attribute: unit}."""

    def __init__(self, given, answered, registry=None):
        if given or answered:
            registry = registry or application_registry()
        unknown = answered.keys() - QUANTITIES.keys()
        if unknown:
            raise ValueError(f"water has no {unknown.pop()!r} to have a unit")
        self._names = answered
        self._given = {name: Linear(registry, unit, name) for name, unit in given.items()}
        self._answered = {name: Linear(registry, unit, name) for name, unit in answered.items()}

    def inward(self, value, name):
        scale = self._given.get(name)
        return scale.inward(value) if scale else value

    def outward(self, values, name):
        if isinstance(name, str):
            scale = self._answered.get(name)
            return scale.outward(values) if scale else values
        factor = 1.0
        for k, part in enumerate(derivative_parts(name)):
            if part in self._answered:
                factor *= self._answered[part].scale if k else 1 / self._answered[part].scale
        return values if factor == 1 else values * factor

    def text(self, name):
        """Unit of an attribute; of a derivative, the quotient."""
        if isinstance(name, str):
            return self._names.get(name, QUANTITIES[name][1] if name in QUANTITIES else "")
        of, *by = (self.text(part) or "1" for part in derivative_parts(name))
        return of + "".join(f"/({unit})" for unit in by)


def derivative_parts(name):
    """What the unit of a derivative is of: of its name (z, (x, ...)) z and each x."""
    return name[0], *name[1]


class Linear:
    """Numbers of a unit as numbers of the attribute's own."""

    def __init__(self, registry, unit, name):
        of = parsed(registry, QUANTITIES[name][1])
        unit = parsed(registry, unit).units if isinstance(unit, str) else unit
        zero, one = (registry.Quantity(number, unit) for number in (0.0, 1.0))
        self.offset = (zero.to(of.units) / of).to("").magnitude
        self.scale = ((one - zero).to(of.units) / of).to("").magnitude

    def inward(self, value):
        return value * self.scale + self.offset if self.offset else value * self.scale

    def outward(self, values):
        return (values - self.offset) / self.scale if self.offset else values / self.scale


def application_registry():
    try:
        import pint
    except ImportError:
        raise ImportError("units by name need pint") from None
    return pint.get_application_registry()


def parsed(registry, unit):
    """A unit, of which some of the library's have a factor, as a quantity: "1e-6 Pa s", "m3/kg" or "m3 kg-1"."""
    factor, text = re.fullmatch(r"(1e-\d+)? ?(.*)", "" if unit == "1" else unit).groups()
    text = re.sub(r"(?<=[A-Za-z])(-?\d)", r"**\1", text).replace(" ", "*")
    return registry.Quantity(float(factor or 1), registry.parse_units(text))
