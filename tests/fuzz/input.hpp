// SPDX-License-Identifier: MIT
// The bytes of a fuzz target's input: which export of the target's arity, what it is called with.
#pragma once

#include <cstdint>
#include <vector>

#include "bound.hpp"

namespace fuzz {

struct Input {
    std::uint16_t which = 0;
    std::int32_t region = 0;
    std::array<double, 4> arguments{};  // in their order; a target of fewer ends earlier
};

// The exports that take so many numbers by reference.
inline std::vector<const bound::Export*> of_arity(std::size_t arity) {
    std::vector<const bound::Export*> some;
    for (const bound::Export& each : bound::exports())
        if (each.inputs.size() == arity) some.push_back(&each);
    return some;
}

}  // namespace fuzz
