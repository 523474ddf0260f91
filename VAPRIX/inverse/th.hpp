// SPDX-License-Identifier: MIT
//
// States of (T, h).
// Given:    t  temperature, K, 273.15 to 2273.15;  h  specific enthalpy, kJ/kg.
// Returned: the state that reproduces t and h through the basic equations, for both families: there
//           is no backward equation. lowest() is the one of lowest pressure, next() the next one:
//           liquid of rising enthalpy, which wet steam or hot liquid of falling enthalpy precedes.
// Failure:  pt::outside for a pair that neither (p, T) nor wet steam reaches.
// Source:   IAPWS R7-97(2012), Eqs. (7), (15), (28), (30) and (32), with the enthalpy solved for the
//           pressure, in region 3 for the density.
#pragma once

#include "inverse/isotherm_state.hpp"

namespace vaprix::th {

[[nodiscard]] inverse::IsothermState lowest(double t, double h) noexcept;
[[nodiscard]] inverse::IsothermState next(double t, double h) noexcept;

}  // namespace vaprix::th
