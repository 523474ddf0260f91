// SPDX-License-Identifier: MIT
//
// Properties of (h, s).
// Given:    h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K). A state that (p, T) does
//           not reach and that is not wet steam is outside.
// Failure:  -99999.0 outside the range, the O-family with the code -10055; region_reported: 0.
// Notes:    the B-family answers by the backward equations: p(h, s), then T(p, h), and in region 3
//           v(p, s); wet steam by Tsat(h, s), and below its range, as region 5, by the solution of
//           the basic equations. The O-family answers by the state that reproduces h and s through
//           the basic equations.
// Source:   IAPWS SR2-01(2014), IAPWS SR4-04(2014); IAPWS R7-97(2012) for T(p, h) and the O-family;
//           IAPWS SR3-03(2014) for T(p, h) and v(p, s) of region 3.
#pragma once

namespace vaprix::hs {

[[nodiscard]] double region_reported(double h, double s) noexcept;  // 4 for wet steam

[[nodiscard]] double p_b(double h, double s) noexcept;  // pressure, MPa
[[nodiscard]] double t_b(double h, double s) noexcept;  // temperature, K
[[nodiscard]] double d_b(double h, double s) noexcept;  // density, kg/m3

[[nodiscard]] double p_o(double h, double s) noexcept;
[[nodiscard]] double t_o(double h, double s) noexcept;
[[nodiscard]] double d_o(double h, double s) noexcept;
[[nodiscard]] double v_o(double h, double s) noexcept;  // specific volume, m3/kg

}  // namespace vaprix::hs
