// SPDX-License-Identifier: MIT
//
// Temperature of region 5 from (p, h) and (p, s). IAPWS-IF97 has no backward equation there: the
// basic equation is solved by search.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Returned: K, to a relative 1e-6; the last iterate of a search that does not settle.
// Failure:  0.0 when the search cannot start because both ends of its bracket give the same
//           residual.
// Source:   IAPWS R7-97(2012), Eq. (32).
#pragma once

namespace vaprix::region5 {

[[nodiscard]] double t_ph(double p, double h) noexcept;
[[nodiscard]] double t_ps(double p, double s) noexcept;

}  // namespace vaprix::region5
