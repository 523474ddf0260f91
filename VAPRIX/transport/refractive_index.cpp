// SPDX-License-Identifier: MIT
#include "transport/refractive_index.hpp"

namespace vaprix::transport {

template double refractive_index(double, double, double) noexcept;

}  // namespace vaprix::transport
