// SPDX-License-Identifier: MIT
//
// Limits of a given volume, m3/kg, or of its reciprocal, a given density, kg/m3.
#pragma once

namespace vaprix::inverse {

// A little beyond the volumes of all states. A density that gives none of them is not divided by:
// the reciprocal of 0 would raise a flag.
inline constexpr double smallest = 9e-4;  // v1(100 MPa, 273.15 K) >= 0.00095
inline constexpr double largest = 1800;   // v5(p_min, 2273.15 K) <= 1717
[[nodiscard]] inline bool is_density(double d) noexcept { return d > 1 / largest; }

// Comparison of a volume with a limit. The volume may be the reciprocal of a density, and 1/(1/v)
// may miss v by a rounding: a volume this close to a limit is on it.
inline constexpr double reciprocal_rounding = 4e-16;

[[nodiscard]] inline bool reaches(double v, double limit) noexcept {
    return v >= limit * (1 - reciprocal_rounding);
}
[[nodiscard]] inline bool stays_below(double v, double limit) noexcept {
    return v <= limit * (1 + reciprocal_rounding);
}

}  // namespace vaprix::inverse
