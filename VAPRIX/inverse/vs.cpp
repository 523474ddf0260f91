// SPDX-License-Identifier: MIT
#include "inverse/vs.hpp"

#include "frame/error_code.hpp"
#include "inverse/isochore.hpp"

namespace vaprix::vs {

using Y = inverse::Entropy;

double region_reported(double v, double s) noexcept {
    return inverse::region_reported_on_isochore<Y>(v, s);
}

double p_b(double v, double s) noexcept { return inverse::state_on_isochore<Y>(v, s).p; }
double p_o(double v, double s) noexcept { return or_fail(p_b(v, s), ErrorCode::outside_range); }
double t_b(double v, double s) noexcept { return inverse::state_on_isochore<Y>(v, s).t; }
double t_d(double d, double s) noexcept { return inverse::t_of_density<Y>(d, s); }

}  // namespace vaprix::vs
