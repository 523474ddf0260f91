// SPDX-License-Identifier: MIT
//
// States of any two variables, as the command is asked for them.
#pragma once

#include <string>
#include <string_view>

#include "pairs.hpp"

namespace vaprix::cli {

// The resolver of two of p, T, v, d, h, s, x; `swapped` if it takes them in the other order. Throws Error if no state is
// found by these.
struct Pair {
    Resolver of;
    bool swapped;
};
Pair pair_of(std::string_view first, std::string_view second);

// The resolver of a second state that the same two variables have, or null.
Resolver other_of(std::string_view first, std::string_view second);

Family family_of(std::string_view letter);  // "O" or "B"

std::string meaning_of(int code);

}  // namespace vaprix::cli
