// SPDX-License-Identifier: MIT
//
// What the inner loops of the ufuncs share. It follows numpy/ufuncobject.h.
#pragma once

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

// Adds what an owned reference refers to.
bool add(PyObject* dictionary, const char* name, PyObject* owned) {
    const bool done = owned != nullptr && PyDict_SetItemString(dictionary, name, owned) == 0;
    Py_XDECREF(owned);
    return done;
}

}  // namespace
