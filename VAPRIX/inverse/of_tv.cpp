// SPDX-License-Identifier: MIT
#include "inverse/of_tv.hpp"

#include <algorithm>

#include "frame/bracketed_newton.hpp"
#include "pt/region_pt.hpp"
#include "regions/b23.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {
namespace {

constexpr State nowhere = refused(ErrorCode::property_range);

// Relative steps in p after which the error, of second order in them, is one of rounding.
constexpr double step = 1e-8;

// The liquid's isotherm is convex: from its lowest pressure Newton's method does not pass the root.
double p_liquid(double t, double v, double p_lowest) noexcept {
    const auto tangent = [t](double p) noexcept { return region1::v_tangent_p(p, t); };
    return bracketed_newton(tangent, v, p_lowest, p_max, p_lowest, step).x;
}

// p = (p v(p))/v: p v hardly depends on p, so that Newton's method is nearly exact from the ideal
// gas.
template <class Equation>
double p_vapour(double t, double v, double p_highest) noexcept {
    const auto excess = [=](double p) noexcept -> Tangent<double> {
        const Tangent<double> at = Equation::v_tangent_p(p, t);
        return {p - p * at.y / v, 1 - (at.y + p * at.y_x) / v};
    };
    const double ideal = R / 1000 * t / v;
    const double start = std::clamp(ideal, p_min, p_highest);
    return bracketed_newton(excess, 0.0, p_min, p_highest, start, step).x;
}

bool forms_p(const Asked& asked) noexcept { return asked.p || asked.single; }

// A pressure that is the answer itself is that of the limit where it lies a rounding beyond: that of
// liquid at 273.15 K may be below p_min, that of the B23 line at 863.15 K above 100 MPa. Vapour on
// the line at 273.15 K keeps its pressure below p_min, at which (p, T) has it as liquid.
double answered(double p, double p_lowest, const Asked& asked) noexcept {
    return asked.single ? p : std::clamp(p, p_lowest, p_max);
}

State vapour2(double t, double v, double p_lowest, double p_highest, const Asked& asked) noexcept {
    // at p_min vapour is an ideal gas to 0.1 %
    const bool surely_inside = v < 0.99 * R / 1000 * t / p_min;
    if (!surely_inside && !stays_below(v, region2::v(p_lowest, t))) return nowhere;
    if (!forms_p(asked)) return gibbs_state(Region::two, 0, t);
    const double p = p_vapour<region2>(t, v, p_highest);
    return gibbs_state(Region::two, answered(p, 0, asked), t);
}

State up_to_t13(double t, double v, const Asked& asked) noexcept {
    const double ps = psat(t);
    const double v_liquid = region1::v(ps, t);
    if (stays_below(v, v_liquid)) {
        // 100 MPa compresses the liquid by 3.83 % at least, at 323 K
        if (v < 0.965 * v_liquid && !reaches(v, region1::v(p_max, t))) return nowhere;
        if (!forms_p(asked)) return gibbs_state(Region::one, 0, t);
        return gibbs_state(Region::one, answered(p_liquid(t, v, ps), p_min, asked), t);
    }
    const double v_vapour = region2::v(ps, t);
    if (!reaches(v, v_vapour)) {
        return {.region = Region::wet, .p = ps, .t = t, .x = quality(v, v_liquid, v_vapour)};
    }
    // at 273.15 K the line lies a rounding below p_min
    return vapour2(t, v, std::min(p_min, ps), ps, asked);
}

State up_to_t23(double t, double v, const Asked& asked) noexcept {
    const double p_b = p_b23(t);
    const double v_b = region2::v(p_b, t);
    const bool vapour = reaches(v, v_b);
    // Up to 623.1544 K the saturated vapour of region 3 reaches beyond that volume, by up to 0.01 %.
    constexpr double overlap = 1e-4;
    constexpr double overlap_end = 623.155;
    const bool overlapped = t < overlap_end && v < v_b * (1 + overlap);
    if (vapour && !overlapped) return vapour2(t, v, p_min, p_b, asked);
    if (t < T_crit) {
        const double ps = psat(t);
        const SaturatedEnds<double> ends = ends_at(ps, t);
        const double v_liquid = 1 / ends.liquid;
        const double v_vapour = 1 / ends.vapour;
        if (!stays_below(v, v_liquid) && !reaches(v, v_vapour)) {
            const double x = quality(v, v_liquid, v_vapour);
            return {.region = Region::wet, .p = ps, .t = t, .x = x, .ends = ends};
        }
    }
    if (vapour) return vapour2(t, v, p_min, p_b, asked);
    // Beyond 950 kg/m3 the equation falls below 100 MPa again.
    constexpr double smallest = 0.00131;  // m3/kg, a little less than at 100 MPa and 623.15 K
    constexpr double rounding = 1e-12;    // relative, of the region-3 pressure at 100 MPa
    if (!(v > smallest)) return nowhere;
    const double d = 1 / v;
    const double p = region3::p(d, t);
    if (!(p <= p_max * (1 + rounding))) return nowhere;
    return {.region = Region::three, .p = answered(p, 0, asked), .t = t, .d = d, .v = v};
}

}  // namespace

State of_tv(double t, double v, const Asked& asked) noexcept {
    if (v < 0) return refused(ErrorCode::negative_density);
    if (!(t >= T_min && t <= T_max && v > 0)) return nowhere;
    if (t <= T_13) return up_to_t13(t, v, asked);
    if (t <= T_23_max) return up_to_t23(t, v, asked);
    if (t <= T_25 + limit_tolerance) {
        return reaches(v, region2::v(p_max, t)) ? vapour2(t, v, p_min, p_max, asked) : nowhere;
    }
    if (!reaches(v, region5::v(p_max_5, t)) || !stays_below(v, region5::v(p_min, t))) {
        return nowhere;
    }
    const double p = forms_p(asked) ? p_vapour<region5>(t, v, p_max_5) : 0;
    return gibbs_state(Region::five, p, t);
}

}  // namespace vaprix::inverse
