# SPDX-License-Identifier: MIT
"""Arrays of every shape, layout and kind behave as with a ufunc of NumPy itself."""
import gc
import pickle
import sys
import threading
import time
import warnings

import numpy as np
import pytest
import vaprix
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as of_numpy

P = np.geomspace(0.001, 90, 600)
T = np.linspace(280, 1000, 600)
H = np.array([vaprix.HBPT(p, t) for p, t in zip(P.tolist(), T.tolist())])


def same(a, b):
    return np.array_equal(np.asarray(a), np.asarray(b), equal_nan=True)


LAYOUTS = {
    "contiguous": lambda a: a.copy(),
    "every third": lambda a: np.repeat(a, 3)[::3],
    "backwards": lambda a: a[::-1].copy()[::-1],
    "big-endian": lambda a: a.astype(">f8"),
    "misaligned": lambda a: np.frombuffer(b"x" + a.tobytes(), np.uint8)[1:].view(float),
    "a field of packed rows": lambda a: np.rec.fromarrays([a, a.astype("i4")], dtype=[("a", "f8"), ("b", "i4")])["a"],
    "read-only": lambda a: np.frombuffer(a.tobytes()),
}


OUTS = {
    "backwards": lambda: np.zeros(600)[::-1],
    "every third": lambda: np.zeros(1800)[::3],
    "big-endian": lambda: np.zeros(600, ">f8"),
    "misaligned": lambda: np.zeros(4801, np.uint8)[1:].view(float),
}


@pytest.mark.parametrize("first", LAYOUTS)
@pytest.mark.parametrize("second", LAYOUTS)
def test_layouts(first, second):
    p, t = LAYOUTS[first](P), LAYOUTS[second](T)
    assert same(p, P) and same(vaprix.HBPT(p, t), H)
    for made in OUTS.values():
        out = made()
        assert vaprix.HBPT(p, t, out=out) is out and same(out, H)


@settings(max_examples=300, deadline=None, database=None)
@given(of_numpy.mutually_broadcastable_shapes(num_shapes=2, max_dims=4, max_side=4), st.data())
def test_broadcasting_and_strides(shapes, data):
    """Any views that broadcast, into any view that may overlap them, as with numpy.hypot."""
    def view(memory, shape, label):
        steps = tuple(data.draw(st.lists(st.integers(-3, 3), min_size=len(shape), max_size=len(shape)), label=label))
        return np.lib.stride_tricks.as_strided(memory[600:], shape, tuple(8 * s for s in steps), writeable=True)
    memory = np.linspace(300, 1000, 1200)
    p, t = (view(memory, shape, name) for shape, name in zip(shapes.input_shapes, "pT"))
    numbers = np.vectorize(lambda a, b: vaprix.HBPT(float(a), float(b)), otypes=[float])
    wanted = numbers(p, t) if np.broadcast(p, t).size else np.zeros(shapes.result_shape)
    answer = vaprix.HBPT(p, t)
    assert np.shape(answer) == shapes.result_shape and same(answer, wanted)
    first = data.draw(st.integers(-5, 5), label="out")
    out = memory[600 + first:600 + first + wanted.size].reshape(wanted.shape)
    wanted = wanted.copy()
    assert vaprix.HBPT(p, t, out=out) is out
    assert same(out, wanted)


@pytest.mark.parametrize("shift", [-3, -1, 0, 1, 2])
@pytest.mark.parametrize("step", [1, 2, -1])
def test_out_overlaps(shift, step):
    memory = np.full(1300, 300.0)
    p = memory[5:1205:2] if step == 2 else memory[5:605][::step]
    p[:] = P
    out = (memory[5 + shift:1205 + shift:2] if step == 2 else memory[5 + shift:605 + shift][::step])
    vaprix.HBPT(p, T, out=out)
    assert same(out, H)


def test_where_and_methods():
    keep = np.arange(600) % 7 < 3
    out = np.full(600, 5.0)
    vaprix.HBPT(P, T, out=out, where=keep)
    assert same(out, np.where(keep, H, 5.0))
    assert same(vaprix.HBPT.outer(P[:7], T[:9]), [[vaprix.HBPT(p, t) for t in T[:9].tolist()] for p in P[:7].tolist()])
    # of no use, but what NumPy says
    by_number = 3.0
    steps = [by_number]
    for t in T.tolist():
        by_number = vaprix.VBPT(by_number, t)
        steps.append(by_number)
    assert vaprix.VBPT.reduce([3.0, *T]) == by_number and same(vaprix.VBPT.accumulate([3.0, *T]), steps)
    at = P[:5].copy()
    vaprix.HBPT.at(at, [0, 2], T[[0, 2]])
    assert same(at, np.where([1, 0, 1, 0, 0], H[:5], P[:5]))
    result, region = np.empty(3), np.empty(3, int)
    answer = vaprix.TPH(3.0, [500.0, 1e4, 3000.0], 0, out=(result, region))
    assert answer[0] is result and list(region) == [1, 0, 2] and result[1] == 0
    assert same(vaprix.code(vaprix.HOPT, [3, -1, 3, -1], 300, where=[True, True, False, False], out=np.zeros(4, "i4")),
                [0, -10055, 0, 0])


CASTS = [np.float16, np.float32, np.float64, np.int8, np.int16, np.int32, np.int64, np.uint8, np.uint64, bool]


@pytest.mark.parametrize("first", CASTS)
@pytest.mark.parametrize("second", CASTS)
def test_kinds_of_numbers(first, second):
    """The kind of the result is that of arctan2 and its like, but never below float32."""
    for a, b in ((np.ones(3, first), np.ones(3, second)), (np.ones(3, first), second(1)), (first(1), second(1)),
                 (np.ones(3, first), 300), (np.ones(3, first), 300.0)):
        wanted = np.promote_types(np.arctan2(a, b).dtype, np.float32)
        answer = vaprix.HBPT(a, b)
        assert answer.dtype == wanted and type(answer) is type(np.arctan2(a, b)) or wanted == np.float32
        assert same(answer, vaprix.HBPT(np.asarray(a, float), np.asarray(b, float)).astype(wanted))


def test_empty_and_zero_dimensional():
    assert vaprix.HBPT([], []).shape == (0,) and vaprix.HBPT(np.zeros((3, 0)), 300.0).shape == (3, 0)
    assert vaprix.code("HBPT", [], []).dtype == np.int32
    zero = vaprix.HBPT(np.array(3.0), np.array(300))
    assert type(zero) is np.float64 and zero == vaprix.HBPT(3, 300) == vaprix.HBPT(np.float64(3), True * 300)


BAD = ["3", b"3", None, 3j, [None], ["3"], np.ones(2, complex), np.ones(2, object), np.ones(2, "M8[s]"),
       np.ones(2, "U3"), np.longdouble(3), 2**70, {}, object(), np.zeros(2, [("a", "f8")])]


@pytest.mark.parametrize("bad", BAD, ids=repr)
def test_wrong_types(bad):
    with pytest.raises(TypeError):
        vaprix.HBPT(bad, 300.0)
    with pytest.raises(TypeError):
        vaprix.code("HBPT", 3.0, bad)


def test_wrong_calls():
    for call in (lambda: vaprix.HBPT(3.0), lambda: vaprix.HBPT(), lambda: vaprix.HBPT(1.0, 2.0, 3.0, 4.0),
                 lambda: vaprix.HBPT(3.0, 300.0, nothing=1), lambda: vaprix.HBPT(3.0, 300.0, out=[1.0]),
                 lambda: vaprix.HPT(3.0, 300.0, 1.0), lambda: vaprix.HBPT(P, T, out=np.zeros(600, int))):
        with pytest.raises(TypeError):
            call()
    for call in (lambda: vaprix.HBPT([1, 2], [1, 2, 3]), lambda: vaprix.HBPT(P, T, out=np.zeros(3)),
                 lambda: vaprix.HBPT(P, T, out=np.frombuffer(P.tobytes())), lambda: vaprix.code("NONE", 1)):
        with pytest.raises(ValueError):
            call()
    assert list(vaprix.HPT(3.0, 300.0, [2**31, -2**31 - 1, 2**62])[0]) == [vaprix.HPT(3.0, 300.0, -1)[0]] * 3


def test_subclasses():
    masked = vaprix.HBPT(np.ma.array([3.0, 4.0], mask=[False, True]), np.ma.array([300.0, 300.0]))
    assert isinstance(masked, np.ma.MaskedArray) and list(masked.mask) == [False, True]
    assert masked[0] == vaprix.HBPT(3, 300)

    class Mine:
        def __array_ufunc__(self, ufunc, method, *inputs, **how):
            return ufunc, method, len(inputs)
    assert vaprix.HBPT(Mine(), 3.0) == (vaprix.HBPT, "__call__", 2)


def test_no_warning():
    """A failure is a number; only a float32 that cannot have it is told of, as of any result of NumPy's."""
    odd = np.array([np.nan, np.inf, -np.inf, 0.0, -1.0, 5e-324, 1e308, 300.0])
    with warnings.catch_warnings(), np.errstate(all="raise"):
        warnings.simplefilter("error")
        for name in ("HBPT", "DOPT", "HOPT", "TOPH", "TBPS", "POHS", "DOTP", "ETAOPT", "TCOOPT", "HPT"):
            function = getattr(vaprix, name)
            function(*np.meshgrid(odd, odd), *([0] * (function.nin - 2)))
        with pytest.raises(FloatingPointError):
            np.divide(odd, 0.0)


def test_threads():
    """Beside each other, with the same results."""
    p, t = np.tile(P, 300), np.tile(T, 300)
    wanted, found = np.tile(H, 300), {}

    def work(name):
        found[name] = [same(vaprix.HBPT(p, t), wanted) and vaprix.HBPT(3.0, 300.0) > 0 for _ in range(5)]
    threads = [threading.Thread(target=work, args=(n,)) for n in range(4)]
    [thread.start() for thread in threads]
    [thread.join() for thread in threads]
    assert found == dict.fromkeys(range(4), [True] * 5)


def test_interpreter_is_free():
    """Another thread runs during a call though the interpreter never switches by itself."""
    p, done, seen = np.full(4_000_000, 3.0), threading.Event(), []

    def watch():
        while not done.is_set():
            seen.append(time.perf_counter())
            time.sleep(0.001)
    interval = sys.getswitchinterval()
    sys.setswitchinterval(60)
    try:
        watcher = threading.Thread(target=watch)
        watcher.start()
        begin = time.perf_counter()
        vaprix.HBPT(p, 300.0)
        end = time.perf_counter()
        done.set()
        watcher.join()
    finally:
        sys.setswitchinterval(interval)
    assert sum(begin < moment < end for moment in seen) > 1


def test_references():
    """Calls keep and lose no reference."""
    p, t = 3.25, 300.25
    before = sys.getrefcount(p), sys.getrefcount(vaprix.HBPT)
    results = [vaprix.HBPT(p, t) for _ in range(1000)]
    del results
    gc.collect()
    assert (sys.getrefcount(p), sys.getrefcount(vaprix.HBPT)) == before
    assert pickle.loads(pickle.dumps(vaprix.HBPT)) is vaprix.HBPT
