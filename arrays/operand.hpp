// SPDX-License-Identifier: MIT
//
// An argument or the result of a function over arrays, for tables of such functions: see call() in arrays.py.
#pragma once

#include <cstddef>

namespace vaprix {

// Of numbers or of regions; the step is in elements.
struct Operand {
    void* at;
    std::ptrdiff_t step;
    [[nodiscard]] const double* numbers() const noexcept { return static_cast<const double*>(at); }
    [[nodiscard]] double* written() const noexcept { return static_cast<double*>(at); }
    [[nodiscard]] int* regions() const noexcept { return static_cast<int*>(at); }
};

}  // namespace vaprix
