// SPDX-License-Identifier: MIT
#include "transport/surface_tension.hpp"

#include <cmath>

#include "frame/constants.hpp"
#include "transport/tables/surface_tension.hpp"

namespace vaprix::transport {

// sigma = B tau^mu (1 + b tau) mN/m, tau = 1 - T/Tc
double surface_tension(double t) noexcept {
    using namespace tables::surface_tension;
    if (!(t >= T_min && t <= Tc)) return failed;
    const double tau = (Tc - t) / Tc;
    return B * std::pow(tau, mu) * (1 + b * tau) * 0.001;
}

}  // namespace vaprix::transport
