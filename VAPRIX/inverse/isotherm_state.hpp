// SPDX-License-Identifier: MIT
//
// What the functions of (T, h) and (T, s) answer of the state that they have found.
#pragma once

#include "frame/error_code.hpp"
#include "pt/region_pt.hpp"
#include "pt/saturated_state.hpp"

namespace vaprix::inverse {

struct IsothermState {
    int region = pt::outside;  // 1, 2, 3, 5, pt::saturation_line for wet steam, or pt::outside
    double p = 0;              // MPa
    double d = 0;              // density of region 3, kg/m3
    double x = 0;              // quality of wet steam
};

// Region as the exports report it.
template <auto resolve>
[[nodiscard]] double region_ty(double t, double y) noexcept {
    return pt::reported(resolve(t, y).region);
}

// Pressure, MPa.
template <auto resolve, ErrorCode code>
[[nodiscard]] double p_ty(double t, double y) noexcept {
    const IsothermState found = resolve(t, y);
    return found.region == pt::outside ? fail<code>() : found.p;
}

// Specific volume, m3/kg.
template <auto resolve, ErrorCode code>
[[nodiscard]] double v_ty(double t, double y) noexcept {
    const IsothermState found = resolve(t, y);
    switch (found.region) {
        case 1: return region1::v(found.p, t);
        case 2: return region2::v(found.p, t);
        case 3: return 1 / found.d;
        case 5: return region5::v(found.p, t);
        case pt::saturation_line: return pt::SaturatedState(found.p, t).mixture<pt::v>(found.x);
        default: return fail<code>();
    }
}

// Density, kg/m3.
template <auto resolve, ErrorCode code>
[[nodiscard]] double d_ty(double t, double y) noexcept {
    const double v = v_ty<resolve, code>(t, y);
    return v > 0 ? 1 / v : failed;
}

}  // namespace vaprix::inverse
