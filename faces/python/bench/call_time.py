# SPDX-License-Identifier: MIT
"""Time of calls: a number, a million states, strided, in two threads; a loop of ctypes and numpy.vectorize beside them.
The first argument is the folder of the build, of which vaprix, vaprix_arrays and vaprix_resolve_once are built.
"""
import ctypes
import pathlib
import sys
import threading
import time
import timeit

import numpy as np
import vaprix

BUILD = pathlib.Path(sys.argv[1])
N = 1_000_000
random = np.random.default_rng(1)
p, T = random.uniform(0.01, 90, N), random.uniform(280, 1000, N)
out = np.empty(N)
wide = np.empty((3, 3 * N))
wide[0, ::3], wide[1, ::3] = p, T


def best(call, repeats=9):
    """Seconds of the fastest: the machine may be shared."""
    def once():
        start = time.perf_counter()
        call()
        return time.perf_counter() - start
    return min(once() for _ in range(repeats))


def report(what, nanoseconds, beside=None):
    times = f"  {nanoseconds / beside:6.2f} times the call from C" if beside else ""
    print(f"{what:52} {nanoseconds:9.1f} ns{times}")


def array_call(step):
    """The function over arrays, called once: steps are in doubles."""
    over = ctypes.CDLL(BUILD / "arrays/libvaprix_arrays.so").HBPT_array
    columns = [wide[k].ctypes.data if step > 1 else a.ctypes.data for k, a in enumerate((p, T, out))]
    arguments = [ctypes.c_size_t(N)]
    for column in columns:
        arguments += [ctypes.c_void_p(column), ctypes.c_ssize_t(step)]
    return best(lambda: over(*arguments, None)) / N * 1e9


def in_threads():
    """How many times faster two threads are on halves."""
    def halves():
        threads = [threading.Thread(target=vaprix.HBPT, args=(p[part], T[part], out[part]))
                   for part in (slice(N // 2), slice(N // 2, N))]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    return best(lambda: vaprix.HBPT(p, T, out)) / best(halves)


def once_from_c(h):
    """States resolved once in C++, with five properties."""
    over = ctypes.CDLL(BUILD / "faces/python/libvaprix_resolve_once.so").five_of_ph
    five = np.empty((5, N))
    return best(lambda: over(ctypes.c_size_t(N), *(ctypes.c_void_p(a.ctypes.data) for a in (p, h, five)))) / N * 1e9


def several_from_c(h):
    """The same by five functions over arrays in one call."""
    over = ctypes.CDLL(BUILD / "arrays/libvaprix_arrays.so").vaprix_arrays_several
    results = np.empty((5, N))
    names = (ctypes.c_char_p * 5)(b"TOPH", b"VOPH", b"SOPH", b"CPOPH", b"WOPH")
    at = (ctypes.c_void_p * 5)(*(row.ctypes.data for row in results))
    steps = (ctypes.c_ssize_t * 5)(*[1] * 5)
    given = [x for a in (p, h) for x in (ctypes.c_void_p(a.ctypes.data), ctypes.c_ssize_t(1))]
    return best(lambda: over(ctypes.c_size_t(N), *given, ctypes.c_size_t(5), names, at, steps, None)) / N * 1e9


def five(h):
    steam = vaprix.water(p=p, h=h)
    return steam.T, steam.v, steam.s, steam.cp, steam.w


def by_ctypes():
    function = ctypes.CDLL(BUILD / "VAPRIX/libvaprix.so").HBPT
    function.restype = ctypes.c_double
    pairs = list(zip(p[:20000].tolist(), T[:20000].tolist()))
    return best(lambda: [function(ctypes.byref(ctypes.c_double(a)), ctypes.byref(ctypes.c_double(b)))
                         for a, b in pairs], 3) / 20000 * 1e9


loops = 200_000
report("two numbers of Python",
       min(timeit.repeat("f(3.0, 300.0)", globals={"f": vaprix.HBPT}, number=loops)) / loops * 1e9)
report("numpy.hypot of two numbers",
       min(timeit.repeat("f(3.0, 4.0)", globals={"f": np.hypot}, number=loops)) / loops * 1e9)
from_c, strided_from_c = array_call(1), array_call(3)
report(f"HBPT_array from C, {N} states", from_c)
report("contiguous", best(lambda: vaprix.HBPT(p, T, out)) / N * 1e9, from_c)
report("contiguous, a new array of results", best(lambda: vaprix.HBPT(p, T)) / N * 1e9, from_c)
report("every third, results too",
       best(lambda: vaprix.HBPT(wide[0, ::3], wide[1, ::3], wide[2, ::3])) / N * 1e9, from_c)
report("HBPT_array from C of the same", strided_from_c, from_c)
p32, T32 = p.astype(np.float32), T.astype(np.float32)
report("float32", best(lambda: vaprix.HBPT(p32, T32)) / N * 1e9, from_c)
report("loop of ctypes", by_ctypes(), from_c)
by_number = np.vectorize(lambda a, b: vaprix.HBPT(a, b), otypes=[float])
report("numpy.vectorize", best(lambda: by_number(p[:20000], T[:20000]), 3) / 20000 * 1e9, from_c)
h = vaprix.HOPT(p, T)
once = once_from_c(h)
report("C++: states of (p, h) with five properties", once)
report("vaprix_arrays_several of the same", several_from_c(h), once)
report("vaprix.water of the same", best(lambda: five(h)) / N * 1e9, once)
print(f"two threads on halves: {in_threads():.2f} times faster")
