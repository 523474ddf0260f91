// SPDX-License-Identifier: MIT
//
// Comparison of a given volume with a limit. It may be the reciprocal of a density, and 1/(1/v) may
// miss v by a rounding: a volume this close to a limit is on it.
#pragma once

namespace vaprix::inverse {

inline constexpr double reciprocal_rounding = 4e-16;

[[nodiscard]] inline bool reaches(double v, double limit) noexcept {
    return v >= limit * (1 - reciprocal_rounding);
}
[[nodiscard]] inline bool stays_below(double v, double limit) noexcept {
    return v <= limit * (1 + reciprocal_rounding);
}

}  // namespace vaprix::inverse
