// SPDX-License-Identifier: MIT
#include "inverse/of_pv.hpp"

#include <algorithm>

#include "frame/bracketed_newton.hpp"
#include "frame/elementary.hpp"
#include "inverse/beside_line.hpp"
#include "regions/b23.hpp"

namespace vaprix::inverse {
namespace {

// Relative step in T after which the error, of second order in it, is one of rounding.
constexpr double step = 1e-8;

// Temperature, K, at which a Gibbs equation has the volume v, between two bounds.
template <class TangentOf>
double temperature(TangentOf v_tangent_t, double p, double v, double low, double high,
                   double start) noexcept {
    return bracketed_newton([=](double t) noexcept { return v_tangent_t(p, t); }, v, low, high,
                            std::clamp(start, low, high), step)
        .x;
}

// Temperature, K, at which the liquid of pressure p is densest.
double t_densest(double p) noexcept {
    return 277.1333942 - (0.2007841919 + 0.0005037450669 * p) * p;
}
// The volume there is larger than the least one of the equation by less than this, relative.
constexpr double densest_tolerance = 4e-13;

// Liquid between the temperature of its least volume and another end.
double temperature1(double p, double v, double t_least, double v_least, double t_end,
                    double v_end) noexcept {
    if (!(v > v_least && v_end > v_least)) return t_least;
    // v rises with the square of the distance, nearly
    const double start = t_least + (t_end - t_least) * sqrt((v - v_least) / (v_end - v_least));
    return temperature(region1::v_tangent_t, p, v, std::min(t_least, t_end),
                       std::max(t_least, t_end), start);
}

// Liquid up to t_hot, where its volume is v_hot.
State liquid(double p, double v, double t_hot, double v_hot) noexcept {
    const double densest = t_densest(p);
    const double t_least = std::clamp(densest, T_min, t_hot);
    const double v_least = region1::v(p, t_least);
    const bool turns = t_least == densest;
    if (!(turns ? v >= v_least * (1 - densest_tolerance) : reaches(v, v_least))) return outside;
    return gibbs_state(Region::one, p, temperature1(p, v, t_least, v_least, t_hot, v_hot));
}

// Temperature, K, of the ideal gas: real vapour below 1073.15 K is hotter.
double t_ideal(double p, double v) noexcept { return 1000 / R * p * v; }

State vapour5(double p, double v) noexcept {
    constexpr double lowest = T_25 - 1;  // the equations of regions 2 and 5 leave a gap of 0.2 K
    if (p > p_max_5 || !stays_below(v, region5::v(p, T_max))) return outside;
    const double t = temperature(region5::v_tangent_t, p, v, lowest, T_max, t_ideal(p, v));
    return gibbs_state(Region::five, p, t);
}

// Vapour from the temperature t_cold.
State vapour(double p, double v, double t_cold, double start) noexcept {
    if (t_ideal(p, v) > T_25) return vapour5(p, v);
    const double t = temperature(region2::v_tangent_t, p, v, t_cold, T_25, start);
    if (t < T_25 || stays_below(v, region2::v(p, T_25))) return gibbs_state(Region::two, p, t);
    return vapour5(p, v);
}

// Up to the saturation pressure at 623.15 K.
State below_psat13(double p, double v) noexcept {
    const double ideal = t_ideal(p, v);
    if (ideal > T_13) return vapour(p, v, T_13, ideal);
    const double ts = tsat_exact(p);
    const double v1 = region1::v(p, ts);
    if (stays_below(v, v1)) return liquid(p, v, ts, v1);
    const double v2 = region2::v(p, ts);
    if (!reaches(v, v2)) return {.region = Region::wet, .p = p, .t = ts};
    return vapour(p, v, ts, ts + t_ideal(p, v - v2));
}

// Region 3: its isochores are nearly straight. Below the critical pressure the state is kept on its
// side of the saturation line; v is the given one all the same.
State dense(double p, double v) noexcept {
    constexpr double lowest = 600;  // beyond region 3: K
    constexpr double highest = 900;
    constexpr double middle = 680;
    const auto along_isochore = [=](double start) noexcept {
        return bracketed_newton([v](double t) noexcept { return region3::p_tangent_t(1 / v, t); },
                                p, lowest, highest, start, step)
            .x;
    };
    if (p >= p_crit) return dense_state(p, along_isochore(middle), 1 / v);
    const double ts = tsat_exact(p);
    const State wet = wet_state<Asked{.wet = true}>(p, ts);
    const bool is_liquid = stays_below(v, single<property::v>(liquid_end(wet)));
    if (!is_liquid && !reaches(v, single<property::v>(vapour_end(wet)))) return wet;
    const double t = along_isochore(ts);
    const double t_kept = side_is_free(p) ? t
                          : is_liquid     ? std::min(t, ts - apart)
                                          : std::max(t, ts + apart);
    return dense_state(p, t_kept, 1 / v);
}

}  // namespace

State solve_pv(double p, double v) noexcept {
    if (!(p >= p_min && p <= p_max && v > 0 && v < largest)) return outside;
    if (p <= psat_13) return below_psat13(p, v);
    const double v1 = region1::v(p, T_13);
    if (stays_below(v, v1)) return liquid(p, v, T_13, v1);
    // the line between regions 2 and 3 belongs to region 2; Eq. (6) misses Eq. (5) by up to 2e-10 K
    constexpr double b23_mismatch = 1e-8;     // K
    constexpr double b23_mismatch_v = 5e-12;  // relative, of the volume
    const double t_b = t_b23(p);
    const double v2 = region2::v(p, t_b);
    if (v < v2 * (1 - b23_mismatch_v)) return dense(p, v);
    return vapour(p, v, t_b - b23_mismatch, t_b + t_ideal(p, v - v2));
}

State solve_cold_pv(double p, double v) noexcept {
    constexpr double warmest = 277.13;  // K, so that there is none below 0.017 MPa
    if (!(p >= p_min && p <= p_max)) return outside;
    const double densest = t_densest(p);
    if (!(densest >= T_min && densest <= warmest)) return outside;
    const double v_least = region1::v(p, densest);
    const double v_end = region1::v(p, T_min);
    const double v_highest = std::max(v_end, v_least * (1 + densest_tolerance));
    if (!(v >= v_least * (1 - densest_tolerance) && stays_below(v, v_highest))) return outside;
    return gibbs_state(Region::one, p, temperature1(p, v, densest, v_least, T_min, v_end));
}

}  // namespace vaprix::inverse
