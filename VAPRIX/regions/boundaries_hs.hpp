// SPDX-License-Identifier: MIT
//
// Boundaries between the regions of (h, s): enthalpy, kJ/kg, of s, kJ/(kg K), and the temperature
// of the boundary between regions 2 and 3.
// Given:    s, and h, in the range of the equation; nothing is checked.
// Failure:  none.
// Source:   IAPWS SR4-04(2014), Eqs. (3) to (8), Tables 9, 10, 16, 17, 23 and 25.
#pragma once

#include "regions/region3_backward.hpp"

namespace vaprix::boundaries_hs {

// Where one boundary hands over to the next, kJ/(kg K).
inline constexpr double s_liquid_min = -1.545495919e-4;  // saturated liquid at 273.15 K
inline constexpr double s_13_min = 3.397782955;          // 100 MPa and 623.15 K
inline constexpr double s_liquid_13 = 3.778281340;       // saturated liquid at 623.15 K
inline constexpr double s_23_min = 5.048096828;          // lowest entropy of the B23 line
inline constexpr double s_vapour_13 = 5.210887825;       // saturated vapour at 623.15 K
inline constexpr double s_23_max = 5.260578707;          // highest entropy of the B23 line
inline constexpr double s_vapour_max = 9.155759395;      // saturated vapour at 273.15 K
inline constexpr double h_23_min = 2563.592004;          // saturated vapour at 623.15 K, kJ/kg
inline constexpr double h_23_max = 2812.942061;          // 100 MPa and 863.15 K, kJ/kg

// Saturated liquid, s_liquid_min to s_liquid_13 (beside region 1), and on to s_crit (beside 3a).
[[nodiscard]] double h_liquid_1(double s) noexcept;
[[nodiscard]] double h_liquid_3a(double s) noexcept;

// Saturated vapour, s_crit to 5.85 (beside 3b and 2c), and on to s_vapour_max (beside 2a and 2b).
[[nodiscard]] double h_vapour_2c3b(double s) noexcept;
[[nodiscard]] double h_vapour_2ab(double s) noexcept;

// Boundary of regions 1 and 3, the isotherm 623.15 K: s_13_min to s_liquid_13.
[[nodiscard]] double h_13(double s) noexcept;

// Temperature, K, of the boundary of regions 2 and 3: s_23_min to s_23_max, h_23_min to h_23_max.
[[nodiscard]] double t_23(double h, double s) noexcept;

}  // namespace vaprix::boundaries_hs
