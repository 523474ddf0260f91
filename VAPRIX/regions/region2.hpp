// SPDX-License-Identifier: MIT
//
// Region 2, vapour: properties of (p, T).
// Given:    p  pressure, MPa;  t  temperature, K. Region 2 is 273.15 to 1073.15 K, up
//           to the saturation line, the B23 line and 100 MPa; nothing is checked, outside the
//           equation is evaluated as it stands.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (15) to (17) with Tables 10 to 14; it also serves
//           metastable vapour.
#pragma once

#include "frame/newton.hpp"
#include "regions/derivatives.hpp"

namespace vaprix::region2 {

[[nodiscard]] double v(double p, double t) noexcept;    // specific volume, m3/kg
[[nodiscard]] double h(double p, double t) noexcept;    // specific enthalpy, kJ/kg
[[nodiscard]] double u(double p, double t) noexcept;    // specific internal energy, kJ/kg
[[nodiscard]] double s(double p, double t) noexcept;    // specific entropy, kJ/(kg K)
[[nodiscard]] double g(double p, double t) noexcept;    // specific Gibbs energy, kJ/kg
[[nodiscard]] double cp(double p, double t) noexcept;   // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double cv(double p, double t) noexcept;   // isochoric heat capacity, kJ/(kg K)
[[nodiscard]] double w(double p, double t) noexcept;    // speed of sound, m/s
[[nodiscard]] double v_t(double p, double t) noexcept;  // (dv/dT)_p, m3/(kg K)

// s + R ln p, which spares an iteration along the isobar the logarithm.
[[nodiscard]] double s_plus_r_ln_p(double p, double t) noexcept;

// h and s + R ln p with their slopes in T along the isobar, cp and cp/T, from shared sums.
[[nodiscard]] Tangent h_tangent_t(double p, double t) noexcept;
[[nodiscard]] Tangent s_plus_r_ln_p_tangent_t(double p, double t) noexcept;

// h and s with their slopes by pressure and by temperature, from shared sums.
[[nodiscard]] TangentPair hs_tangents(double p, double t) noexcept;

// v with its slope in p along the isotherm, from shared powers.
[[nodiscard]] Tangent v_tangent_p(double p, double t) noexcept;

// v with its slope in T along the isobar.
[[nodiscard]] Tangent v_tangent_t(double p, double t) noexcept;

// h and s + R ln p with their slopes in p along the isotherm.
[[nodiscard]] Tangent h_tangent_p(double p, double t) noexcept;
[[nodiscard]] Tangent s_plus_r_ln_p_tangent_p(double p, double t) noexcept;

// A property by its formula on the derivatives.
template <Formula formula>
[[nodiscard]] double derived(double p, double t) noexcept;

// The two parts of gamma = g/(R T): that of the ideal gas at 1 MPa, gamma0 - ln pi, and the
// residual one, which is the logarithm of the fugacity coefficient.
[[nodiscard]] double ideal_part(double t) noexcept;
[[nodiscard]] double residual_part(double p, double t) noexcept;

}  // namespace vaprix::region2
