// SPDX-License-Identifier: MIT
//
// Temperatures, K, at which the correlations end before the state does.
#pragma once

#include "pt/region_pt.hpp"

namespace vaprix {

inline constexpr double viscosity_top = 1173.15;
inline constexpr double viscosity_zero_top = 1273.15;        // 0.0 from viscosity_top up to here
inline constexpr double conductivity_top = 1073.1500000001;  // 1073.15 passes after rounding too
inline constexpr double region2_top = T_25 + limit_tolerance;
inline constexpr double dielectric_top = 1200.0;
inline constexpr double refractive_top = 773.15;

}  // namespace vaprix
