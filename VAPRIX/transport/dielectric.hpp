// SPDX-License-Identifier: MIT
//
// Static dielectric constant (relative permittivity) of water and steam.
// Given:    t  temperature, K, above 228;  d  density, kg/m3; nothing is checked.
// Source:   IAPWS R8-97, Eqs. (3) to (7), Tables 1 and 2.
#pragma once

namespace vaprix::transport {

[[nodiscard]] double dielectric_constant(double t, double d) noexcept;

}  // namespace vaprix::transport
