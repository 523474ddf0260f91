// SPDX-License-Identifier: MIT
//
// Properties of (p, s).
// Given:    p  pressure, MPa, 0.0006112127 to 100;  s  specific entropy, kJ/(kg K),
//           -0.008582287092621963 to 13.9049560904359. A state that (p, T) does not reach and
//           that is not wet steam is outside.
// Failure:  -99999.0 outside the range; cp and w also for wet steam, x also for a single phase. The
//           O-family stores -10055 outside. t_given: 0.0 for a region without an equation.
// Notes:    the B-family answers by the backward equations, the O-family by the state that
//           reproduces p and s through the basic equations. Wet steam mixes the saturated states at
//           Ts(p).
// Source:   IAPWS R7-97(2012), Eqs. (13) and (25) to (27); IAPWS SR3-03(2014) for region 3.
#pragma once

namespace vaprix::ps {

[[nodiscard]] double region_reported(double p, double s) noexcept;  // 4 for wet steam

// Temperature, K, in the region given; region 0 is determined and written back.
[[nodiscard]] double t_given(double p, double s, int& region) noexcept;

[[nodiscard]] double t_b(double p, double s) noexcept;   // temperature, K
[[nodiscard]] double v_b(double p, double s) noexcept;   // specific volume, m3/kg
[[nodiscard]] double d_b(double p, double s) noexcept;   // density, kg/m3
[[nodiscard]] double h_b(double p, double s) noexcept;   // specific enthalpy, kJ/kg
[[nodiscard]] double cp_b(double p, double s) noexcept;  // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double w_b(double p, double s) noexcept;   // speed of sound, m/s
[[nodiscard]] double x_b(double p, double s) noexcept;   // vapour quality

[[nodiscard]] double t_o(double p, double s) noexcept;
[[nodiscard]] double v_o(double p, double s) noexcept;
[[nodiscard]] double d_o(double p, double s) noexcept;
[[nodiscard]] double h_o(double p, double s) noexcept;
// At the ends of the tie line, within 1e-6 of its length, the saturated phase has a value.
[[nodiscard]] double cp_o(double p, double s) noexcept;
[[nodiscard]] double w_o(double p, double s) noexcept;
[[nodiscard]] double x_o(double p, double s) noexcept;

}  // namespace vaprix::ps
