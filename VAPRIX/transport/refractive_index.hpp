// SPDX-License-Identifier: MIT
//
// Refractive index of water and steam against vacuum.
// Given:    t  temperature, K;  d  density, kg/m3;  wavelength  in vacuum, micrometres; nothing is
//           checked.
// Source:   IAPWS R9-97, Eq. (1), Table 1.
#pragma once

namespace vaprix::transport {

[[nodiscard]] double refractive_index(double t, double d, double wavelength) noexcept;

}  // namespace vaprix::transport
