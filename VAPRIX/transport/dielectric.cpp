// SPDX-License-Identifier: MIT
#include "transport/dielectric.hpp"

namespace vaprix::transport {

template double dielectric_constant(double, double) noexcept;

}  // namespace vaprix::transport
