// SPDX-License-Identifier: MIT
//
// Viscosity and its derivatives at a given volume, as subroutines that write their result.
// Given:    v  specific volume, m3/kg;  t  temperature, K.
#pragma once

#include "pt/region_pt.hpp"
#include "transport/limits.hpp"
#include "transport/viscosity.hpp"

namespace vaprix::transport {

// Viscosity, Pa s. Region 0 is determined from (p, t) and written back; eta is left as it is outside
// the range, on the saturation line and above 1173.15 K. Any other region is taken as it is, without
// a check.
inline void viscosity_given(double p, double v, double t, int& number, double& eta) noexcept {
    if (number == 0) {
        const Region region = region_pt(p, t);
        number = static_cast<int>(region);
        if (region == Region::none || region == Region::wet || t > viscosity_top) return;
    }
    eta = viscosity(t, 1 / v);
}

// (deta/dT)_v, Pa s/K
inline void viscosity_T_of_vt(double v, double t, double& out) noexcept {
    out = viscosity_t(t, 1 / v);
}

// (deta/dv)_T, Pa s kg/m3
inline void viscosity_v_of_vt(double v, double t, double& out) noexcept {
    out = viscosity_v(t, 1 / v);
}

}  // namespace vaprix::transport
