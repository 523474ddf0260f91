// SPDX-License-Identifier: MIT
//
// Properties of the saturated liquid (1) and vapour (2).
// Given:    p  pressure, MPa, 0.0005 to 22.064: a little below the line on purpose, as for tsat.
// Failure:  -99999.0 outside; no code.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15) and (28) at the saturation temperature of Eq. (31).
#pragma once

namespace vaprix::saturation {

[[nodiscard]] double h1_b(double p) noexcept;  // specific enthalpy of the liquid, kJ/kg
[[nodiscard]] double h2_b(double p) noexcept;  // specific enthalpy of the vapour, kJ/kg

}  // namespace vaprix::saturation
