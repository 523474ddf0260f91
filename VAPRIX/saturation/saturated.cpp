// SPDX-License-Identifier: MIT
#include "saturation/saturated.hpp"

#include "pt/saturated_state.hpp"
#include "saturation/line.hpp"

namespace vaprix::saturation {

double h1_b(double p) noexcept {
    const double t = t_b(p);
    return t > 0 ? pt::SaturatedState(p, t).liquid<pt::h>() : failed;
}

double h2_b(double p) noexcept {
    const double t = t_b(p);
    return t > 0 ? pt::SaturatedState(p, t).vapour<pt::h>() : failed;
}

}  // namespace vaprix::saturation
