// SPDX-License-Identifier: MIT
#include "transport/surface_tension.hpp"

namespace vaprix::transport {

template double surface_tension(double) noexcept;

}  // namespace vaprix::transport
