# SPDX-License-Identifier: MIT
"""The tour runs, without a warning, and finds what a reader would."""
import pathlib
import re
import subprocess
import sys

TOUR = pathlib.Path(__file__).resolve().parents[1] / "examples" / "tour.py"


def test_tour(tmp_path):
    run = subprocess.run([sys.executable, "-W", "error::RuntimeWarning", TOUR, tmp_path], text=True, check=True,
                         capture_output=True)
    work, heat, efficiency, x = map(float, re.search(
        r"work (\S+) kJ/kg, heat (\S+) kJ/kg, efficiency (\S+), exhaust x = (\S+)", run.stdout).groups())
    assert 0.38 < efficiency < 0.44 and abs(work / heat - efficiency) < 1e-4 and 0.9 < x < 1
    assert "30 rows of gaps, 5 bad rows" in run.stdout and "24 of 24 hours" in run.stdout
    assert all((tmp_path / f"{name}.png").stat().st_size > 10_000 for name in ("rankine", "expansion"))
