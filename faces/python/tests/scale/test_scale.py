# SPDX-License-Identifier: MIT
"""The programs that fill data sets, with a million rows and a chunk that is not full."""
import multiprocessing
import os
import pathlib
import subprocess
import sys

import numpy as np
import pytest
import vaprix
import zarr

PROGRAMS = pathlib.Path(__file__).resolve().parents[2] / "examples" / "scale"
MPIRUN = ["mpirun", "--allow-run-as-root", "--oversubscribe", "-n", "2"]
ROWS = 2_100_000


@pytest.mark.parametrize("program, launcher", [("with_dask.py", []), ("with_mpi.py", MPIRUN)])
def test_program(program, launcher, tmp_path):
    if not launcher:  # Dask's own processes
        try:
            multiprocessing.Lock()
        except OSError as error:  # no /dev/shm to write to
            pytest.skip(f"the machine has no semaphores for processes: {error}")
    folder = tmp_path / "states"
    run = subprocess.run([*launcher, sys.executable, PROGRAMS / program, str(ROWS), folder], text=True, check=True,
                         stdout=subprocess.PIPE, env=os.environ | {"OMPI_MCA_btl_vader_single_copy_mechanism": "none"})
    assert f"{ROWS} rows" in run.stdout and "rows/s" in run.stdout and "100" in run.stdout
    stored = {name: array[:] for name, array in zarr.open_group(str(folder), "r").arrays()}
    p, T = stored["p"], stored["T"]
    assert len(np.unique(p[::7])) > ROWS / 7.1 and p.min() < 0.1 and T.max() > 999
    assert np.array_equal(stored["h"], vaprix.HOPT(p, T)) and np.array_equal(stored["s"], vaprix.SOPT(p, T))
    assert np.array_equal(stored["phase"], vaprix.water(p=p, T=T).phase)
