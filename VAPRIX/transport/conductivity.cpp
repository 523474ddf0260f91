// SPDX-License-Identifier: MIT
#include "transport/conductivity.hpp"

namespace vaprix::transport {

template double conductivity(double, double) noexcept;

}  // namespace vaprix::transport
