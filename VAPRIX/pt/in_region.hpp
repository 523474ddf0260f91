// SPDX-License-Identifier: MIT
//
// States of one region's equation, unchecked: outside its region the equation is evaluated as it
// stands.
// Source: IAPWS R7-97(2012), Eqs. (7), (15), (28) and (32).
#pragma once

#include "regions/region3_density.hpp"
#include "state/state.hpp"

namespace vaprix {

// The catalogue's region1_of_pt is gibbs_of_pt<Region{1}>, and so on.
template <Region region, Asked>
[[nodiscard]] VAPRIX_INLINE State gibbs_of_pt(double p, double t) noexcept {
    return gibbs_state(region, p, t);
}

template <Asked>
[[nodiscard]] VAPRIX_INLINE State region3_of_vt(double v, double t) noexcept {
    return {.region = Region::three, .t = t, .d = 1 / v, .v = v};
}

// At the iterated density; refused where the iteration does not converge.
template <Asked>
[[nodiscard]] VAPRIX_INLINE State region3_of_pt(double p, double t) noexcept {
    const double d = region3_density::density_pt(p, t);
    return d > 0 ? dense_state(p, t, d) : refused(no_code);
}

}  // namespace vaprix
