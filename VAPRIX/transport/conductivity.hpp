// SPDX-License-Identifier: MIT
//
// Thermal conductivity of water and steam.
// Given:    t  temperature, K;  d  density, kg/m3, above 0; nothing is checked.
// Returned: W/(m K).
// Source:   IAPWS, Revised Release on the IAPS Formulation 1985 for the Thermal Conductivity of
//           Ordinary Water Substance (1998), in its form for industrial use, with its own reducing
//           quantities 647.26 K and 317.7 kg/m3.
#pragma once

namespace vaprix::transport {

[[nodiscard]] double conductivity(double t, double d) noexcept;

}  // namespace vaprix::transport
