// SPDX-License-Identifier: MIT
#include "inverse/of_hs.hpp"

#include <algorithm>
#include <type_traits>

#include "frame/elementary.hpp"
#include "frame/newton.hpp"
#include "inverse/liquid_h_near.hpp"
#include "regions/saturated_energies.hpp"

namespace vaprix::inverse {
namespace {

constexpr double s2_highest = 11.921;  // kJ/(kg K), of the patches; s2(p, T) <= 11.92106

// What rounding of h and s makes of pressure and quality. A state this far outside a limit is put on
// it.
constexpr double p_rounding = 1e-9;          // MPa, dense fluid
constexpr double p_rounding_line = 1e-12;    // MPa, liquid beside the saturation line
constexpr double p_rounding_vapour = 1e-12;  // relative
constexpr double x_rounding = 1e-12;

// Above it the saturated densities are estimates (saturated_densities.hpp), which are not in
// equilibrium: the region-3 equation answers for both phases. 40 microkelvin.
constexpr double t_near_critical = T_crit - 4e-5;

// A solution of h and s in the equation of one region, and the region it belongs to by p and T:
// state.region itself, a neighbour, or none.
struct Attempt {
    State state = outside;
    Region belongs_to = Region::none;
    bool converged = false;
};

// Puts x on a limit that it exceeds by no more than the rounding; whether it is within them then.
bool settle(double& x, double low, double high, double rounding) noexcept {
    if (!(x >= low - rounding && x <= high + rounding)) return false;
    x = std::clamp(x, low, high);
    return true;
}

// Which region a solution in the equation of region 1 belongs to; p and t are put on its limits.
Region owner1(State& at) noexcept {
    if (at.t > T_13 + t_rounding) return Region::three;
    const double ps = psat(at.t);
    if (at.p < ps - p_rounding_line) return Region::wet;
    const bool inside = settle(at.t, T_min, T_13, t_rounding) &&
                        settle(at.p, std::max(ps, p_min), p_max, p_rounding);
    return inside ? Region::one : Region::none;
}

Region owner2(State& at) noexcept {
    constexpr double p_near_max_5 = 1.01 * p_max_5;  // from here none of region 5 is mistaken for 2
    if (at.t > T_25 + t_rounding) return at.p < p_near_max_5 ? Region::five : Region::none;
    if (at.t < T_min - t_rounding) return Region::wet;
    at.t = std::clamp(at.t, T_min, T_25);
    const double high = at.t <= T_13       ? psat(at.t)
                        : at.t <= T_23_max ? std::min(p_b23(at.t), p_max)
                                           : p_max;
    const double rounding = at.p * (at.t <= T_13 ? p_rounding_vapour : p_rounding / p_max);
    // at 273.15 K itself the saturation pressure is 2e-11 MPa below the least pressure
    if (settle(at.p, std::min(p_min, high), high, rounding)) return Region::two;
    if (at.p < high || at.t > T_23_max) return Region::none;
    return at.t <= T_13 ? Region::wet : Region::three;
}

// Whether a state of the region-3 equation is inside the dome. Far from the saturation line its
// pressure tells the phase, close to it the coexisting densities do.
bool in_dome(const State& at) noexcept {
    constexpr double close = 1e-3;  // relative
    if (at.t >= t_near_critical) return false;
    const double ps = psat(at.t);
    const bool liquid = at.d > d_crit;
    if (fabs(at.p - ps) > close * ps) return liquid == (at.p < ps);
    const auto saturated = dsat3(at.t, ps);
    return at.d < saturated.liquid && at.d > saturated.vapour;
}

Region owner3(State& at) noexcept {
    if (at.t < T_13 - t_rounding) return at.d > d_crit ? Region::one : Region::two;
    at.t = std::max(at.t, T_13);
    if (at.p > p_max + p_rounding) return Region::none;
    at.p = std::min(at.p, p_max);
    if (at.p < p_b23(at.t) - p_rounding) return Region::two;
    return in_dome(at) ? Region::wet : Region::three;
}

Region owner5(State& at) noexcept {
    if (at.t < T_25 - t_rounding) return Region::two;
    const bool inside = settle(at.t, T_25, T_max, t_rounding) &&
                        settle(at.p, p_min, p_max_5, at.p * p_rounding_vapour);
    return inside ? Region::five : Region::none;
}

// Newton's method in a region's equation, given up as soon as it leaves the box, where the equation
// has no meaning. The residuals of the point before, kJ/kg, tell when the error, of second order in
// them, is one of rounding: when they are less than `rest`.
template <class Equation, auto owner, auto advance = by_step>
Attempt attempt_in(Point<double> start, double rest, double h, double s) noexcept {
    constexpr bool is_dense = std::is_same_v<Equation, region3>;
    constexpr Box<double> box_3{{50, 600}, {800, 900}};
    constexpr Box<double> box_125{{-10, 250}, {2 * p_max, 3000}};
    const auto settled = [rest](Point<double> at, Point<double> /* step */,
                                Point<double> left) noexcept {
        return fabs(left.x) + at.y * fabs(left.y) < rest;
    };
    const auto [at, converged] = newton<advance>(Equation::hs_tangents, h, s, start, settled,
                                                 is_dense ? &box_3 : &box_125, 0);
    Attempt found{.converged = converged};
    if (converged) {
        found.state = is_dense ? dense_state(region3::p(at.x, at.y), at.y, at.x)
                               : gibbs_state(region_of<Equation>, at.x, at.y);
        found.belongs_to = owner(found.state);
    }
    return found;
}

// What the search for wet steam ends with.
struct WetSolution {
    double t;           // K
    double quality;     // before the last step of t; outside 0 to 1 if not wet
    Region belongs_to;  // wet if found; none colder than 273.15 K
};

Region liquid_at(double t) noexcept { return t <= T_13 ? Region::one : Region::three; }

constexpr Asked with_ends{.wet = true};

// Wet steam: the saturation temperature at which the qualities by h and by s agree.
//
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
        const State at = wet_state<with_ends>(p, t);
        const State liquid = liquid_end(at);
        const State vapour = vapour_end(at);
        const double s_liquid = single<property::s>(liquid);
        const double h_liquid = single<property::h>(liquid);
        const double s_vaporization = single<property::s>(vapour) - s_liquid;
        const double tau = (single<property::h>(vapour) - h_liquid) / s_vaporization;
        const double x = (s - s_liquid) / s_vaporization;
        const double f = h - h_liquid - (s - s_liquid) * tau;
        const double way = t - t_before;
        const bool secant = fabs(way) > secant_way;
        const double f_t = secant ? (f - f_before) / way + 0.5 * s_t * way
                                  : s_liquid - s - 1000 * single<property::v>(liquid) / tsat_p(p) +
                                        (tau - t) * s_t;
        t_before = t;
        f_before = f;
        const double square = f_t * f_t - 2 * f * s_t;
        const double step = -(f_t + sqrt(std::max(square, 0.0))) / s_t;

        const double low = dense ? T_13_dense : T_min;
        const double high = dense ? t_near_critical : T_13;
        const double next = std::clamp(t + step, low, high);
        if (next == t) {  // no farther on this side
            if (fabs(step) < settled && fabs(f) < f_rounding) return {t, x, Region::wet};
            if (square < 0) return {t, x, liquid_at(t)};
            if (next == T_min) return {t, x, Region::none};
            if (next == t_near_critical) return {t, x, Region::three};
            if (both_sides) return {T_13, x, Region::wet};
            both_sides = true;
            dense = !dense;
            t = t_before = dense ? T_13_dense : T_13;
            continue;
        }
        const bool at_limit = t + step != next;
        t = next;
        const bool small = fabs(step) < settled || (secant && fabs(step * way) < settled_secant);
        if (small && !at_limit) {
            return {t, x, square >= 0 ? Region::wet : liquid_at(t)};
        }
    }
    return {t, 0, liquid_at(t)};
}

Attempt attempt_wet(double h, double s) noexcept {
    constexpr double close = 0.01;  // to an end, which the last step may have carried it across
    const WetSolution wet = solve_wet(h, s);
    const double p = psat(wet.t);
    const bool found = wet.belongs_to == Region::wet;
    Attempt attempt{{.region = Region::wet, .p = p, .t = wet.t}, wet.belongs_to, found};
    if (!found) return attempt;
    double x = wet.quality;
    if (x < close || x > 1 - close) x = wet_state_by<with_ends, property::s>(p, wet.t, s).x;
    if (x < -x_rounding) attempt.belongs_to = liquid_at(wet.t);
    if (x > 1 + x_rounding) attempt.belongs_to = wet.t <= T_13 ? Region::two : Region::three;
    return attempt;
}

// Start in a region's equation, pressure or density and temperature, from the backward equations.
// There is none in region 5, where h hardly depends on p and s + R ln p neither.
Point<double> start_in(Region region, double h, double s) noexcept {
    if (region == Region::one) {
        const double p = region1::p_hs(h, s);
        return {p, region1::t_ph(p, h)};
    }
    if (region == Region::two) {
        const double p = region2::p_hs(h, s);
        return {p, region2::t_ph(p, h)};
    }
    if (region == Region::three) {
        const double p = region3::p_hs(h, s);
        return {1 / region3::v_ps(p, s), region3::t_ph(p, h)};
    }
    const auto p_of = [s](double p, double t) noexcept {
        return exp((region5::s_plus_r_ln_p(p, t) - s) / R);
    };
    const double p = std::min(p_of(1, Enthalpy::t5_start(0, h)), p_max_5);
    const double t = Enthalpy::t5_start(p, h);
    return {std::clamp(p_of(p, t), p_min, p_max_5), t};
}

// The solution in a region's equation, from a single-phase state nearby if there is one.
Attempt attempt(Region region, double h, double s, const State* near = nullptr) noexcept {
    if (region == Region::wet) return attempt_wet(h, s);
    const bool has_near = near != nullptr && near->region != Region::wet;
    Point<double> start = has_near ? Point{near->p, near->t} : start_in(region, h, s);
    if (has_near && region == Region::three) start.x = 1 / single<property::v>(*near);
    if (region == Region::one) return attempt_in<region1, owner1>(start, 1e-5, h, s);
    if (region == Region::two) return attempt_in<region2, owner2>(start, 1e-5, h, s);
    if (region == Region::five) return attempt_in<region5, owner5, by_ratio>(start, 1e-3, h, s);
    return attempt_in<region3, owner3>(start, 1e-6, h, s);
}

// Where the equations of two regions overlap at their common limit and both reproduce h and s, the
// state is that of the region that owns the limit for (p, T): region 2 owns 1073.15 K and the line
// to region 3, regions 1 and 2 own 623.15 K.
State by_owner(const State& state, double h, double s) noexcept {
    constexpr double overlap_25 = 0.04;  // K
    constexpr double overlap_13 = 0.01;  // K
    constexpr double overlap_23 = 0.01;  // MPa
    const auto owned = [&](Region owner) noexcept {
        const Attempt tried = attempt(owner, h, s, &state);
        return tried.belongs_to == owner ? tried.state : state;
    };
    if (state.region == Region::five && state.t < T_25 + overlap_25) return owned(Region::two);
    if (state.region == Region::three) {
        if (state.t < T_13 + overlap_13 && state.d > d_crit) return owned(Region::one);
        if (state.p < p_b23(state.t) + overlap_23) return owned(Region::two);
    }
    return state;
}

// Pressure and temperature of region 1 or 2 by their patches, corrected by one evaluation; settled where
// the step is so small that the error is one of rounding. Region 1: Newton's method, `above` being h less
// that of about saturated liquid.
CorrectedPoint<double> correct_patches1(double h, double s, double above) noexcept {
    constexpr double close = tables::liquid_hs_patch_step;
    const PatchPlace<double> place = patch_place<&tables::p1_of_hs>(s, above);
    const double p = evaluate_patch<&tables::p1_of_hs>(place).y;
    const double t = evaluate_patch<&tables::t1_of_hs>(place).y;
    const TangentPair<double> f = region1::hs_tangents(p, t);
    const Point<double> step = newton_step(f, h - f.a, s - f.b);
    const bool p_settled = fabs(step.x) < close, t_settled = fabs(step.y) < close;
    return {{p + step.x, t + step.y}, p_settled && t_settled};
}

// Region 2: the pressure by patches of z = s + R ln p, then the temperature by those of (p, h), whose slope is 1/cp:
//     dp = (dh - T ds)/v,   dT = (dh - (dh/dp)_T dp)/cp,   v = (dh/dp)_T - T (ds/dp)_T,
// where ds is what is left of z.
CorrectedPoint<double> correct_patches2(double h, double s) noexcept {
    const double z = evaluate_patch<&tables::s_plus_r_ln_p2_of_hs>(s, h).y;
    const double p = exp((z - s) * (1 / R));
    if (!(p >= p_min && p <= p_max)) return {{p, 0}, false};
    const auto [t, t_h] = evaluate_patch<Enthalpy::t_patches<Region::two>>(p, h);
    const auto [of_h, of_z] = region2::h_and_s_plus_r_ln_p_tangents_p(p, t);
    const double h_left = h - of_h.y;
    const double p_v = p * (of_h.y_x - t * of_z.y_x) + R * t;
    const double ratio = (h_left - t * (z - of_z.y)) / p_v;
    const double p_step = p * ratio;
    const double t_step = h_left * t_h;
    const bool p_settled = fabs(ratio) < tables::vapour_hs_patch_step;
    const bool t_settled = fabs(t_step) < tables::last_patch_step;
    return {{p + p_step, t + (t_step - of_h.y_x * p_step * t_h)}, p_settled && t_settled};
}

// Whether a state is so far within its region that no limit needs a closer look: the saturation line and
// that of regions 2 and 3 where the bounds of h and s do not tell, and the others.
constexpr double inside = 1e-6;  // relative
bool is_well_inside1(Point<double> at, bool is_liquid) noexcept {
    const auto [p, t] = at;
    const bool is_inside =
        (t > T_min * (1 + inside)) & (t < T_13 * (1 - inside)) & (p < p_max * (1 - inside));
    return is_inside && (is_liquid || p > psat(t) * (1 + inside) + inside);
}
bool is_well_inside2(Point<double> at, bool is_vapour) noexcept {
    const auto [p, t] = at;
    const bool is_inside = (t > T_min * (1 + inside)) & (t < T_25 * (1 - inside)) &
                           (p > p_min * (1 + inside)) & (p < p_max * (1 - inside));
    if (!is_inside || is_vapour) return is_inside;
    return p < (t <= T_13 ? psat(t) : t <= T_23_max ? p_b23(t) : p_max) * (1 - inside);
}

// The equation that the boundaries of the releases choose; where its solution turns out to lie in a
// neighbour, that one's. Where the equations of two regions leave a gap between them the first
// solution stays, up to some mK beyond its region, and reproduces h and s all the same.
State search_hs(Region region, double h, double s) noexcept {
    if (region == Region::none) return outside;
    const Attempt first = attempt(region, h, s);
    if (first.belongs_to == region) return by_owner(first.state, h, s);

    const auto bit = [](Region of) noexcept { return 1u << static_cast<unsigned>(of); };
    Attempt last = first;
    unsigned tried = bit(region);
    const auto neighbour_has_it = [&](Region next) noexcept {
        tried |= bit(next);
        last = attempt(next, h, s, &last.state);
        return last.belongs_to == next;
    };
    while (last.belongs_to != Region::none && (tried & bit(last.belongs_to)) == 0) {
        if (neighbour_has_it(last.belongs_to)) return by_owner(last.state, h, s);
    }
    if (last.belongs_to != Region::none) {
        return first.state.p <= (first.state.t > T_25 ? p_max_5 : p_max) ? first.state : outside;
    }
    // In the corners of the range a state may have been lost to the mismatch of two equations.
    const Attempt lost = last;
    for (const Region next : {Region::one, Region::two, Region::three}) {
        last = lost;
        if (lost.converged && (tried & bit(next)) == 0 && neighbour_has_it(next)) return last.state;
    }
    return outside;
}

}  // namespace

// At once by the patches of region 1 or 2 where no limit is near, else by the search.
State solve_hs(double h, double s) noexcept {
    constexpr double above_liquid = 1;  // kJ/kg, more than the error of liquid_h_near
    constexpr Patches of1 = tables::p1_of_hs, of2 = tables::s_plus_r_ln_p2_of_hs;
    if (!(s >= s_lowest && s <= s_highest)) return outside;
    const double above = h - liquid_h_near(s);
    const bool is_liquid =
        s > of1.x_low && s < boundaries_hs::s_13_min && above > above_liquid && above < of1.y_high;
    const bool is_vapour =
        s > boundaries_hs::s_23_max && s < s2_highest && h > above_saturated && h < beyond_region2;
    const Region region = is_liquid   ? Region::one
                          : is_vapour ? Region::two
                                      : region_unlimited(h, s).region;
    if (region == Region::none) return outside;
    if (region == Region::one) {
        const auto [at, settled] = correct_patches1(h, s, above);
        if (settled && is_well_inside1(at, is_liquid)) return gibbs_state(region, at.x, at.y);
    }
    if (region == Region::two && s > of2.x_low && s < s2_highest) {
        const auto [at, settled] = correct_patches2(h, s);
        if (settled && is_well_inside2(at, is_vapour)) return gibbs_state(region, at.x, at.y);
    }
    return search_hs(is_liquid || is_vapour ? region_unlimited(h, s).region : region, h, s);
}

}  // namespace vaprix::inverse
