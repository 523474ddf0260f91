// SPDX-License-Identifier: MIT
//
// Region 1, compressed liquid: backward equations for the temperature.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Returned: K.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (11) and (13), Tables 6 and 8.
#pragma once

namespace vaprix::region1 {

[[nodiscard]] double t_ph(double p, double h) noexcept;
[[nodiscard]] double t_ps(double p, double s) noexcept;

}  // namespace vaprix::region1
