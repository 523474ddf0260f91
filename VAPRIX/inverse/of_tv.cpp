// SPDX-License-Identifier: MIT
#include "inverse/of_tv.hpp"

#include <algorithm>

#include "frame/bracketed_newton.hpp"
#include "frame/ostrowski.hpp"
#include "inverse/tables/volume_start.hpp"
#include "inverse/volume_reduced.hpp"
#include "pt/region_pt.hpp"
#include "regions/b23.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {
namespace {

constexpr State nowhere = refused(ErrorCode::property_range);

// What Newton's step may leave, relative, for Ostrowski's second one to leave a rounding.
constexpr double correctable = 3e-8;

// Pressure of the liquid from its fit by density and temperature; 0 where that is far below 0.
double p_liquid(double t, double v) noexcept {
    static constexpr auto start = polynomial(tables::p1_start_t);
    constexpr double p_hardly = -0.2;  // MPa, of saturated liquid by the fit
    const double near = evaluate<start>(reduced::d1(1 / v), reduced::t1(t));
    if (!(near > p_hardly)) return 0;
    const auto [p, converged] =
        ostrowski([t](double x) noexcept { return region1::v_tangent_p(x, t); },
                  [t](double x) noexcept { return region1::v(x, t); }, v, near, correctable * v);
    return converged ? p : 0;
}

// p = (p v(p))/v: p v hardly depends on p.
template <class Equation>
Tangent<double> excess(double p, double t, double v) noexcept {
    const Tangent<double> at = Equation::v_tangent_p(p, t);
    return {p - p * at.y / v, 1 - (at.y + p * at.y_x) / v};
}

// Of vapour up to p_highest from the fit of its compressibility factor; 0 where that is beyond.
double p_vapour2(double t, double v, double p_highest) noexcept {
    static constexpr auto start = polynomial(tables::z2_start_t);
    constexpr double beyond = 1.001;
    const double d = 1 / v;
    const double z = 1 + evaluate<start>(reduced::d2(d), reduced::t2(t));
    const double near = R / 1000 * t * d * z;
    if (!(near < beyond * p_highest)) return 0;
    const auto [p, converged] =
        ostrowski([=](double x) noexcept { return excess<region2>(x, t, v); },
                  [=](double x) noexcept { return x - x * region2::v(x, t) / v; }, 0.0, near,
                  correctable * near);
    return converged ? p : 0;
}

// From the ideal gas, from where Newton's method is nearly exact.
double p_vapour5(double t, double v) noexcept {
    constexpr double step = 1e-8;  // relative, after which the error, of second order, is rounding
    const double ideal = R / 1000 * t / v;
    return bracketed_newton([=](double p) noexcept { return excess<region5>(p, t, v); }, 0.0, p_min,
                            p_max_5, std::clamp(ideal, p_min, p_max_5), step)
        .x;
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
    const double p = std::min(std::max(p_vapour2(t, v, p_highest), p_min), p_highest);
    return gibbs_state(Region::two, answered(p, 0, asked), t);
}

// The same away from the limits of pressure, beside which roundings of volumes decide; 0 elsewhere.
double p_liquid_inside(double t, double v) noexcept {
    constexpr double apart = 1e-6;        // MPa
    constexpr double largest = 1 / 574.;  // m3/kg
    if (!(v < largest)) return 0;
    const double p = p_liquid(t, v);
    return p < p_max - apart && p > apart && (p > psat_13 || p > psat(t) + apart) ? p : 0;
}
// Vapour of p_highest has at least the compressibility factor z_least.
double p_vapour2_inside(double t, double v, double p_highest, double z_least) noexcept {
    constexpr double apart = 1e-9;  // relative
    if (!(R / 1000 * t * z_least < p_highest * v)) return 0;
    const double p = p_vapour2(t, v, p_highest);
    return p > p_min * (1 + apart) && p < p_highest * (1 - apart) ? p : 0;
}

// Less than the compressibility factor of saturated vapour up to 623.15 K, by at most 0.018, and
// than that of vapour of the B23 line or, above, of 100 MPa.
double z_least_13(double t) noexcept {
    const double t2 = t * t * (1 / (T_13 * T_13));
    return 0.99 - 0.494 * (t2 * t2 * t2);
}
constexpr double z_least_23 = 0.48;

State up_to_t13(double t, double v, const Asked& asked) noexcept {
    if (forms_p(asked)) {
        const double p = p_liquid_inside(t, v);
        if (p > 0) return gibbs_state(Region::one, p, t);
    }
    const double ps = psat(t);
    if (forms_p(asked)) {
        const double p = p_vapour2_inside(t, v, ps, z_least_13(t));
        if (p > 0) return gibbs_state(Region::two, p, t);
    }
    const double v_liquid = region1::v(ps, t);
    if (stays_below(v, v_liquid)) {
        // 100 MPa compresses the liquid by 3.83 % at least, at 323 K
        if (v < 0.965 * v_liquid && !reaches(v, region1::v(p_max, t))) return nowhere;
        if (!forms_p(asked)) return gibbs_state(Region::one, 0, t);
        return gibbs_state(Region::one,
                           answered(std::clamp(p_liquid(t, v), ps, p_max), p_min, asked), t);
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
    constexpr double overlap_end = 623.155;
    if (forms_p(asked) && t > overlap_end) {
        const double p = p_vapour2_inside(t, v, p_b, z_least_23);
        if (p > 0) return gibbs_state(Region::two, p, t);
    }
    const bool surely_dense = R / 1000 * t * z_least_23 > p_b * v;
    const double v_b = surely_dense ? v : region2::v(p_b, t);
    const bool vapour = !surely_dense && reaches(v, v_b);
    // Up to 623.1544 K the saturated vapour of region 3 reaches beyond that volume, by up to 0.01 %.
    constexpr double overlap = 1e-4;
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
    constexpr double lowest = 0.00131;  // m3/kg, a little less than at 100 MPa and 623.15 K
    constexpr double rounding = 1e-12;  // relative, of the region-3 pressure at 100 MPa
    if (!(v > lowest)) return nowhere;
    const double d = 1 / v;
    const double p = region3::p(d, t);
    if (!(p <= p_max * (1 + rounding))) return nowhere;
    return {.region = Region::three, .p = answered(p, 0, asked), .t = t, .d = d, .v = v};
}

}  // namespace

State of_tv(double t, double v, const Asked& asked) noexcept {
    if (v < 0) return refused(ErrorCode::negative_density);
    if (!(t >= T_min && t <= T_max && v > smallest && v < largest)) return nowhere;
    if (t <= T_13) return up_to_t13(t, v, asked);
    if (t <= T_23_max) return up_to_t23(t, v, asked);
    if (t <= T_25 + limit_tolerance) {
        if (forms_p(asked)) {
            const double p = p_vapour2_inside(t, v, p_max, z_least_23);
            if (p > 0) return gibbs_state(Region::two, p, t);
        }
        return reaches(v, region2::v(p_max, t)) ? vapour2(t, v, p_min, p_max, asked) : nowhere;
    }
    if (!reaches(v, region5::v(p_max_5, t)) || !stays_below(v, region5::v(p_min, t))) {
        return nowhere;
    }
    const double p = forms_p(asked) ? p_vapour5(t, v) : 0;
    return gibbs_state(Region::five, p, t);
}

}  // namespace vaprix::inverse
