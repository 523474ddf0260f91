// SPDX-License-Identifier: MIT
#include "inverse/tv.hpp"

#include <algorithm>

#include "frame/bracketed_newton.hpp"
#include "frame/constants.hpp"
#include "frame/error_code.hpp"
#include "inverse/volume_limits.hpp"
#include "pt/region_pt.hpp"
#include "regions/b23.hpp"
#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"
#include "regions/region5.hpp"
#include "regions/saturated_densities.hpp"
#include "regions/saturation_line.hpp"

namespace vaprix::tv {
namespace {

using inverse::reaches;
using inverse::stays_below;

int region_up_to_t13(double t, double v) noexcept {
    const double ps = psat(t);
    if (stays_below(v, region1::v(ps, t))) {
        return reaches(v, region1::v(p_max, t)) ? 1 : pt::outside;
    }
    if (!reaches(v, region2::v(ps, t))) return pt::saturation_line;
    // at 273.15 K the line lies a rounding below p_min
    return stays_below(v, region2::v(std::min(p_min, ps), t)) ? 2 : pt::outside;
}

int region_up_to_t23(double t, double v) noexcept {
    const double v_b23 = region2::v(p_b23(t), t);
    const bool vapour = reaches(v, v_b23);
    // Up to 623.1544 K the saturated vapour of region 3 reaches beyond that volume, by up to 0.01 %.
    constexpr double overlap = 1e-4;
    constexpr double overlap_end = 623.155;
    const bool overlapped = t < overlap_end && v < v_b23 * (1 + overlap);
    if (vapour && !overlapped) return stays_below(v, region2::v(p_min, t)) ? 2 : pt::outside;
    if (t < T_crit) {
        const SaturatedDensities saturated = dsat3(t, psat(t));
        if (!stays_below(v, 1 / saturated.liquid) && !reaches(v, 1 / saturated.vapour)) {
            return pt::saturation_line;
        }
    }
    if (vapour) return 2;
    // Beyond 950 kg/m3 the equation falls below 100 MPa again.
    constexpr double smallest = 0.00131;  // m3/kg, a little less than at 100 MPa and 623.15 K
    constexpr double rounding = 1e-12;    // relative, of the region-3 pressure at 100 MPa
    return v > smallest && region3::p(1 / v, t) <= p_max * (1 + rounding) ? 3 : pt::outside;
}

// Relative steps in p after which the error, of second order in them, is one of rounding.
constexpr double step = 1e-8;

// The liquid's isotherm is convex: from the saturation pressure Newton's method does not pass the
// root.
double pressure1(double t, double v) noexcept {
    const double ps = psat(t);
    return bracketed_newton([t](double p) noexcept { return region1::v_tangent_p(p, t); }, v, ps,
                            p_max, ps, step)
        .x;
}

// p = (p v(p))/v: p v hardly depends on p, so that Newton's method is nearly exact from the ideal
// gas.
template <class TangentOf>
double pressure_vapour(TangentOf v_tangent_p, double t, double v, double highest) noexcept {
    const auto excess = [=](double p) noexcept -> Tangent<double> {
        const Tangent at = v_tangent_p(p, t);
        return {p - p * at.y / v, 1 - (at.y + p * at.y_x) / v};
    };
    const double ideal = R / 1000 * t / v;
    return bracketed_newton(excess, 0.0, p_min, highest, std::clamp(ideal, p_min, highest), step).x;
}

double pressure2(double t, double v) noexcept {
    double highest = p_max;
    if (t <= T_13) {
        highest = psat(t);
    } else if (t <= T_23_max) {
        highest = p_b23(t);
    }
    return pressure_vapour(region2::v_tangent_p, t, v, highest);
}

}  // namespace

int region(double t, double v) noexcept {
    if (!(t >= T_min && t <= T_max && v > 0)) return pt::outside;
    if (t <= T_13) return region_up_to_t13(t, v);
    if (t <= T_23_max) return region_up_to_t23(t, v);
    if (t <= T_25 + pt::tolerance) {
        const bool inside =
            reaches(v, region2::v(p_max, t)) && stays_below(v, region2::v(p_min, t));
        return inside ? 2 : pt::outside;
    }
    const bool inside = reaches(v, region5::v(p_max_5, t)) && stays_below(v, region5::v(p_min, t));
    return inside ? 5 : pt::outside;
}

double region_reported(double t, double v) noexcept { return pt::reported(region(t, v)); }

double pressure_in(int region, double t, double v) noexcept {
    switch (region) {
        case 1: return pressure1(t, v);
        case 2: return pressure2(t, v);
        case 3: return region3::p(1 / v, t);
        case 5: return pressure_vapour(region5::v_tangent_p, t, v, p_max_5);
        default: return psat(t);
    }
}

double p_b(double t, double v) noexcept {
    const int settled = region(t, v);
    return settled == pt::outside ? failed : pressure_in(settled, t, v);
}

double p_o(double t, double v) noexcept {
    if (v < 0) return fail(ErrorCode::negative_density);
    const double p = p_b(t, v);
    return p > 0 ? p : fail(ErrorCode::property_range);
}

}  // namespace vaprix::tv
