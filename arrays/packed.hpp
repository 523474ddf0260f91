// SPDX-License-Identifier: MIT
//
// A block of an export by its plan.
#pragma once

#include "plan.hpp"

namespace vaprix::arrays {

// The plans of all exports, by their numbers, for the instruction set in use; null where that is none.
[[nodiscard]] const Plan* plans() noexcept;

// Answers what the plan has a part for, with the code of each, and returns the elements that are left.
[[nodiscard]] Elements answer_packed(const Plan& plan, std::size_t count, std::int32_t* code,
                                     const double* x, const double* y, double* out) noexcept;

// Calls `visit` with the number of each element.
template <class Visit>
void for_each(const Elements& elements, Visit visit) noexcept {
    for (std::size_t word = 0; word < elements.size(); ++word) {
        for (std::uint64_t bits = elements[word]; bits != 0; bits &= bits - 1) {
            visit(64 * word + static_cast<std::size_t>(__builtin_ctzll(bits)));
        }
    }
}

}  // namespace vaprix::arrays
