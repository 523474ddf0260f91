// SPDX-License-Identifier: MIT
//
// Region 4, the saturation line: 273.15 K to the critical point. Nothing is checked here.
// Source: IAPWS R7-97(2012), Eqs. (29) to (31), Table 34; IAPWS SR4-04(2014), Eq. (9), Table 28.
#pragma once

#include "frame/newton.hpp"

namespace vaprix {

// Saturation pressure, MPa, of t, K: Eq. (30), exactly 22.064 MPa at 647.096 K.
[[nodiscard]] double psat(double t) noexcept;

// The same with its slope dps/dT, MPa/K, from shared sums.
[[nodiscard]] Tangent psat_tangent(double t) noexcept;

// Saturation temperature, K, of p, MPa: backward equation, Eq. (31).
[[nodiscard]] double tsat(double p) noexcept;

// Derivative dTs/dp of Eq. (31), K/MPa.
[[nodiscard]] double tsat_p(double p) noexcept;

// Temperature, K, of wet steam of h, kJ/kg, and s, kJ/(kg K), from 5.210887825 kJ/(kg K), the
// saturated vapour at 623.15 K, upwards: backward equation.
[[nodiscard]] double tsat_hs(double h, double s) noexcept;

// Saturation temperature, K, that gives p, MPa, back through Eq. (30) to rounding; exactly 647.096
// K at 22.064 MPa. Solved by the Pegasus method around Eq. (31); 0.0 if that does not settle.
[[nodiscard]] double tsat_exact(double p) noexcept;

}  // namespace vaprix
