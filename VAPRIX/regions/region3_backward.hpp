// SPDX-License-Identifier: MIT
//
// Backward equations of region 3 by (p, h), (p, s) and (h, s).
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Failure:  none.
// Source:   IAPWS SR3-03(2014), Eqs. (1) to (11), Tables 2 to 19; IAPWS SR4-04(2014), Eqs. (1) and
//           (2), Tables 3 and 4.
#pragma once

namespace vaprix::region3 {

// Entropy of the critical point, which divides subregions 3a and 3b of (p, s) and (h, s),
// kJ/(kg K).
inline constexpr double s_crit = 4.41202148223476;

[[nodiscard]] double h3ab(double p) noexcept;            // divides 3a and 3b of (p, h), kJ/kg
[[nodiscard]] double t_ph(double p, double h) noexcept;  // temperature, K
[[nodiscard]] double v_ph(double p, double h) noexcept;  // specific volume, m3/kg
[[nodiscard]] double t_ps(double p, double s) noexcept;  // temperature, K
[[nodiscard]] double v_ps(double p, double s) noexcept;  // specific volume, m3/kg
[[nodiscard]] double p_hs(double h, double s) noexcept;  // pressure, MPa
[[nodiscard]] double p3sat_h(double h) noexcept;         // saturation pressure of region 3, MPa
[[nodiscard]] double p3sat_s(double s) noexcept;         // saturation pressure of region 3, MPa

}  // namespace vaprix::region3
