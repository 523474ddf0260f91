// SPDX-License-Identifier: MIT
//
// (v, h) and (v, s), written once: y stands for the second variable. Along an isochore y rises with
// the temperature, through every region that it passes (in cold liquid twice through the saturation
// line), so that one temperature carries the pair.
#include "inverse/of_vy.hpp"

#include <algorithm>
#include <bit>
#include <cstddef>

#include "frame/bracketed_newton.hpp"
#include "frame/chandrupatla.hpp"
#include "frame/elementary.hpp"
#include "frame/machine.hpp"
#include "frame/newton.hpp"
#include "inverse/of_tv.hpp"
#include "inverse/second_variable.hpp"
#include "inverse/tables/volume_start.hpp"
#include "inverse/tables/wet_isochores.hpp"
#include "inverse/volume_reduced.hpp"
#include "pt/region_pt.hpp"
#include "regions/b23.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {
namespace {

bool found(const State& state) noexcept { return state.region != Region::none; }

// Volumes, m3/kg, that part the regions.
constexpr double region1_end = 1.3e-3;       // v1(100 MPa, 623.15 K) >= 0.0013
constexpr double hot_liquid_end = 1.741e-3;  // v1(ps, 623.15 K) <= 0.001741
constexpr double region5_end = 9e-3;         // v5(50 MPa, 1073.15 K) >= 0.009, v of region 3 less

constexpr double step = 1e-8;      // relative, after which the error of a Newton method is rounding
                                   // (of two variables: what is left of both before it)
constexpr double spacing = 4e-16;  // relative, of temperatures told apart

constexpr double beside = 0.2;  // K: two regions' states of a pair beside a limit differ by 0.1

// A solution that misses an end of its range by no more than rounding is put on the end.
double on_end(double x, double low, double high) noexcept {
    constexpr double rounding = 1e-11;  // relative, of the pressure of dense fluid
    if (x < low && x > low * (1 - rounding)) return low;
    if (x > high && x < high * (1 + rounding)) return high;
    return x;
}

// Sum n x^k of two polynomials side by side, by x, x^2 and x^4.
using Two = machine::Neighbours<double>;
using Powers = const double (&)[3];
template <std::size_t terms>
VAPRIX_INLINE Two power_sum(const float (*n)[2], Powers x) noexcept {
    if constexpr (terms == 1) {
        return Two(n[0]);
    } else {
        constexpr std::size_t half = std::bit_ceil(terms) / 2;
        return power_sum<half>(n, x) +
               power_sum<terms - half>(n + half, x) * x[std::countr_zero(half)];
    }
}
// Sum n u^i w^j of some rows, each of a power of u.
template <std::size_t rows, std::size_t first = 0>
VAPRIX_INLINE Two row_sum(const float (*n)[2], Powers u, Powers w) noexcept {
    constexpr std::size_t columns = tables::volume_start_columns;
    if constexpr (rows == 1) {
        return power_sum<columns - first>(n + first * (2 * columns + 1 - first) / 2, w);
    } else {
        constexpr std::size_t half = std::bit_ceil(rows) / 2;
        return row_sum<half, first>(n, u, w) +
               row_sum<rows - half, first + half>(n, u, w) * u[std::countr_zero(half)];
    }
}

// Pressure, of vapour over the density, and temperature where Newton's method starts. A y less than
// any of the part, as wet steam has beside vapour, is taken for the least.
template <const auto& cells, const auto& d_ends>
Point<double> start_of(double d, double y) noexcept {
    const tables::VolumeStart* cell = cells + 2 * reduced::part(d_ends, d);
    if (y > static_cast<double>(cell->y_end)) ++cell;
    const double u = (d - static_cast<double>(cell->d_middle)) * static_cast<double>(cell->d_scale);
    const double below =
        (y - static_cast<double>(cell->y_middle)) * static_cast<double>(cell->y_scale);
    const double w = std::max(below, -1.0);
    const double u2 = u * u, w2 = w * w;
    const Two pt =
        row_sum<tables::volume_start_columns>(cell->n, {u, u2, u2 * u2}, {w, w2, w2 * w2});
    return {pt.first(), pt.second()};
}
template <class Y>
struct Start;
template <>
struct Start<Enthalpy> {
    static constexpr const auto& wet = tables::wet_h;
    static constexpr auto in1 = start_of<tables::start1_h, reduced::d1_ends>;
    static constexpr auto in2 = start_of<tables::start2_h, reduced::d2_ends>;
};
template <>
struct Start<Entropy> {
    static constexpr const auto& wet = tables::wet_s;
    static constexpr auto in1 = start_of<tables::start1_s, reduced::d1_ends>;
    static constexpr auto in2 = start_of<tables::start2_s, reduced::d2_ends>;
};
Point<double> held(double p, double t, double t_max) noexcept {
    return {std::clamp(p, p_min, p_max), std::clamp(t, T_min, t_max)};
}
template <class Y>
Point<double> start1(double v, double y) noexcept {
    const auto [p, t] = Start<Y>::in1(1 / v, y);
    return held(p, t, T_13);
}
// Whether a start in the equation of region 2 is of wet steam: of saturated vapour it is within 1.6 %.
bool is_wet_start(Point<double> start) noexcept {
    constexpr double apart = 1.02;
    return start.y <= T_min || (start.y < T_13 && start.x > apart * psat(start.y));
}
template <class Y>
Point<double> start2(double v, double along) noexcept {
    const double d = 1 / v;
    const auto [pv, t] = Start<Y>::in2(d, along);
    return held(pv * d, t, T_25);
}

// Temperature of wet steam by the fits of the lines that y is over the volume at one temperature,
// and the slope of y there.
struct WetStart {
    double t, slope;
};
template <std::size_t parts>
WetStart wet_start(const tables::WetIsochores (&wet)[parts], double v, double y) noexcept {
    static_assert(std::has_single_bit(parts));
    constexpr double width = (T_13 - T_min) / parts;
    const tables::WetIsochores* part = wet;
    for (std::size_t half = parts / 2; half > 0; half /= 2) {
        const tables::WetIsochores* const upper = part + half;
        part = upper->a + v * upper->b <= y ? upper : part;
    }
    const double left = y - (part->a + v * part->b);
    double c[6];
    for (std::size_t k = 0; k < 6; ++k)
        c[k] = static_cast<double>(part->a_u[k]) + v * static_cast<double>(part->b_u[k]);

    // by the parabola of the slope at the low end, through both ends
    const double rise = (c[0] + c[1]) + (c[2] + c[3]) + (c[4] + c[5]);
    const double within = std::clamp(left, 0.0, rise);
    const double u = 2 * within / (c[0] + sqrt(c[0] * c[0] + 4 * (rise - c[0]) * within));
    // Halley's step
    const double value = u * (c[0] + u * (c[1] + u * (c[2] + u * (c[3] + u * (c[4] + u * c[5])))));
    const double slope =
        c[0] + u * (2 * c[1] + u * (3 * c[2] + u * (4 * c[3] + u * (5 * c[4] + u * 6 * c[5]))));
    const double bend =
        c[1] + u * (3 * c[2] + u * (6 * c[3] + u * (10 * c[4] + u * 15 * c[5])));  // half of it
    const double newton = (left - value) / slope;
    const double change = newton / (1 + newton * bend / slope);
    const double t = T_min + width * (static_cast<double>(part - wet) + u + change);
    return {t, (slope + 2 * bend * change) / width};
}

Point<double> after(Point<double> at, Point<double> change) noexcept {
    return {at.x + change.x, at.y + change.y};
}

// A pair of a volume and a y. Its attempts set the state where they find one, and say whether they
// have.
template <class Y>
struct Pair {
    double v, y;

    // What rounding may make of y, worst at the dense end of region 3.
    [[nodiscard]] double rounding() const noexcept { return 5e-13 * (fabs(y) + Y::unit); }
    [[nodiscard]] bool reproduces(const State& at) const noexcept {
        return fabs(single<Y::y>(at) - y) <= rounding();
    }

    // What is left of the pair, relative.
    [[nodiscard]] double relative(Point<double> left) const noexcept {
        return std::max(fabs(left.x) / v, fabs(left.y) / Y::unit);
    }

    // By steps that all take the slopes at the start: whether the last one leaves a rounding, as what
    // was left before it tells. Else the point that they have reached within bounds.
    template <class Equation>
    [[nodiscard]] bool corrected(const Box<double>& around, Point<double>& at) const noexcept {
        constexpr int rounds = 2;
        constexpr double rounding = 1e-16;
        const TangentPair<double> f = (*Y::template tangents_with_v<Equation>)(at.x, at.y);
        Point<double> left{v - f.a, y - f.b};
        for (int round = 0; round < rounds; ++round) {
            const double before = relative(left);
            const Point<double> next = after(at, newton_step(f, left.x, left.y));
            if (!within(around, next)) return false;
            at = next;
            const Point<double> reached = (*Y::template with_v<Equation>)(at.x, at.y);
            left = {v - reached.x, y - reached.y};
            const double now = relative(left);
            if (2 * now * now < rounding * before) {
                at = after(at, newton_step(f, left.x, left.y));
                return true;
            }
        }
        return false;
    }

    // Region 1, 2 or 5 by Newton's method on (p, T), which may converge beyond the region.
    template <class Equation>
    [[nodiscard]] bool gibbs(Point<double> start, State& state) const noexcept {
        constexpr Region region = region_of<Equation>;
        constexpr bool is_one = region == Region::one;
        constexpr bool is_five = region == Region::five;
        static constexpr Box<double> around{{1e-4, 250}, {2 * p_max, is_one ? 640 : 1.1 * T_max}};
        constexpr auto tangents = Y::template tangents_with_v<Equation>;
        Point<double> at = start;
        bool converged = false;
        if constexpr (!is_five) converged = corrected<Equation>(around, at);
        if (!converged) {
            const auto settled = [this](Point<double> /* at */, Point<double> /* step */,
                                        Point<double> left) noexcept {
                return relative(left) < step;
            };
            constexpr int patience = 3;
            const NewtonPoint<double> found =
                newton(tangents, v, y, at, settled, &around, patience);
            at = found.at;
            converged = found.converged;
        }
        const double t = on_end(at.y, is_five ? T_25 : T_min,
                                is_one    ? T_13
                                : is_five ? T_max
                                          : T_25);
        const bool beside_3 = region == Region::two && t > T_13 && t < T_23_max;
        const double p = on_end(at.x, p_min,
                                is_five    ? p_max_5
                                : beside_3 ? std::min(p_b23(t), p_max)
                                           : p_max);
        if (!converged || region_pt(p, t) != region) return false;
        state = gibbs_state(region, p, t);
        return true;
    }

    // Region 3 by Newton's method on T, held between its ends.
    [[nodiscard]] bool dense(double start, State& state) const noexcept {
        const double d = 1 / v;
        const auto tangent = [=](double t) noexcept {
            const TangentPair<double> at = Y::tangents3(d, t);
            return Tangent<double>{at.b, at.b_y};
        };
        const auto [t, converged] = bracketed_newton(tangent, y, T_13_dense, T_23_max,
                                                     std::clamp(start, T_13_dense, T_23_max), step);
        if (!converged) return false;
        const bool at_end = t <= T_13_dense || t >= T_23_max;
        if (at_end && !reproduces(dense_state(0, t, d))) return false;
        const double lowest = p_b23(t);
        const double p = on_end(region3::p(d, t), lowest, p_max);
        if (!(p >= lowest && p <= p_max)) return false;
        if (t < T_crit) {
            const SaturatedDensities saturated = dsat3(t, psat(t));
            if (d < saturated.liquid && d > saturated.vapour) return false;
        }
        state = dense_state(p, t, d);
        return true;
    }

    // What y at t misses y by.
    [[nodiscard]] double residual(double t) const noexcept {
        constexpr double beyond = 1e9;   // of a temperature at which v is out of range
        constexpr double any_dense = 1;  // m3/kg: v out of range below it is too small, else large
        const State at = of_tv<Asked{.single = true}>(t, v);
        if (!found(at)) return v < any_dense ? beyond : -beyond;
        return mixed<Y::y>(at) - y;
    }

    // The whole isochore searched for y. Where the equations of two regions leave a gap between
    // their values of y at the boundary, the boundary answers for it; where they overlap, either
    // region.
    void search(State& state) const noexcept {
        const auto settle = [&](double t) noexcept { state = of_tv<Asked{.p = true}>(t, v); };

        const double highest = v < region1_end ? T_13 : v < region5_end ? T_25 : T_max;
        const Residual<double> low{T_min, residual(T_min)};
        const Residual<double> high{highest, residual(highest)};
        if (low.f >= 0 || high.f <= 0) {
            const auto& end = low.f >= 0 ? low : high;
            if (fabs(end.f) <= rounding()) settle(end.x);
            return;
        }

        const Residual<double> root =
            chandrupatla([this](double t) noexcept { return residual(t); }, low, high, spacing);
        if (fabs(root.f) <= rounding()) return settle(root.x);

        // A jump, or an end of the range beside a corner, where the equations of the two regions
        // that meet do not end at the same volume: the state may be on the other one's ground.
        const double t = root.x;
        if (v < region5_end && (dense(t, state) || gibbs<region1>({p_max, t}, state))) return;
        const double p = std::clamp(R / 1000 * t / v, p_min, p_max);
        if (gibbs<region2>({p, t}, state)) return;
        constexpr double neighbour = 1e-9;  // relative, beyond what of_tv rounds to a limit
        const bool within = found(of_tv<Asked{}>(t * (1 - neighbour), v)) &&
                            found(of_tv<Asked{}>(t * (1 + neighbour), v));
        if (within) settle(t);
    }

    // Whether (T, v) has wet steam, or a saturated phase, which region 3 has too beside 623.15 K, and
    // of which (p, T) has none where the line lies below p_min. Of a quality x that no rounding makes
    // a single phase it has, where the mixture misses y by no more than that.
    [[nodiscard]] bool wet_at(double t, double x, double missed, State& state) const noexcept {
        constexpr double mixture = 1e-6;
        constexpr double below_p_min = 5e-7;  // K
        const bool is_mixture = x > mixture && x < 1 - mixture;
        if (is_mixture && missed > rounding()) return false;
        const State at = is_mixture ? State{.region = Region::wet, .p = psat(t), .t = t, .x = x}
                                    : of_tv<Asked{.p = true}>(t, v);
        const bool at_end = t > T_13 - beside || t < T_min + below_p_min;
        const bool saturated = at_end && found(at) && reproduces(at);
        if (at.region != Region::wet && !saturated) return false;
        state = at;
        return true;
    }

    // Wet steam up to 623.15 K, whose start is so close that one evaluation corrects it to rounding.
    [[nodiscard]] bool wet(State& state) const noexcept {
        constexpr double last_step = 1e-6;  // K
        const WetStart start = wet_start(Start<Y>::wet, v, y);
        const double t = std::clamp(start.t, T_min, T_13);
        const double p = psat(t);
        const Point<double> liquid = Y::template with_v<region1>(p, t);
        const Point<double> vapour = Y::template with_v<region2>(p, t);
        const double x = quality(v, liquid.x, vapour.x);
        const double left = y - liquid.y - x * (vapour.y - liquid.y);
        const double change = left / start.slope;
        const double next = std::clamp(t + change, T_min, T_13);
        const double missed = fabs(t + change - next) * start.slope;
        return fabs(change) < last_step && wet_at(next, x, missed, state);
    }

    // The state by the region that it is likely in, without a search. As the isochore has one state
    // for y, a state that is found is the one.
    [[nodiscard]] bool guess(State& state) const noexcept {
        const auto ideal = [this](double t) noexcept { return Point<double>{R / 1000 * t / v, t}; };
        if (v >= region5_end) {
            const double along = Y::along_isochore(v, y);
            if (!Y::is_wet(y, along)) {
                if (along > Y::hot_above) {
                    const double p = std::min(ideal(1500).x, p_max_5);
                    const double t = Y::t5_start(p, Y::along_isobar(p, y));
                    if (gibbs<region5>(ideal(std::clamp(t, T_25, T_max)), state)) return true;
                } else {
                    const Point<double> start = start2<Y>(v, along);
                    if (!is_wet_start(start) && gibbs<region2>(start, state)) return true;
                }
            }
        } else if (v <= hot_liquid_end || y >= Y::wet_below_13(v)) {
            if (v > region1_end && y > Y::dense_above) {
                if (y < Y::thin_above && dense(700, state)) return true;
                if (gibbs<region2>(start2<Y>(v, Y::along_isochore(v, y)), state)) return true;
            }
            if (v < hot_liquid_end && gibbs<region1>(start1<Y>(v, y), state)) return true;
        }
        return wet(state);
    }

    // Beside a limit the equations of both regions may reproduce the pair: the state of the one that
    // owns the limit for (p, T), 623.15 K, 1073.15 K or the B23 line, if it has one.
    void prefer_owner(State& state) const noexcept {
        const double p = state.p;
        const double t = state.t;
        if (state.region == Region::five && t < T_25 + beside) {
            (void)gibbs<region2>({p, T_25}, state);
            return;
        }
        const bool is_dense = state.region == Region::three || state.region == Region::wet;
        if (!(is_dense && t > T_13)) return;
        if (t < T_13 + beside && (gibbs<region1>({p, T_13}, state) || wet(state))) return;
        if (t > t_b23(p) - beside) (void)gibbs<region2>({p, t}, state);
    }

    [[nodiscard]] State solve() const noexcept {
        State state = outside;
        const bool possible = v > smallest && v < largest;
        if (!(possible && fabs(y) < 2 * Y::highest)) return state;
        if (!guess(state)) search(state);
        prefer_owner(state);
        return state;
    }
};

}  // namespace

template <class Y>
State solve_vy(double v, double y) noexcept {
    return Pair<Y>{v, y}.solve();
}
template State solve_vy<Enthalpy>(double v, double h) noexcept;
template State solve_vy<Entropy>(double v, double s) noexcept;

}  // namespace vaprix::inverse
