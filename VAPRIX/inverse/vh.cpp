// SPDX-License-Identifier: MIT
#include "inverse/vh.hpp"

#include "frame/error_code.hpp"
#include "inverse/isochore.hpp"

namespace vaprix::vh {

using Y = inverse::Enthalpy;

double region_reported(double v, double h) noexcept {
    return inverse::region_reported_on_isochore<Y>(v, h);
}

double p_b(double v, double h) noexcept { return inverse::state_on_isochore<Y>(v, h).p; }
double p_o(double v, double h) noexcept { return or_fail(p_b(v, h), ErrorCode::outside_range); }
double t_b(double v, double h) noexcept { return inverse::state_on_isochore<Y>(v, h).t; }
double t_d(double d, double h) noexcept { return inverse::t_of_density<Y>(d, h); }

}  // namespace vaprix::vh
