# SPDX-License-Identifier: MIT
"""Fills a data set of any size by Dask, on two worker processes: with_dask.py ROWS FOLDER. Nothing is held but the
chunks that are worked on; a state is resolved once for all its columns."""
import time

import dask
import dask.array as da
import vaprix
from dask.distributed import Client, LocalCluster, progress

from rows import CHUNK, asked, data_set, peak_memory, report


def main():
    rows, folder = asked()
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster) as client:
        random = da.random.RandomState(1)
        p = random.uniform(0.005, 30, rows, chunks=CHUNK)  # MPa
        T = random.uniform(290, 1000, rows, chunks=CHUNK)  # K
        steam = vaprix.water(p=p, T=T)
        columns = {"p": p, "T": T, "h": steam.h, "s": steam.s, "phase": steam.phase}
        stored = data_set(folder, rows)
        begin = time.perf_counter()
        work = da.store(list(columns.values()), [stored[name] for name in columns], lock=False, compute=False)
        work = client.compute(work)
        progress(work, notebook=False)
        work.result()
        print()
        report(rows, time.perf_counter() - begin, [peak_memory(), *client.run(peak_memory).values()])


if __name__ == "__main__":
    dask.config.set({"distributed.comm.timeouts.connect": "60s"})
    main()
