// SPDX-License-Identifier: MIT
//
// State of (v, h), and of (density, h) for its temperature.
// Given:    v  specific volume, m3/kg;  h  specific enthalpy, kJ/kg;  of a state in the range of
//           (p, T) or of wet steam.
// Failure:  -99999.0 outside the range, where the O-family stores -10055.
// Notes:    both families answer by the basic equations; v and h are reproduced to rounding.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32).
#pragma once

namespace vaprix::vh {

[[nodiscard]] double region_reported(double v, double h) noexcept;  // 4 for wet steam, 0 outside

[[nodiscard]] double p_b(double v, double h) noexcept;  // pressure, MPa
[[nodiscard]] double p_o(double v, double h) noexcept;
[[nodiscard]] double t_b(double v, double h) noexcept;  // temperature, K
[[nodiscard]] double t_d(double d, double h) noexcept;  // the same of the density, O-family

}  // namespace vaprix::vh
