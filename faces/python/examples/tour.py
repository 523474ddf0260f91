# SPDX-License-Identifier: MIT
# %% [markdown]
# # A tour of vaprix
#
# Cells of a notebook, for editors that know `# %%`; as a program, `tour.py FOLDER` writes its pictures into the folder.

# %%
import sys

import matplotlib

matplotlib.use("Agg")
import numpy as np
import pandas as pd
import vaprix
import vaprix.plot

FOLDER = sys.argv[1] if len(sys.argv) > 1 else "."


def picture(chart, name):
    chart.axes.figure.savefig(f"{FOLDER}/{name}.png", dpi=72)


# %% [markdown]
# ## A Rankine cycle with reheat
#
# 150 bar, 540 degC, reheated to 540 degC at 30 bar, condensed at 0.05 bar. A state is made of any two variables.

# %%
PUMP, TURBINE = 0.80, 0.88  # isentropic efficiencies
p_boiler, p_reheat, p_condenser, T_live = 15.0, 3.0, 0.005, 813.15  # MPa, K


def compressed(start, p, efficiency):
    return vaprix.water(p=p, h=start.h + (vaprix.water(p=p, s=start.s).h - start.h) / efficiency)


def expanded(start, p, efficiency):
    return vaprix.water(p=p, h=start.h - (start.h - vaprix.water(p=p, s=start.s).h) * efficiency)


condensate = vaprix.water(p=p_condenser, x=0.0)
feed = compressed(condensate, p_boiler, PUMP)
live = vaprix.water(p=p_boiler, T=T_live)
cold_reheat = expanded(live, p_reheat, TURBINE)
hot_reheat = vaprix.water(p=p_reheat, T=T_live)
exhaust = expanded(hot_reheat, p_condenser, TURBINE)

heat = live.h - feed.h + hot_reheat.h - cold_reheat.h
work = live.h - cold_reheat.h + hot_reheat.h - exhaust.h - (feed.h - condensate.h)
print(f"work {work:.1f} kJ/kg, heat {heat:.1f} kJ/kg, efficiency {work / heat:.4f}, exhaust x = {exhaust.x:.4f}")

chart = vaprix.plot.Chart("T-s", units={"T": "degC", "p": "bar"}, regions=False)
chart.process([condensate, feed, live, cold_reheat, hot_reheat, exhaust], labels="123456", closed=True,
              along=[None, "p", None, "p", None, "p"])
picture(chart, "rankine")

# %% [markdown]
# ## Reheat pressure
#
# The same cycle over a whole array of reheat pressures: arrays go through the same lines.

# %%
pressures = np.linspace(1.0, 8.0, 141)
cold = expanded(live, pressures, TURBINE)
hot = vaprix.water(p=pressures, T=T_live)
end = expanded(hot, p_condenser, TURBINE)
spent = live.h - feed.h + hot.h - cold.h
efficiency = (live.h - cold.h + hot.h - end.h - (feed.h - condensate.h)) / spent
best = efficiency.argmax()
print(f"best reheat pressure {pressures[best]:.2f} MPa: efficiency {efficiency[best]:.4f}, x = {end.x[best]:.4f}")

# %% [markdown]
# ## The expansion line of a turbine
#
# Stage by stage in the h-s chart, the wet stages losing a percent for each percent of water (Baumann's rule).

# %%
stages = np.geomspace(p_reheat, p_condenser, 9)
line = [hot_reheat]
for p in stages[1:]:
    with np.errstate(invalid="ignore"):  # superheated steam has no x
        wetness = np.nan_to_num(1 - line[-1].x)
    line.append(expanded(line[-1], p, 0.90 - wetness))
whole = (hot_reheat.h - line[-1].h) / (hot_reheat.h - vaprix.water(p=p_condenser, s=hot_reheat.s).h)
print(f"expansion line of {len(stages) - 1} stages: efficiency {whole:.4f}, x = {line[-1].x:.4f}")

chart = vaprix.plot.Chart("h-s", units={"T": "degC", "p": "bar"}, regions=False, view=((5.8, 9.2), (2000, 3800)))
chart.process(line)
picture(chart, "expansion")

# %% [markdown]
# ## Cleaning a historian's export
#
# Gauge pressure in bar and degC by the minute, with gaps and bad rows. A gap stays a gap; a bad row has a reason.

# %%
random = np.random.default_rng(7)
times = pd.date_range("2026-01-01", periods=1440, freq="min", name="time")
export = pd.DataFrame({"p": 148.7 + random.normal(0, 0.5, 1440), "T": 540 + random.normal(0, 1.5, 1440)}, times)
export.loc[times[100:130], "p"] = np.nan   # a gap
export.loc[times[400:404], "T"] = -9999.0  # a broken sensor
export.loc[times[700], "p"] = 14870.0      # kPa for once

with np.errstate(invalid="ignore"):
    steam = vaprix.water(p=export.p + 1.013, T=export["T"], units={"p": "bar", "T": "degC"})
    clean = export.assign(h=steam.h, s=steam.s, code=steam.code)
gaps = export.isna().any(axis="columns")
bad = clean[(clean.code != 0) & ~gaps]
print(f"{gaps.sum()} rows of gaps, {len(bad)} bad rows:")
print(steam.reason[bad.index].value_counts().to_string())
hourly = clean[clean.code == 0].h.resample("h").mean()
print(f"h by the hour: {hourly.min():.1f} to {hourly.max():.1f} kJ/kg, {hourly.notna().sum()} of {len(hourly)} hours")
