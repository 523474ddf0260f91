// SPDX-License-Identifier: MIT
//
// Dynamic viscosity of water and steam.
// Given:    t  temperature, K;  d  density, kg/m3; nothing is checked.
// Source:   IAPWS R12-08, Eqs. (10) to (12), Tables 1 and 2, in the form for industrial use: the
//           factor mu2 of the critical enhancement is 1. It would exceed 1.02 only within 645.91 to
//           650.77 K and 245.8 to 405.3 kg/m3.
#pragma once

namespace vaprix::transport {

[[nodiscard]] double viscosity(double t, double d) noexcept;    // Pa s
[[nodiscard]] double viscosity_t(double t, double d) noexcept;  // (dmu/dT)_v, Pa s/K
[[nodiscard]] double viscosity_v(double t, double d) noexcept;  // (dmu/dv)_T, Pa s kg/m3

}  // namespace vaprix::transport
