// SPDX-License-Identifier: MIT
//
// O-family of (p, T): every state consistent with the basic equations, the density of region 3 by
// iteration.
// Given:    p  pressure, MPa;  t  temperature, K.
// Failure:  -99999.0 and code -10055 outside the range of validity.
// Notes:    on the saturation line the density fails as it does outside, while the other properties
//           are those of the saturated liquid and store the code 0; no other success touches the
//           code.
// Source:   IAPWS R7-97(2012), Tables 3, 12, 31 and 41.
#pragma once

namespace vaprix::pt {

// Density, kg/m3. Exactly 322 within 1e-9 K and 1e-9 MPa of the critical point; 0.0, without a
// code, should the iteration in region 3 not converge.
[[nodiscard]] double d_o(double p, double t) noexcept;

// The same where the region of (p, t) has been settled.
[[nodiscard]] double d_o_in(int region, double p, double t) noexcept;

[[nodiscard]] double v_o(double p, double t) noexcept;   // specific volume, m3/kg
[[nodiscard]] double h_o(double p, double t) noexcept;   // specific enthalpy, kJ/kg
[[nodiscard]] double s_o(double p, double t) noexcept;   // specific entropy, kJ/(kg K)
[[nodiscard]] double cp_o(double p, double t) noexcept;  // isobaric heat capacity, kJ/(kg K)
[[nodiscard]] double cv_o(double p, double t) noexcept;  // isochoric heat capacity, kJ/(kg K)
[[nodiscard]] double w_o(double p, double t) noexcept;   // speed of sound, m/s
[[nodiscard]] double u_o(double p, double t) noexcept;   // specific internal energy, kJ/kg
[[nodiscard]] double f_o(double p, double t) noexcept;   // specific Helmholtz energy, kJ/kg
[[nodiscard]] double g_o(double p, double t) noexcept;   // specific Gibbs energy, kJ/kg

}  // namespace vaprix::pt
