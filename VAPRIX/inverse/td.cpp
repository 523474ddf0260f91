// SPDX-License-Identifier: MIT
#include "inverse/td.hpp"

#include "pt/derived.hpp"

namespace vaprix::td {

double p(double t, double d) noexcept {
    const int region = region_checked(t, d);
    return region == pt::outside ? failed : tv::pressure_in(region, t, 1 / d);
}

double z(double t, double d) noexcept {
    const double pressure = p(t, d);
    return pressure > 0 ? 1000 * pressure / (d * R * t) : failed;
}

double fugacity(double t, double d) noexcept {
    if (t < T_min) return fail(ErrorCode::fugacity_below_t_min);
    if (!(d > 0)) return fail(ErrorCode::fugacity_not_positive);
    if (t > T_max) return fail(ErrorCode::fugacity_above_t_max);
    return single_phase<pt::fugacity, ErrorCode::property_range>(t, d);
}

double x(double t, double d) noexcept {
    if (d < 0) return fail(ErrorCode::negative_density);
    if (region_of(t, d) != pt::saturation_line) return fail(ErrorCode::not_wet_steam);
    return pt::SaturatedState(psat(t), t).quality<pt::v>(1 / d);
}

}  // namespace vaprix::td
