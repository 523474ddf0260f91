// SPDX-License-Identifier: MIT
#include "inverse/hs_exact.hpp"

#include <algorithm>
#include <cmath>

#include "frame/newton.hpp"
#include "inverse/b_by_pressure.hpp"
#include "inverse/region_hs.hpp"
#include "regions/saturated_energies.hpp"

namespace vaprix::hs {
namespace {

// What rounding of h and s makes of pressure, temperature and quality. A state this far outside a
// limit is put on it.
constexpr double t_rounding = 1e-10;         // K
constexpr double p_rounding = 1e-9;          // MPa, dense fluid
constexpr double p_rounding_line = 1e-12;    // MPa, liquid beside the saturation line
constexpr double p_rounding_vapour = 1e-12;  // relative
constexpr double x_rounding = 1e-12;

// Above it the saturated densities are estimates (saturated_densities.hpp), which are not in
// equilibrium: the region-3 equation answers for both phases. 40 microkelvin.
constexpr double t_near_critical = T_crit - 4e-5;

// A solution of h and s in the equation of one region, and the region it belongs to by p and T:
// state.region itself, a neighbour, or outside.
struct Attempt {
    State state;
    int belongs_to;
    bool converged;
};

constexpr Attempt no_solution{{pt::outside, 0, 0, 0}, pt::outside, false};

// Puts x on a limit that it exceeds by no more than the rounding; whether it is within them then.
bool settle(double& x, double low, double high, double rounding) noexcept {
    if (!(x >= low - rounding && x <= high + rounding)) return false;
    x = std::clamp(x, low, high);
    return true;
}

// Pressure or density after a step; by_ratio for a pressure on whose logarithm h and s depend: the
// exponential of the relative step to third order.
double by_step(double x, double step) noexcept { return x + step; }
double by_ratio(double x, double step) noexcept {
    const double relative = step / x;
    return x * ((2 + relative) / (2 - relative));
}

// Newton's method from a start nearby. Given up, not converged, as soon as it leaves the box, where
// the equation has no meaning. The residuals of the point before, kJ/kg, tell when the error, of
// second order in them, is one of rounding.
template <auto advance = by_step, class TangentsOf>
bool newton_hs(TangentsOf tangents, double h, double s, const Box<double>& box, double settled,
               double& x, double& t) noexcept {
    constexpr int rounds = 15;
    const auto in_box = [&]() noexcept {
        return x > box.low.x && x < box.high.x && t > box.low.y && t < box.high.y;
    };
    for (int round = 0; round < rounds && in_box(); ++round) {
        const TangentPair f = tangents(x, t);
        const double h_left = h - f.a;
        const double s_left = s - f.b;
        const Point step = newton_step(f, h_left, s_left);
        x = advance(x, step.x);
        t += step.y;
        if (std::fabs(h_left) + t * std::fabs(s_left) < settled) return in_box();
    }
    return false;
}

constexpr double settled_12 = 1e-5;
constexpr double settled_3 = 1e-6;
constexpr double settled_5 = 1e-3;

Attempt attempt1(double h, double s, double p, double t) noexcept {
    constexpr Box<double> box{{-10, 250}, {200, 700}};
    if (!newton_hs(region1::hs_tangents, h, s, box, settled_12, p, t)) return no_solution;
    const auto result = [&](int region) noexcept { return Attempt{{1, p, t, 0}, region, true}; };
    if (t > T_13 + t_rounding) return result(3);
    const double ps = psat(t);
    if (p < ps - p_rounding_line) return result(two_phase);
    if (!settle(t, T_min, T_13, t_rounding)) return result(pt::outside);
    return result(settle(p, std::max(ps, p_min), p_max, p_rounding) ? 1 : pt::outside);
}

constexpr double p_near_max_5 = 1.01 * p_max_5;  // from here no state of region 5 is mistaken for 2

Attempt attempt2(double h, double s, double p, double t) noexcept {
    constexpr Box<double> box{{1e-5, 250}, {200, 1400}};
    if (!newton_hs(region2::hs_tangents, h, s, box, settled_12, p, t)) return no_solution;
    const auto result = [&](int region) noexcept { return Attempt{{2, p, t, 0}, region, true}; };
    if (t > T_25 + t_rounding) return result(p < p_near_max_5 ? 5 : pt::outside);
    if (t < T_min - t_rounding) return result(two_phase);
    t = std::clamp(t, T_min, T_25);
    const double high = t <= T_13 ? psat(t) : t <= T_23_max ? std::min(p_b23(t), p_max) : p_max;
    const double rounding = p * (t <= T_13 ? p_rounding_vapour : p_rounding / p_max);
    // at 273.15 K itself the saturation pressure is 2e-11 MPa below the least pressure
    if (settle(p, std::min(p_min, high), high, rounding)) return result(2);
    if (p < high || t > T_23_max) return result(pt::outside);
    return result(t <= T_13 ? two_phase : 3);
}

// Whether a state of the region-3 equation is inside the dome. Far from the saturation line its
// pressure tells the phase, close to it the coexisting densities do.
bool in_dome(double d, double p, double t) noexcept {
    constexpr double close = 1e-3;  // relative
    if (t >= t_near_critical) return false;
    const double ps = psat(t);
    const bool liquid = d > d_crit;
    if (std::fabs(p - ps) > close * ps) return liquid == (p < ps);
    const SaturatedDensities saturated = dsat3(t, ps);
    return d < saturated.liquid && d > saturated.vapour;
}

Attempt attempt3(double h, double s, double d, double t) noexcept {
    constexpr Box<double> box{{50, 600}, {800, 900}};
    if (!newton_hs(region3::hs_tangents, h, s, box, settled_3, d, t)) return no_solution;
    double p = region3::p(d, t);
    const auto result = [&](int region) noexcept { return Attempt{{3, p, t, d}, region, true}; };
    if (t < T_13 - t_rounding) return result(d > d_crit ? 1 : 2);
    t = std::max(t, T_13);
    if (p > p_max + p_rounding) return result(pt::outside);
    p = std::min(p, p_max);
    if (p < p_b23(t) - p_rounding) return result(2);
    return result(in_dome(d, p, t) ? two_phase : 3);
}

Attempt attempt5(double h, double s, double p, double t) noexcept {
    constexpr Box<double> box{{1e-5, 900}, {200, 3000}};
    if (!newton_hs<by_ratio>(region5::hs_tangents, h, s, box, settled_5, p, t)) return no_solution;
    const auto result = [&](int region) noexcept { return Attempt{{5, p, t, 0}, region, true}; };
    if (t < T_25 - t_rounding) return result(2);
    const bool inside =
        settle(t, T_25, T_max, t_rounding) && settle(p, p_min, p_max_5, p * p_rounding_vapour);
    return result(inside ? 5 : pt::outside);
}

Attempt attempt_wet(double h, double s) noexcept {
    const WetSolution wet = solve_wet(h, s);
    const auto result = [&wet](int region) noexcept {
        return Attempt{{two_phase, psat(wet.t), wet.t, 0}, region, wet.outcome == Wet::found};
    };
    switch (wet.outcome) {
        case Wet::too_cold: return result(pt::outside);
        case Wet::near_critical: return result(3);
        case Wet::none: return result(wet.t <= T_13 ? 1 : 3);
        case Wet::found: break;
    }
    constexpr double close = 0.01;  // to an end, which the last step may have carried it across
    double x = wet.quality;
    if (x < close || x > 1 - close) x = pt::SaturatedState(psat(wet.t), wet.t).quality<pt::s>(s);
    if (x < -x_rounding) return result(wet.t <= T_13 ? 1 : 3);
    if (x > 1 + x_rounding) return result(wet.t <= T_13 ? 2 : 3);
    return result(two_phase);
}

// Start for region 5, where h hardly depends on p and s + R ln p neither.
Point<double> start5(double h, double s) noexcept {
    const auto p_of = [s](double p, double t) noexcept {
        return std::exp((region5::s_plus_r_ln_p_tangent_t(p, t).y - s) / R);
    };
    const double p = std::min(p_of(1, inverse::Enthalpy::t5_start(0, h)), p_max_5);
    const double t = inverse::Enthalpy::t5_start(p, h);
    return {std::clamp(p_of(p, t), p_min, p_max_5), t};
}

// The solution in a region's equation, from the backward equations.
Attempt attempt(int region, double h, double s) noexcept {
    using inverse::Enthalpy;
    switch (region) {
        case 1: {
            const double p = region1::p_hs(h, s);
            return attempt1(h, s, p, region1::t_ph(p, h));
        }
        case 2: {
            const double p = region2::p_hs(h, s);
            return attempt2(h, s, p, region2::t_ph(p, h));
        }
        case 3: {
            const double p = region3::p_hs(h, s);
            return attempt3(h, s, 1 / region3::v_ps(p, s), region3::t_ph(p, h));
        }
        case 5: {
            const Point start = start5(h, s);
            return attempt5(h, s, start.x, start.y);
        }
        case two_phase: return attempt_wet(h, s);
        default: return no_solution;
    }
}

// The same from the solution in a neighbour's equation.
Attempt attempt_from(const State& near, int region, double h, double s) noexcept {
    if (near.region == two_phase) return attempt(region, h, s);
    switch (region) {
        case 1: return attempt1(h, s, near.p, near.t);
        case 2: return attempt2(h, s, near.p, near.t);
        case 3: return attempt3(h, s, 1 / volume(near, h), near.t);
        case 5: return attempt5(h, s, near.p, near.t);
        default: return attempt_wet(h, s);
    }
}

}  // namespace

// With x = (s - s')/(s'' - s') and tau = (h'' - h')/(s'' - s'), which is T but for the small
// mismatch of the equations, the condition is
//     f = h - h' - (s - s') tau = 0,   f_t = -(s - s' + v' dps/dT) + (tau - T) ds'/dT,
// with the slope of the mismatch left out, wherefore the secant takes over from the second step.
// f falls with T and f_tt is about ds'/dT: the step is that to the root of the parabola, as f is
// close to one where there is little vapour.
//
// At 623.15 K the equations of the phases change: the search keeps to one side until it has seen
// that f has no root there. In the gap of some mK between the two it ends on the limit itself.
WetSolution solve_wet(double h, double s) noexcept {
    constexpr int rounds = 20;
    // Steps after which the error is one of rounding: K; K2, the secant's together with the way
    // that it was drawn over.
    constexpr double settled = 1e-6;
    constexpr double settled_secant = 1e-7;
    constexpr double secant_way = 1e-5;  // K, from here f itself gives the better slope
    constexpr double f_rounding = 1e-9;  // kJ/kg
    constexpr double s_t_mean = 0.01;    // kJ/(kg K2), where there is vapour enough not to matter

    const auto [start, s_t] = s >= boundaries_hs::s_vapour_13
                                  ? WetTemperature<double>{tsat_hs(h, s), s_t_mean}
                                  : wet_temperature_estimate(h, s);
    double t = std::clamp(start, T_min, t_near_critical);
    bool dense = t > T_13;
    bool both_sides = false;
    double t_before = t;
    double f_before = 0;
    for (int round = 0; round < rounds; ++round) {
        const double p = psat(t);
        const pt::SaturatedState at(p, t);
        const double s_liquid = at.liquid<pt::s>();
        const double h_liquid = at.liquid<pt::h>();
        const double s_vaporization = at.vapour<pt::s>() - s_liquid;
        const double tau = (at.vapour<pt::h>() - h_liquid) / s_vaporization;
        const double x = (s - s_liquid) / s_vaporization;
        const double f = h - h_liquid - (s - s_liquid) * tau;
        const double way = t - t_before;
        const bool secant = std::fabs(way) > secant_way;
        const double f_t =
            secant ? (f - f_before) / way + 0.5 * s_t * way
                   : s_liquid - s - 1000 * at.liquid<pt::v>() / tsat_p(p) + (tau - t) * s_t;
        t_before = t;
        f_before = f;
        const double square = f_t * f_t - 2 * f * s_t;
        const double step = -(f_t + std::sqrt(std::max(square, 0.0))) / s_t;

        const double low = dense ? T_13_dense : T_min;
        const double high = dense ? t_near_critical : T_13;
        const double next = std::clamp(t + step, low, high);
        if (next == t) {  // no farther on this side
            if (std::fabs(step) < settled && std::fabs(f) < f_rounding) return {t, x, Wet::found};
            if (square < 0) return {t, x, Wet::none};
            if (next == T_min) return {t, x, Wet::too_cold};
            if (next == t_near_critical) return {t, x, Wet::near_critical};
            if (both_sides) return {T_13, x, Wet::found};
            both_sides = true;
            dense = !dense;
            t = t_before = dense ? T_13_dense : T_13;
            continue;
        }
        const bool at_limit = t + step != next;
        t = next;
        const bool small =
            std::fabs(step) < settled || (secant && std::fabs(step * way) < settled_secant);
        if (small && !at_limit) {
            return {t, x, square >= 0 ? Wet::found : Wet::none};
        }
    }
    return {t, 0, Wet::none};
}

double volume(const State& state, double h) noexcept {
    switch (state.region) {
        case 1: return region1::v(state.p, state.t);
        case 2: return region2::v(state.p, state.t);
        case 3: return 1 / state.d;
        case 5: return region5::v(state.p, state.t);
        default: break;
    }
    const pt::SaturatedState saturated(state.p, state.t);
    return saturated.mixture<pt::v>(saturated.quality<pt::h>(h));
}

// The equation that the boundaries of the releases choose; where its solution turns out to lie in a
// neighbour, that one's. Where the equations of two regions leave a gap between them the first
// solution stays, up to some mK beyond its region, and reproduces h and s all the same.
State solve(double h, double s) noexcept {
    constexpr State nothing{pt::outside, 0, 0, 0};
    const int region = region_unlimited(h, s);
    if (region == pt::outside) return nothing;
    const Attempt first = attempt(region, h, s);
    if (first.belongs_to == region) return first.state;

    Attempt last = first;
    unsigned tried = 1u << region;
    const auto neighbour_has_it = [&](int next) noexcept {
        tried |= 1u << next;
        last = attempt_from(last.state, next, h, s);
        return last.belongs_to == next;
    };
    while (last.belongs_to != pt::outside && (tried & 1u << last.belongs_to) == 0) {
        if (neighbour_has_it(last.belongs_to)) return last.state;
    }
    if (last.belongs_to != pt::outside) {
        const State& gap = first.converged ? first.state : last.state;
        return gap.p <= (gap.t > T_25 ? p_max_5 : p_max) ? gap : nothing;
    }
    // In the corners of the range a state may have been lost to the mismatch of two equations.
    const Attempt lost = last;
    for (const int next : {1, 2, 3}) {
        last = lost;
        if (lost.converged && (tried & 1u << next) == 0 && neighbour_has_it(next)) {
            return last.state;
        }
    }
    return nothing;
}

}  // namespace vaprix::hs
