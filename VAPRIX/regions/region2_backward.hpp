// SPDX-License-Identifier: MIT
//
// Region 2, vapour: backward equations for the temperature.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Returned: K.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (20) and (22) to (27), Tables 19 to 22 and 25 to 27.
#pragma once

namespace vaprix::region2 {

[[nodiscard]] double t_ph(double p, double h) noexcept;
[[nodiscard]] double t_ps(double p, double s) noexcept;

// Boundary of subregions 2b and 2c: pressure, MPa, of h. A state on the line belongs to 2b.
[[nodiscard]] double p_b2bc(double h) noexcept;

}  // namespace vaprix::region2
