// SPDX-License-Identifier: MIT
//
// The saturation line as the exports offer it: range checked, failures reported by family.
// Given:    t  temperature, K, 273.15 to 647.096;  p  pressure, MPa, up to 22.064. A NaN is out of
//           range.
// Failure:  -99999.0 out of range; the O-family stores -10019 (temperature) or -10020 (pressure) as
//           well. No success stores a code.
// Source:   IAPWS R7-97(2012), Eqs. (30) and (31).
#pragma once

namespace vaprix::saturation {

[[nodiscard]] double p_b(double t) noexcept;  // saturation pressure, MPa
[[nodiscard]] double p_o(double t) noexcept;  // the same, with code

// Saturation temperature, K, by the backward equation, and its derivative, K/MPa: from 0.0005 MPa,
// a little below the line on purpose (270.4175 K).
[[nodiscard]] double t_b(double p) noexcept;
[[nodiscard]] double t_p_b(double p) noexcept;

// Saturation temperature, K, that reproduces p through Eq. (30) to 1e-15 MPa. Any p above 0 is
// accepted; below the line the secant steps extrapolate, down to about 1e-8 MPa.
[[nodiscard]] double t_o(double p) noexcept;

}  // namespace vaprix::saturation
