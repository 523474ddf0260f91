// SPDX-License-Identifier: MIT
#include "regions/saturation_line.hpp"

namespace vaprix {

template double psat(double) noexcept;
template Tangent<double> psat_tangent(double) noexcept;
template double tsat(double) noexcept;
template double tsat_p(double) noexcept;
template double tsat_hs(double, double) noexcept;
template double tsat_exact(double) noexcept;

}  // namespace vaprix
