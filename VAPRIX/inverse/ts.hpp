// SPDX-License-Identifier: MIT
//
// States of (T, s).
// Given:    t  temperature, K, 273.15 to 2273.15;  s  specific entropy, kJ/(kg K).
// Returned: the state that reproduces t and s through the basic equations, for both families: there
//           is no backward equation. lowest() is the one of lowest pressure, next() the next one:
//           cold liquid, of which s has a maximum along the isotherm below 277.13 K; of three
//           states the last is not offered.
// Failure:  pt::outside for a pair that neither (p, T) nor wet steam reaches.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32), with the entropy solved for the
//           pressure, in region 3 for the density.
#pragma once

#include "inverse/isotherm_state.hpp"

namespace vaprix::ts {

[[nodiscard]] inverse::IsothermState lowest(double t, double s) noexcept;
[[nodiscard]] inverse::IsothermState next(double t, double s) noexcept;

}  // namespace vaprix::ts
