// SPDX-License-Identifier: MIT
//
// Properties of (p, h).
// Given:    p  pressure, MPa, 0.0006112127 to 100;  h  specific enthalpy, kJ/kg,
//           -0.04158782623017032 to 7376.98028. A state that (p, T) does not reach and
//           that is not wet steam is outside.
// Failure:  -99999.0 outside the range; cp and w also for wet steam, x also for a single phase. The
//           O-family stores -10055 outside. t_given: 0.0 for a region without an equation.
// Notes:    the B-family answers by the backward equations, the O-family by the state that
//           reproduces p and h through the basic equations. Wet steam mixes the saturated states at
//           Ts(p).
// Source:   IAPWS R7-97(2012), Eqs. (11) and (20) to (24); IAPWS SR3-03(2014) for region 3.
#pragma once

namespace vaprix::ph {

[[nodiscard]] double region_reported(double p, double h) noexcept;  // 4 for wet steam

// Temperature, K, in the region given; region 0 is determined and written back.
[[nodiscard]] double t_given(double p, double h, int& region) noexcept;

[[nodiscard]] double t_b(double p, double h) noexcept;   // temperature, K
[[nodiscard]] double v_b(double p, double h) noexcept;   // specific volume, m3/kg
[[nodiscard]] double d_b(double p, double h) noexcept;   // density, kg/m3
[[nodiscard]] double s_b(double p, double h) noexcept;   // specific entropy, kJ/(kg K)
[[nodiscard]] double cp_b(double p, double h) noexcept;  // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double w_b(double p, double h) noexcept;   // speed of sound, m/s
[[nodiscard]] double x_b(double p, double h) noexcept;   // vapour quality

[[nodiscard]] double t_o(double p, double h) noexcept;
[[nodiscard]] double v_o(double p, double h) noexcept;
[[nodiscard]] double d_o(double p, double h) noexcept;
[[nodiscard]] double s_o(double p, double h) noexcept;
// At the ends of the tie line, within 1e-6 of its length, the saturated phase has a value.
[[nodiscard]] double cp_o(double p, double h) noexcept;
[[nodiscard]] double w_o(double p, double h) noexcept;
[[nodiscard]] double x_o(double p, double h) noexcept;

}  // namespace vaprix::ph
