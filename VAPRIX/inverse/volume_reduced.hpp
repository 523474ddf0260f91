// SPDX-License-Identifier: MIT
//
// What the start values of the inverses of a volume are polynomials in and how their regions are
// divided. d in kg/m3, T in K.
#pragma once

#include <cstddef>
#include <iterator>

#include "frame/constants.hpp"

namespace vaprix::inverse::reduced {

// Parts of regions 1 and 2 by density. Each has two cells by h or by s, that of vapour plus R ln d,
// which is that of an ideal gas.
inline constexpr double d1_ends[] = {570, 720, 900, 1080};
inline constexpr double d2_ends[] = {0, 10, 45, 110, 210, 400};
template <std::size_t ends>
[[nodiscard]] inline std::size_t part(const double (&d_ends)[ends], double d) noexcept {
    std::size_t k = 0;
    for (std::size_t end = 1; end + 1 < ends; ++end) k += d >= d_ends[end] ? 1 : 0;
    return k;
}

// Of the pressure by density and temperature, whose regions are not divided: from -1 or 0 to 1.
[[nodiscard]] inline double d1(double d) noexcept { return (d - 780) / 250; }
[[nodiscard]] inline double t1(double t) noexcept { return 950 / t - 2.5; }
[[nodiscard]] inline double d2(double d) noexcept { return d * (1 / *std::rbegin(d2_ends)); }
[[nodiscard]] inline double t2(double t) noexcept { return 730 / t - 1.68; }

}  // namespace vaprix::inverse::reduced
