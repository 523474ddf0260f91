# SPDX-License-Identifier: MIT
"""The data set that both programs fill: a Zarr group of columns p, T, h, s and phase, partitioned into chunks."""
import resource
import sys

import numpy as np
import zarr

CHUNK = 400_000  # rows, whose states, 64 bytes each, are memory that the allocator keeps
COLUMNS = {"p": float, "T": float, "h": float, "s": float, "phase": np.int8}


def asked():
    """Rows and folder, of the command line."""
    if len(sys.argv) != 3:
        sys.exit(f"usage: {sys.argv[0]} ROWS FOLDER")
    return int(float(sys.argv[1])), sys.argv[2]


def data_set(folder, rows):
    group = zarr.open_group(folder, "w")
    return {name: group.create_dataset(name, shape=rows, chunks=min(rows, CHUNK), dtype=kind)
            for name, kind in COLUMNS.items()}


def peak_memory():
    """Of this process so far, MB."""
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024


def report(rows, seconds, memory):
    print(f"{rows} rows in {seconds:.1f} s: {rows / seconds:.3g} rows/s, peak memory of the processes "
          f"{' + '.join(f'{m:.0f}' for m in memory)} MB")
