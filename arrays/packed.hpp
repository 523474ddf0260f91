// SPDX-License-Identifier: MIT
//
// A block of an export by its plan.
#pragma once

#include <span>

#include "plan.hpp"

namespace vaprix::arrays {

// The plans of all exports, by their numbers, for the instruction set in use; null where that is none.
[[nodiscard]] const Plan* plans() noexcept;

// The first ones of a block.
[[nodiscard]] Elements first_elements(std::size_t count) noexcept;

// An export asked for: results and codes of a block, and what its plan has left.
struct Wanted {
    const Plan* plan;
    double* out;
    std::int32_t* code;
    Elements left{};
};

// Answers what the plans have parts for, with the code of each element; all of them divide alike, and what
// is solved for alike is solved for once.
void answer_packed(std::span<Wanted> wanted, std::size_t count, const double* x,
                   const double* y) noexcept;

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
