// SPDX-License-Identifier: MIT
#include "transport/viscosity.hpp"

namespace vaprix::transport {

template double viscosity(double, double) noexcept;
template double viscosity_t(double, double) noexcept;
template double viscosity_v(double, double) noexcept;

}  // namespace vaprix::transport
