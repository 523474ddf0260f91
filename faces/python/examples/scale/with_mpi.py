# SPDX-License-Identifier: MIT
"""Fills the same data set by MPI: mpirun -n 2 python3 with_mpi.py ROWS FOLDER. Each process has chunks of its own and
speaks to the others only at the end."""
import time

import numpy as np
import vaprix
import zarr
from mpi4py import MPI

from rows import CHUNK, COLUMNS, asked, data_set, peak_memory, report


def main():
    rows, folder = asked()
    world = MPI.COMM_WORLD
    if world.rank == 0:
        data_set(folder, rows)
    world.barrier()
    stored = zarr.open_group(folder, "r+")
    begin = time.perf_counter()
    mine = range(world.rank * CHUNK, rows, world.size * CHUNK)
    for done, first in enumerate(mine, 1):
        part = slice(first, min(first + CHUNK, rows))
        random = np.random.default_rng([1, first])  # the same rows for any number of processes
        p, T = (random.uniform(*ends, part.stop - first) for ends in ((0.005, 30), (290, 1000)))
        steam = vaprix.water(p=p, T=T)
        for name in COLUMNS:
            stored[name][part] = getattr(steam, name)
        if world.rank == 0:
            print(f"\r{100 * done // len(mine):3} %", end="", flush=True)
    memory = world.gather(peak_memory())
    if world.rank == 0:
        print()
        report(rows, time.perf_counter() - begin, memory)


if __name__ == "__main__":
    main()
