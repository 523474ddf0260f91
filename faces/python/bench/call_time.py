# SPDX-License-Identifier: MIT
"""Time of the processor for calls: a number, a million states, strided; a loop of ctypes and numpy.vectorize beside
them; states with five properties, and what they take from C; and the time on the clock in two threads. The first
argument is the folder of the build, of which vaprix, vaprix_arrays and vaprix_resolve_once are built.
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


def best(call, repeats=9, clock=time.thread_time):
    """Seconds of the fastest: the machine may be shared."""
    def once():
        start = clock()
        call()
        return clock() - start
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
    """How many times faster two threads are on halves: the fastest of many, in turn."""
    many = [np.tile(a, 4) for a in (p, T, out)]
    half = len(many[0]) // 2

    def halves():
        threads = [threading.Thread(target=vaprix.HBPT, args=[a[part] for a in many])
                   for part in (slice(half), slice(half, None))]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
    rounds = [(best(lambda: vaprix.HBPT(*many), 1, time.perf_counter), best(halves, 1, time.perf_counter))
              for _ in range(100)]
    one, two = map(min, zip(*rounds))
    return one / two


def once_from_c(pair, x, y):
    """States resolved once in C++, with five properties."""
    over = getattr(ctypes.CDLL(BUILD / "faces/python/libvaprix_resolve_once.so"), f"five_of_{pair}")
    five = np.empty((5, N))
    return best(lambda: over(ctypes.c_size_t(N), *(ctypes.c_void_p(a.ctypes.data) for a in (x, y, five)))) / N * 1e9


def several_from_c(names, x, y):
    """The same by five functions over arrays in one call."""
    over = ctypes.CDLL(BUILD / "arrays/libvaprix_arrays.so").vaprix_arrays_several
    results = np.empty((5, N))
    at = (ctypes.c_void_p * 5)(*(row.ctypes.data for row in results))
    steps = (ctypes.c_ssize_t * 5)(*[1] * 5)
    given = [x for a in (x, y) for x in (ctypes.c_void_p(a.ctypes.data), ctypes.c_ssize_t(1))]
    names = (ctypes.c_char_p * 5)(*names)
    return best(lambda: over(ctypes.c_size_t(N), *given, ctypes.c_size_t(5), names, at, steps, None)) / N * 1e9


def states(pair, y, first):
    """Five properties of a pair: a call over arrays, the loop in C++ and the package."""
    def five():
        steam = vaprix.water(**dict(zip(pair, (p, y))))
        return getattr(steam, first), steam.v, steam.s, steam.cp, steam.w
    names = [f"{name}OP{pair[1]}".upper().encode() for name in (first, "v", "s", "cp", "w")]
    several, once = several_from_c(names, p, y), once_from_c(pair.lower(), p, y)
    report(f"vaprix_arrays_several, {', '.join(name.decode() for name in names)}", several)
    report("the same states, resolved once in C++", once)
    report("the same of vaprix.water", best(five) / N * 1e9, min(several, once))


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
states("ph", vaprix.HOPT(p, T), "T")
states("pT", T, "h")
print(f"two threads on halves: {in_threads():.2f} times faster")
