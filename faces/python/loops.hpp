// SPDX-License-Identifier: MIT
//
// What the inner loops of the ufuncs share. NumPy is imported by the file that says VAPRIX_IMPORTS_NUMPY.
#pragma once

#define PY_SSIZE_T_CLEAN
#define NPY_NO_DEPRECATED_API NPY_1_20_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL vaprix_numpy_arrays
#define PY_UFUNC_UNIQUE_SYMBOL vaprix_numpy_ufuncs
#ifndef VAPRIX_IMPORTS_NUMPY
#define NO_IMPORT_ARRAY
#define NO_IMPORT_UFUNC
#endif
#include <Python.h>
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>

#include <cfenv>
#include <cstddef>

namespace {

// NumPy looks at the floating-point flags after a loop. What a calculation raises on its way says nothing: it is taken
// back, and a loop raises by itself what it has to tell.
class QuietFlags {
    static constexpr int watched = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW;
    const int before = std::fetestexcept(watched);

public:
    QuietFlags() noexcept = default;
    QuietFlags(const QuietFlags&) = delete;
    QuietFlags& operator=(const QuietFlags&) = delete;
    ~QuietFlags() {
        if (const int raised = std::fetestexcept(watched) & ~before; raised != 0)
            std::feclearexcept(raised);
    }
};

// An operand of a loop as NumPy gives it: the step is in bytes.
struct Strided {
    char* at;
    npy_intp step;

    template <class Number>
    [[nodiscard]] Number& element(std::size_t k) const noexcept {
        return *reinterpret_cast<Number*>(at + static_cast<npy_intp>(k) * step);
    }
};

}  // namespace

// Adds what an owned reference refers to.
inline bool add(PyObject* dictionary, const char* name, PyObject* owned) {
    const bool done = owned != nullptr && PyDict_SetItemString(dictionary, name, owned) == 0;
    Py_XDECREF(owned);
    return done;
}

// Adds the ufuncs of states.cpp.
bool add_states(PyObject* dictionary);
