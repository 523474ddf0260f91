// SPDX-License-Identifier: MIT
//
// States of any two variables that the C++ interface resolves, and what they are in words.
#pragma once

#include <string>
#include <string_view>
#include <vaprix.hpp>

namespace vaprix::cli {

using Resolver = State (*)(double, double, Family);

// The resolver of two of p, T, v, d, h, s, x; `swapped` if it takes them in the other order. Throws Error if no state is
// found by these.
struct Pair {
    Resolver of;
    bool swapped;
};
Pair pair_of(std::string_view first, std::string_view second);

// A second state that the same two variables have, at a higher pressure or colder than the density maximum; null for
// most pairs.
Resolver other_of(std::string_view first, std::string_view second);

Family family_of(std::string_view letter);  // "O" or "B"

std::string meaning_of(int code);
std::string phase_of(const State& state);  // "superheated steam"
std::string_view region_in_words(const State& state);

}  // namespace vaprix::cli
