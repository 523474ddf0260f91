// SPDX-License-Identifier: MIT
//
// Surface tension of water against its vapour.
// Given:    t  temperature, K, 273.15 to 647.096, where it is exactly 0.
// Returned: N/m.
// Failure:  -99999.0 outside; no code.
// Source:   IAPWS R1-76(2014), which keeps the equation of 1994.
#pragma once

#include "frame/constants.hpp"
#include "frame/elementary.hpp"
#include "transport/tables/surface_tension.hpp"

namespace vaprix::transport {

template <class Number>
[[nodiscard]] Number surface_tension(Number t) noexcept;

extern template double surface_tension(double) noexcept;

// sigma = B tau^mu (1 + b tau) mN/m, tau = 1 - T/Tc
template <class Number>
Number surface_tension(Number t) noexcept {
    using namespace tables::surface_tension;
    if (!(t >= T_min && t <= Tc)) return failed;
    const Number tau = (Tc - t) / Tc;
    if (tau == 0) return 0;  // which has no real power here
    return B * pow(tau, mu) * (1 + b * tau) * 0.001;
}

}  // namespace vaprix::transport
