// SPDX-License-Identifier: MIT
//
// The pairs of variables that have a state, and what a state is in words: of the command and of the page
// (faces/browser).
#pragma once

#include <string_view>
#include <vaprix.hpp>

namespace vaprix::cli {

using Resolver = State (*)(double, double, Family);

// Two variables and their resolver; `other` finds the second state that they have, at a higher pressure or colder than
// the density maximum, and is null for most pairs.
struct Known {
    std::string_view first, second;
    Resolver of, other;
};
// In either order; null if no state is found by these.
const Known* find_pair(std::string_view first, std::string_view second) noexcept;

std::string_view phase_of(const State& state) noexcept;  // "superheated steam"
std::string_view region_in_words(const State& state) noexcept;
// K above saturation, negative below; NaN of wet and saturated states and where there is no saturation.
double superheat_of(const State& state) noexcept;

}  // namespace vaprix::cli
