// SPDX-License-Identifier: MIT
//
// Surface tension of water against its vapour.
// Given:    t  temperature, K, 273.15 to 647.096, where it is exactly 0.
// Returned: N/m.
// Failure:  -99999.0 outside; no code.
// Source:   IAPWS R1-76(2014), which keeps the equation of 1994.
#pragma once

namespace vaprix::transport {

[[nodiscard]] double surface_tension(double t) noexcept;

}  // namespace vaprix::transport
