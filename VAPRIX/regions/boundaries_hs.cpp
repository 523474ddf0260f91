// SPDX-License-Identifier: MIT
#include "regions/boundaries_hs.hpp"

namespace vaprix::boundaries_hs {

template double h_liquid_1(double) noexcept;
template double h_liquid_3a(double) noexcept;
template double h_vapour_2c3b(double) noexcept;
template double h_vapour_2ab(double) noexcept;
template double h_13(double) noexcept;
template double t_23(double, double) noexcept;

}  // namespace vaprix::boundaries_hs
