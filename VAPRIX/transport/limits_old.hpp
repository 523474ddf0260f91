// SPDX-License-Identifier: MIT
//
// The ranges in which the correlations are answered, where they end before that of the state.
#pragma once

#include "frame/constants.hpp"
#include "frame/error_code.hpp"
#include "transport/dielectric.hpp"
#include "transport/limits.hpp"

namespace vaprix::transport {

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
