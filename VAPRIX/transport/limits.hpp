// SPDX-License-Identifier: MIT
//
// The ranges in which the correlations are answered, where they end before that of the state.
#pragma once

#include "frame/constants.hpp"
#include "frame/error_code.hpp"
#include "transport/dielectric.hpp"

namespace vaprix::transport {

// Upper temperatures, K.
inline constexpr double viscosity_top = 1173.15;
inline constexpr double viscosity_zero_top = 1273.15;        // 0.0 from viscosity_top up to here
inline constexpr double conductivity_top = 1073.1500000001;  // 1073.15 passes after rounding too
inline constexpr double dielectric_top = 1200.0;

// Dielectric constant as the O-family answers it at a density that it has found: code -10057 above
// 1200 K, -10055 above 1073.15 K.
[[nodiscard]] inline double dielectric_checked(double t, double d) noexcept {
    if (t > dielectric_top) return fail(ErrorCode::property_range);
    if (t > T_25) return fail(ErrorCode::outside_range);
    return dielectric_constant(t, d);
}

// Whether the equation of the refractive index is valid; wavelength in micrometres. A NaN is not.
[[nodiscard]] inline bool refracts(double t, double wavelength) noexcept {
    return t <= 773.15 && wavelength >= 0.2 && wavelength <= 1.1;
}

}  // namespace vaprix::transport
