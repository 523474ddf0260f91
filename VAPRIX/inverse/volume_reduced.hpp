// SPDX-License-Identifier: MIT
//
// The variables that the start values of the inverses of a volume are polynomials in, from -1 or 0 to 1
// over their regions. h in kJ/kg, s in kJ/(kg K), d in kg/m3, T in K.
#pragma once

#include <cstddef>

#include "frame/constants.hpp"

namespace vaprix::inverse::reduced {

[[nodiscard]] inline double d1(double d) noexcept { return (d - 780) / 250; }
[[nodiscard]] inline double h1(double h) noexcept { return (h - 850) / 850; }
[[nodiscard]] inline double s1(double s) noexcept { return (s - 1.9) / 1.9; }
[[nodiscard]] inline double t1(double t) noexcept { return 950 / t - 2.5; }

// Region 2 in three parts by density.
inline constexpr double d2_ends[] = {0, 15, 100, 400};
inline constexpr std::size_t parts = 3;
[[nodiscard]] inline std::size_t part2(double d) noexcept {
    return d < d2_ends[1] ? 0 : d < d2_ends[2] ? 1 : 2;
}
[[nodiscard]] inline double d2(std::size_t part, double d) noexcept {
    return (d - d2_ends[part]) * (1 / (d2_ends[part + 1] - d2_ends[part]));
}
[[nodiscard]] inline double h2(double h) noexcept { return (h - 3330) / 830; }
[[nodiscard]] inline double s2(double s_plus_r_ln_d) noexcept {  // which is that of an ideal gas
    return (s_plus_r_ln_d - 7.25) / 0.8;
}
// Of the temperature in one part.
[[nodiscard]] inline double d2(double d) noexcept { return d * (1 / d2_ends[parts]); }
[[nodiscard]] inline double t2(double t) noexcept { return 730 / t - 1.68; }

}  // namespace vaprix::inverse::reduced
