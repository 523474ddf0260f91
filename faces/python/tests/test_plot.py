# SPDX-License-Identifier: MIT
"""Charts: lines without gaps and kinks at the saturation line, labels that are clear of each other, processes."""
import itertools

import matplotlib
import numpy as np
import pytest
import vaprix

matplotlib.use("Agg")
from vaprix import plot  # noqa: E402

KINDS = {"T-s": {"isobar"}, "h-s": {"isobar", "isotherm"}, "p-h": {"isotherm"}, "p-T": set(), "p-v": {"isotherm"}}


@pytest.fixture(autouse=True)
def closed():
    yield
    plot.plt.close("all")


@pytest.mark.parametrize("kind", KINDS)
@pytest.mark.parametrize("top", [1073.15, 2273.15])
def test_charts(kind, top):
    with np.errstate(invalid="raise"):
        chart = plot.Chart(kind, T=(273.16, top))
    lines = {line.get_label().split(" [")[0] for line in chart.axes.lines if not line.get_label().startswith("_")}
    assert KINDS[kind] == lines & {"isobar", "isotherm"} and {"saturation line", "border of regions"} <= lines
    assert all(np.isfinite(line.get_xydata()).all() for line in chart.axes.lines)
    for line in chart.axes.lines:  # no jump on the page
        steps = np.hypot(*np.diff(chart.axes.transData.transform(line.get_xydata()), axis=0).T)
        assert steps.max() < 30
    assert "[kJ/kg]" in chart.axes.get_xlabel() or kind != "p-h"
    renderer = chart.axes.figure.canvas.get_renderer()
    boxes = [text.get_window_extent(renderer) for text in chart.axes.texts]
    assert len(boxes) > 2 and not any(a.overlaps(b) for a, b in itertools.combinations(boxes, 2))


def test_process():
    chart = plot.Chart("h-s", units={"T": "degC", "p": "bar"}, isobars=[1, 10], isotherms=[200])
    assert {"1", "10", "200"} <= {text.get_text() for text in chart.axes.texts}
    live = vaprix.water(p=100.0, T=550.0, units={"p": "bar", "T": "degC"})
    series = vaprix.water(p=np.array([1.0, 0.1]), s=float(live.s))
    line = chart.process([live, series], along=["s", None], labels="abc")
    s, h = line.get_xydata().T
    np.testing.assert_allclose(s, live.s, 1e-9)
    np.testing.assert_allclose(h[[0, -1]], [live.h, series.h[1]], 1e-9)
    assert len(chart.process([live, series], closed=True).get_xdata()) == 6
    part = plot.Chart("h-s", view=((6, 9), (2000, 3800))).axes
    assert part.get_xlim() == (6, 9) and len(part.texts) > 10
    assert all(6 < text.get_position()[0] < 9 and 2000 < text.get_position()[1] < 3800 for text in part.texts)
    for wrong in (dict(along=["s"]), dict(along="u")):
        with pytest.raises(ValueError):
            chart.process([live, series], **wrong)
    with pytest.raises(ValueError):
        plot.Chart("T-q")
