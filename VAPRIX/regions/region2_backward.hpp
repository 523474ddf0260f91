// SPDX-License-Identifier: MIT
//
// Region 2, vapour: backward equations for the temperature and the pressure.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (20) and (22) to (27), Tables 19 to 22 and 25 to 27;
//           IAPWS SR2-01(2014), Eqs. (2) to (5), Tables 5 to 8.
#pragma once

namespace vaprix::region2 {

// Divides subregions 2b, which owns it, and 2c of (p, s) and (h, s), kJ/(kg K).
inline constexpr double s_2bc = 5.85;

[[nodiscard]] double t_ph(double p, double h) noexcept;  // temperature, K
[[nodiscard]] double t_ps(double p, double s) noexcept;  // temperature, K
[[nodiscard]] double p_hs(double h, double s) noexcept;  // pressure, MPa

// Boundary of subregions 2b and 2c: pressure, MPa, of h. A state on the line belongs to 2b.
[[nodiscard]] double p_b2bc(double h) noexcept;

// Boundary of subregions 2a and 2b of (h, s), near 4 MPa: enthalpy, kJ/kg, of s. A state on the
// line belongs to 2a.
[[nodiscard]] double h_2ab(double s) noexcept;

}  // namespace vaprix::region2
