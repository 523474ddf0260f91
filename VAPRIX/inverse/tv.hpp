// SPDX-License-Identifier: MIT
//
// Region and pressure of (T, v), on which the functions of (T, density) rest.
// Given:    t  temperature, K, 273.15 to 2273.15;  v  specific volume, m3/kg.
// Source:   IAPWS R7-97(2012), section 2; Eqs. (7), (15), (28) and (32) for the volumes and the
//           pressure.
#pragma once

namespace vaprix::tv {

// Region: 1, 2, 3, 5, pt::saturation_line for wet steam, or pt::outside; a NaN is outside. A volume
// within a rounding of its reciprocal from that of a saturated phase or of a limit of pressure
// counts as that one.
[[nodiscard]] int region(double t, double v) noexcept;

// The same as the exports report it.
[[nodiscard]] double region_reported(double t, double v) noexcept;

// Pressure, MPa, of a state in the region that has been settled, not outside: of wet steam the
// saturation pressure, of regions 1, 2 and 5 the pressure that reproduces v to rounding.
[[nodiscard]] double pressure_in(int region, double t, double v) noexcept;

// Pressure, MPa.
// Failure:  -99999.0 outside the range; no code.
[[nodiscard]] double p_b(double t, double v) noexcept;

// The same as the function of (T, 1/v) reports it: code -10003 for a negative v, else -10057.
[[nodiscard]] double p_o(double t, double v) noexcept;

}  // namespace vaprix::tv
