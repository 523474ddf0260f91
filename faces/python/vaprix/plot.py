# SPDX-License-Identifier: MIT
"""Charts of the states of water with matplotlib: T-s, h-s, p-h, p-T, p-v, and what is done to the water on them.

    >>> chart = vaprix.plot.Chart("T-s", units={"T": "degC", "p": "bar"})
    >>> chart.process([feed, live, exhaust], along=["p", "s"], labels=["feed", "live", "exhaust"])
    >>> chart.axes.figure.savefig("cycle.svg")
"""
import itertools

import matplotlib.pyplot as plt
import numpy as np

from . import _ufuncs
from ._quantities import QUANTITIES
from ._units import Units
from ._water import water

SYMBOLS = {"d": r"\rho", "eta": r"\eta", "lambda_": r"\lambda", "nu": r"\nu", "kappa": r"\kappa",
           "epsilon": r"\epsilon"}
TYPESET = {"m2": "m²", "m3": "m³", "1e-6": "10$^{-6}$", "1e-3": "10$^{-3}$", "degC": "°C"}  # of units
LOGARITHMIC = ("p", "v", "d")
RATIOS = np.array([1, 2, 5])  # of isobars within a decade
BETWEEN = {"p": "h", "s": "p", "h": "p", "v": "p", "T": "v"}  # what runs from state to state while one stays
STEPS = 150
STYLES = {
    "saturation line": dict(color="black", linewidth=1.4, zorder=3),
    "quality": dict(color="0.55", linewidth=0.6, linestyle=(0, (4, 2))),
    "isobar": dict(color="tab:blue", linewidth=0.6),
    "isotherm": dict(color="tab:red", linewidth=0.6),
    "border of regions": dict(color="tab:green", linewidth=1.0, linestyle=":"),
}
GROUND = dict(boxstyle="square,pad=0.08", facecolor="white", edgecolor="none")  # of what is written
# a state inside each region, by p and T, where its number is written
INSIDE = {"1": (30, 420), "2": (0.3, 750), "3": (45, 700), "5": (0.3, 1500)}
T_13, T_25, T_MAX_2 = 623.15, 1073.15, 863.15  # where regions meet, K: 1 and 3, 2 and 5, end of the line of 2 and 3
P_MAX, P_MAX_5 = 100.0, 50.0  # ends of the range, MPa
T_LOW = 273.16


class Chart:
    """A chart of y over x, two attributes of vaprix.water(), as "T-s", with the saturation line, lines of constant
    quality, isobars, isotherms and the borders of the regions, as far as they are no grid lines.

    units names units through pint. isobars, isotherms and qualities are numbers in the units of the chart, or None for
    some; p and T, in MPa and K, are the ends of what is drawn; view, (x_low, x_high), (y_low, y_high), is a part of the
    chart. `axes` is what it is drawn into.
    """

    def __init__(self, kind, *, axes=None, units=None, isobars=None, isotherms=None, qualities=None, regions=True,
                 p=(0.001, P_MAX), T=(T_LOW, T_25), view=None):
        y, x = kind.split("-")
        for name in (x, y):
            if name not in QUANTITIES:
                raise ValueError(f"water has no {name!r}")
        self.x, self.y = x, y
        self.axes = axes or plt.subplots(figsize=(8, 6), constrained_layout=True)[1]
        self._units = Units(dict(units or {}), dict(units or {}))
        self._p, self._T = p, T
        self._drawn, self._written = [], []
        for axis, name in (("x", x), ("y", y)):
            getattr(self.axes, f"set_{axis}scale")("log" if name in LOGARITHMIC else "linear")
            getattr(self.axes, f"set_{axis}label")(f"{QUANTITIES[name][0]} {symbol(name)}{self._in(name)}")
        self._lines(isobars, isotherms, qualities, regions)
        if {x, y} == {"p", "T"}:
            self.axes.update_datalim(self._points(water(p=np.array(p), T=np.array(T))).T)
        self.axes.margins(0.02)
        self.axes.autoscale_view()
        if view:
            self.axes.set(xlim=view[0], ylim=view[1])
        self._write()

    def process(self, states, *, along=None, labels=None, closed=False, **style):
        """Draws what happens from state to state, each a vaprix.water() of one state or of a series of them.

        along names, for each step, the attribute that stays, one of p, T, v, h and s, or None for a straight line; one
        name is for all steps. closed adds the step from the last state to the first.
        """
        ends = [end for state in states for end in single_states(state)]
        if closed:
            ends.append(ends[0])
        steps = [along] * (len(ends) - 1) if along is None or isinstance(along, str) else list(along)
        if len(steps) != len(ends) - 1:
            raise ValueError(f"{len(ends) - 1} steps are drawn, along tells of {len(steps)}")
        legs = [self._points(between(a, b, stays)) for a, b, stays in zip(ends, ends[1:], steps)]
        style = dict(color="tab:orange", linewidth=2, zorder=5) | style
        line, = self.axes.plot(*np.hstack(legs), **style)
        marks = np.hstack([self._points(end) for end in ends[:len(ends) - closed]])
        self.axes.plot(*marks, "o", color=line.get_color(), markeredgecolor="white", zorder=style["zorder"] + 1)
        for at, label in zip(marks.T, labels or ()):
            self._place_beside(at, label)
        return line

    def _in(self, name):
        unit = self._units.text(name)
        for written, read in TYPESET.items():
            unit = unit.replace(written, read)
        return f" [{unit}]" if unit else ""

    def _points(self, states):
        """Coordinates of states, in the units of the chart."""
        return np.array([self._units.outward(np.atleast_1d(raw(states, name)), name) for name in (self.x, self.y)])

    def _lines(self, isobars, isotherms, qualities, regions):
        axes = {self.x, self.y}
        grid = saturation_temperatures(max(self._T[0], float(_ufuncs.TOP(max(self._p[0], 0.00062)))))
        self._draw("saturation line", [water(T=grid, x=0.0), water(T=grid[::-1], x=1.0)])
        if axes != {"p", "T"}:
            for x in np.arange(1, 10) / 10 if qualities is None else qualities:
                self._draw("quality", [water(T=grid, x=x)], label=f"{x:g}")
        if "p" not in axes:
            for p, label in self._values("p", isobars):
                self._draw("isobar", [isobar(p, *self._T)], label=label)
        if "T" not in axes:
            for T, label in self._values("T", isotherms):
                # where isobars are drawn too, these are the isotherms of wet steam
                self._draw("isotherm", [isotherm(T, *self._p, vapour_only="p" not in axes)], label=label)
        if regions:
            for line in borders(self._T[1], self._p[0]):
                self._draw("border of regions", [line])

    def _values(self, name, given):
        """Numbers in the library's units with their labels."""
        low, high = (float(self._units.outward(end, name)) for end in (self._p if name == "p" else self._T))
        if given is None and name == "p":
            decades = 10.0 ** np.arange(np.floor(np.log10(low)), np.ceil(np.log10(high)) + 1)
            given = [v for v in np.outer(decades, RATIOS).ravel() if low * 0.999 <= v <= high * 1.001]
        elif given is None:
            given = np.arange(np.ceil(low / 100) * 100, high + 1e-6, 100)
        return [(float(self._units.inward(v, name)), f"{v:g}") for v in given]

    def _draw(self, what, pieces, label=None):
        points = np.hstack([self._points(piece) for piece in pieces])
        first = not any(drawn == what for drawn, _, _ in self._drawn)
        legend = what + (self._in({"isobar": "p", "isotherm": "T", "quality": "x"}[what]) if label else "")
        self.axes.plot(*points, label=legend if first else None, **STYLES[what])
        self._drawn.append((what, points, label))

    def _write(self):
        """Labels along the lines and numbers of the regions, each where it is clear of the others."""
        self._line = np.full((1, 2), np.nan)
        if any(drawn.startswith("border") for drawn, _, _ in self._drawn):
            for number, (p, T) in INSIDE.items():
                at = self._points(water(p=p, T=T))[:, 0]
                if T < self._T[1] and self.axes.bbox.contains(*self.axes.transData.transform(at)):
                    self._place(at, number, 0, fontsize=12, color="tab:green")
        self._line = self.axes.transData.transform(self._drawn[0][1].T)
        for what, points, label in self._drawn:
            if label:
                parts = np.linspace(0.3, 0.7, 9) if what == "quality" else np.linspace(0.95, 0.05, 16)
                self._place_along(points, label, STYLES[what]["color"], parts)
        self.axes.legend(loc="upper center", bbox_to_anchor=(0.5, -0.1), ncol=5, frameon=False, fontsize=8)

    def _place_along(self, points, label, color, parts):
        """At the first of some places on the line that is free."""
        at = self.axes.transData.transform(points.T)
        inside = self.axes.bbox.padded(-8)
        keep = np.array([inside.contains(*point) for point in at])
        runs = np.split(at, np.flatnonzero(np.diff(keep)) + 1)[0 if keep[0] else 1::2]
        at = max(runs, key=len, default=at[:0])
        if len(at) < 2:
            return
        way = np.concatenate([[0], np.cumsum(np.hypot(*np.diff(at, axis=0).T))])
        for part in parts:
            middle, before, after = (np.array([np.interp(way[-1] * part + shift, way, at[:, k]) for k in (0, 1)])
                                     for shift in (0, -4, 4))
            angle = np.degrees(np.arctan2(*(after - before)[::-1]))
            angle = (angle + 80) % 180 - 80  # what is about vertical reads upwards
            if self._place(self.axes.transData.inverted().transform(middle), label, angle, fontsize=6.5, color=color):
                return

    def _place(self, at, text, angle, **style):
        return self._keep(self.axes.text(*at, text, rotation=angle, ha="center", va="center", rotation_mode="anchor",
                                         zorder=4, clip_on=True, bbox=GROUND, **style))

    def _place_beside(self, at, text):
        """At a corner of a mark that is free."""
        for dx, dy in itertools.product((7, -7), (5, -5)):
            note = self.axes.annotate(text, at, (dx, dy), textcoords="offset points", ha="left" if dx > 0 else "right",
                                      va="bottom" if dy > 0 else "top", fontsize=9, fontweight="bold", zorder=7,
                                      bbox=GROUND)
            if self._keep(note, always=(dx, dy) == (-7, -5)):
                return

    def _keep(self, text, always=False):
        """Whether a text is clear of those before it and of the saturation line; else it goes."""
        box = text.get_window_extent(self.axes.figure.canvas.get_renderer()).padded(1)
        (left, bottom), (right, top) = box.get_points()
        x, y = self._line.T
        crossed = ((left < x) & (x < right) & (bottom < y) & (y < top)).any()
        if not always and (crossed or any(box.overlaps(other) for other in self._written)):
            text.remove()
            return False
        self._written.append(box)
        return True


def symbol(name):
    return f"${SYMBOLS.get(name, name)}$"


def raw(states, name):
    """An attribute in the library's units, whatever the states were given in."""
    with np.errstate(invalid="ignore"):
        return np.asarray(states._container.apply(getattr(_ufuncs, name), states._state))


def single_states(states):
    """The states of a series, one by one."""
    p, h = (np.atleast_1d(raw(states, name)).ravel() for name in "ph")
    return [water(p=a, h=b) for a, b in zip(p, h)]


def between(first, last, stays):
    """The states from one to another while an attribute stays."""
    if stays is None:
        return water(p=np.array([raw(s, "p") for s in (first, last)]), h=np.array([raw(s, "h") for s in (first, last)]))
    if stays not in BETWEEN:
        raise ValueError(f"no process is drawn at constant {stays!r}")
    varied = BETWEEN[stays]
    grid = np.geomspace if varied in LOGARITHMIC else np.linspace
    return water(**{stays: float(raw(first, stays)),
                    varied: grid(float(raw(first, varied)), float(raw(last, varied)), STEPS)})


def saturation_temperatures(low):
    """Close together at the critical point, where the saturated phases meet with a horizontal tangent."""
    return _ufuncs.TCRIT - (_ufuncs.TCRIT - low) * np.linspace(1, 0, 2 * STEPS) ** 3


def isobar(p, low, high):
    """By the enthalpy, in which it is smooth, from saturated phase to saturated phase."""
    h = [float(_ufuncs.HOPT(p, T)) for T in (low, high if p <= P_MAX_5 else min(high, T_25))]
    if p < _ufuncs.PCRIT:
        h[1:1] = water(p=p, x=[0.0, 1.0]).h
    return water(p=p, h=np.hstack([np.linspace(a, b, 2 * STEPS) for a, b in zip(h, h[1:])]))


def isotherm(T, low, high, vapour_only=False):
    """By the density, as isobar()."""
    d = [float(_ufuncs.DOPT(p, T)) for p in (low, high if T <= T_25 else min(high, P_MAX_5))]
    if T < _ufuncs.TCRIT and low < _ufuncs.POT(T):
        d[1:1] = water(T=T, x=[1.0, 0.0]).d
    pieces = [np.geomspace(a, b, 2 * STEPS) for a, b in zip(d, d[1:])]
    if T < T_13 and len(pieces) > 1:  # stiff liquid, whose pressures go over decades
        pieces[-1][1:] = _ufuncs.DOPT(np.geomspace(float(_ufuncs.POT(T)), high, 2 * STEPS)[1:], T)
    return water(T=T, d=pieces[0] if vapour_only and len(pieces) > 1 else np.hstack(pieces))


def borders(high, low):
    """Regions 1 and 3, 2 and 3, 2 and 5."""
    T = np.linspace(T_13, T_MAX_2, STEPS)[1:]
    lines = [water(p=np.linspace(float(_ufuncs.POT(T_13)) * 1.0000001, P_MAX, STEPS), T=T_13),
             water(p=np.minimum(_ufuncs.FB23(T), P_MAX), T=T)]
    return lines + [water(p=np.geomspace(low, P_MAX_5, STEPS), T=T_25)] * (high > T_25)
