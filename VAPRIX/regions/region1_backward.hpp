// SPDX-License-Identifier: MIT
//
// Region 1, compressed liquid: backward equations for the temperature and the pressure.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (11) and (13), Tables 6 and 8; IAPWS SR2-01(2014), Eq. (1),
//           Table 2.
#pragma once

namespace vaprix::region1 {

[[nodiscard]] double t_ph(double p, double h) noexcept;  // temperature, K
[[nodiscard]] double t_ps(double p, double s) noexcept;  // temperature, K
[[nodiscard]] double p_hs(double h, double s) noexcept;  // pressure, MPa

}  // namespace vaprix::region1
