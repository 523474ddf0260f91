// SPDX-License-Identifier: MIT
#include "regions/saturated_densities.hpp"

namespace vaprix {

template double d_liquid_estimate(double) noexcept;
template double d_vapour_estimate(double) noexcept;
template SaturatedDensities<double> dsat3(double, double) noexcept;

}  // namespace vaprix
