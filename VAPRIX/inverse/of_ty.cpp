// SPDX-License-Identifier: MIT
//
// (T, h) and (T, s), written once: y stands for the second variable. Along an isotherm y falls with
// rising pressure in vapour, in wet steam and in region 3. In the liquid of region 1 it may turn:
// the enthalpy of hot liquid has a minimum, the entropy of cold liquid a maximum. So a pair has up
// to three states; the one of lowest pressure and the next are offered.
#include "inverse/of_ty.hpp"

#include <algorithm>

#include "frame/bracketed_newton.hpp"
#include "frame/elementary.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_line.hpp"
#include "state/wet.hpp"

namespace vaprix::inverse {
namespace {

// Relative steps in p and in density after which the error, of second order in them, is one of
// rounding.
constexpr double step_p = 1e-7;
constexpr double step_d = 1e-8;

// What h and s differ in along an isotherm: the rounding by which a y may miss that of an end and
// still is on it; the tangents in p, in region 3 in density; where the liquid turns; how the vapour
// is solved.
template <class Y>
struct Isotherm;

template <>
struct Isotherm<Enthalpy> {
    static constexpr double rounding = 1e-11;  // kJ/kg

    template <class Equation>
    static constexpr auto tangent = Equation::h_tangent_p;
    static constexpr auto tangent3 = region3::h_tangent_d;

    // The enthalpy of the liquid has a minimum between 520.6 K, where it lies on the saturation
    // line, and 613 K, where it reaches 100 MPa. Colder, h rises throughout.
    static constexpr double turn = 1;
    static constexpr double t_turning = T_13;
    static constexpr auto slope_tangent = region1::h_p_tangent_p;
    static bool may_turn(double t) noexcept { return t > 520; }
    static double p_turn(double t) noexcept { return 6.6 + 1.05 * (t - 523.15); }  // nearly

    template <class Equation>
    static double vapour_pressure(double t, double h, double h_lowest, double p_highest,
                                  double h_highest) noexcept {
        const double share = (h_lowest - h) / (h_lowest - h_highest);
        const double start = p_min + (p_highest - p_min) * share;
        const auto at_t = [t](double p) noexcept { return tangent<Equation>(p, t); };
        return bracketed_newton(at_t, h, p_min, p_highest, start, step_p).x;
    }
};

template <>
struct Isotherm<Entropy> {
    static constexpr double rounding = 1e-14;  // kJ/(kg K)

    template <class Equation>
    static constexpr auto tangent = Equation::s_plus_r_ln_p_tangent_p;
    static constexpr auto tangent3 = region3::s_tangent_d;

    // The entropy of the liquid has a maximum where it is densest along the isobar: on the
    // saturation line at 277.133 K, at 19 MPa at 273.15 K. Warmer, s falls throughout.
    static constexpr double turn = -1;
    static constexpr double t_turning = 277.14;
    static constexpr auto slope_tangent = region1::s_p_tangent_p;
    static bool may_turn(double t) noexcept { return t < t_turning; }
    static double p_turn(double t) noexcept { return (277.1333942 - t) / 0.208; }

    // p = p_of(p) with p_of = exp((s + R ln p - s_given)/R): the real part of s hardly depends on
    // p, so that Newton's method is nearly exact from the ideal gas.
    template <class Equation>
    static double vapour_pressure(double t, double s, double /* s_lowest */, double p_highest,
                                  double s_highest) noexcept {
        const auto excess = [=](double p) noexcept -> Tangent<double> {
            const Tangent<double> at = tangent<Equation>(p, t);
            const double p_of = exp((at.y - s) / R);
            return {p - p_of, 1 - p_of * at.y_x / R};
        };
        const double start = p_highest * exp((s_highest - s) / R);
        return bracketed_newton(excess, 0.0, p_min, p_highest, std::max(start, p_min), step_p).x;
    }
};
template <>
constexpr auto Isotherm<Entropy>::tangent<region1> = region1::s_tangent_p;

// A pair of a temperature and a y.
template <class Y>
struct Pair {
    using Along = Isotherm<Y>;
    double t, y;
    bool forms_p;  // the pressure of regions 1, 2 and 5 is asked for

    // Vapour of region 2 or 5 up to the pressure p_highest, at which y is y_highest or more.
    template <class Equation>
    [[nodiscard]] State vapour(double p_highest, double y_highest) const noexcept {
        constexpr Region region = region_of<Equation>;
        if (y <= y_highest) {
            return y >= y_highest - Along::rounding ? gibbs_state(region, p_highest, t) : outside;
        }
        const double y_lowest = single<Y::y>(gibbs_state(region, p_min, t));
        if (y >= y_lowest) {
            return y <= y_lowest + Along::rounding ? gibbs_state(region, p_min, t) : outside;
        }
        if (!forms_p) return gibbs_state(region, 0, t);
        const double p =
            Along::template vapour_pressure<Equation>(t, y, y_lowest, p_highest, y_highest);
        return gibbs_state(region, p, t);
    }
    // Pressure above ps at which y of the liquid turns, one of the ends where it does beyond.
    [[nodiscard]] double turning_pressure(double ps) const noexcept {
        const auto slope = [this](double p) noexcept { return Along::slope_tangent(p, t); };
        const double start = std::clamp(Along::p_turn(t), ps, p_max);
        return bracketed_newton(slope, 0.0, ps, p_max, start, step_p).x;
    }

    // Liquid of region 1 above the saturation pressure ps, where y is y_saturated. The isotherm has
    // two legs, up to the pressure where y turns and on from there; either may be empty. The state
    // on the leg that comes first, or with `second` the one on the other leg.
    [[nodiscard]] State liquid(double ps, double y_saturated, bool second) const noexcept {
        const double p_turn = Along::may_turn(t) ? turning_pressure(ps) : ps;
        const bool turns = p_turn > ps && p_turn < p_max;
        const double y_turn = Y::y.region1(p_turn, t);

        // distance from the turn, which grows along both legs
        const auto beyond = [](double from, double to) noexcept {
            return Along::turn * (to - from);
        };
        const double distance = beyond(y_turn, y);
        if (distance <= 0) {
            return distance >= -Along::rounding && !second ? gibbs_state(Region::one, p_turn, t)
                                                           : outside;
        }

        const auto on_leg = [=, this](double p_end, double distance_of_end) noexcept {
            if (!forms_p || distance >= distance_of_end) return gibbs_state(Region::one, p_end, t);
            const double share = distance / distance_of_end;
            const double start = p_turn + (p_end - p_turn) * (turns ? sqrt(share) : share);
            const auto [low, high] = std::minmax(p_turn, p_end);
            const auto tangent = [this](double p) noexcept {
                return Along::template tangent<region1>(p, t);
            };
            const double p = bracketed_newton(tangent, y, low, high, start, step_p).x;
            return gibbs_state(Region::one, p, t);
        };
        const double distance_saturated = beyond(y_turn, y_saturated);
        const bool on_first = p_turn > ps && distance <= distance_saturated;
        if (on_first && !second) return on_leg(ps, distance_saturated);
        if (on_first != second) return outside;
        const double distance_highest = beyond(y_turn, Y::y.region1(p_max, t));
        return distance <= distance_highest + Along::rounding ? on_leg(p_max, distance_highest)
                                                              : outside;
    }

    // State of region 3 between two densities, y falling from one to the other.
    [[nodiscard]] State dense(double d_low, double y_low, double d_high,
                              double y_high) const noexcept {
        constexpr double gap = 0.99;        // to the equation of region 2, at most 0.02 %
        constexpr double rounding = 2e-10;  // relative, of the pressure of a density that has y
        const double share = y_low > y_high ? (y_low - y) / (y_low - y_high) : 1;
        const double start = d_low + (d_high - d_low) * std::clamp(share, 0.0, 1.0);
        const auto tangent = [this](double d) noexcept { return Along::tangent3(d, t); };
        const double d = bracketed_newton(tangent, y, gap * d_low, d_high, start, step_d).x;
        const double p = region3::p(d, t);
        return p <= p_max * (1 + rounding) ? dense_state(std::min(p, p_max), t, d) : outside;
    }

    [[nodiscard]] State up_to_t13() const noexcept {
        const double ps = psat(t);
        const double y_vapour = Y::y.region2(ps, t);
        if (y >= y_vapour) return vapour<region2>(ps, y_vapour);
        const double y_liquid = Y::y.region1(ps, t);
        if (!(y > y_liquid)) return liquid(ps, y_liquid, false);
        return {.region = Region::wet, .p = ps, .t = t, .x = quality(y, y_liquid, y_vapour)};
    }

    // 623.15 to 863.15 K. Below the critical temperature a state of region 3 is kept on its side of
    // the saturation line, which differs from that of the region-3 equation by up to 0.003 % of p.
    [[nodiscard]] State up_to_t23() const noexcept {
        const auto y_of = [this](double d) noexcept { return single<Y::y>(dense_state(0, t, d)); };
        // A density that no state of region 3 reaches: beyond 100 MPa, before y turns.
        const double d_highest = 770 - 0.45 * (t - T_13);
        constexpr double apart = 1e-12;  // relative distance in p that is kept from the line

        const double p_b = std::min(p_b23(t), p_max);  // 100 MPa: a rounding below 863.15 K
        const double y_b = Y::y.region2(p_b, t);
        if (y >= y_b) return vapour<region2>(p_b, y_b);
        const double d_lowest = 1 / region2::v(p_b, t);
        const double y_highest = y_of(d_highest);
        if (t >= T_crit) return dense(d_lowest, y_b, d_highest, y_highest);

        State wet{.region = Region::wet, .p = psat(t), .t = t};
        wet.ends = ends_at(wet.p, t);
        const double y_vapour = y_of(wet.ends.vapour);
        if (y >= y_vapour) {
            State vapour = dense(d_lowest, y_b, wet.ends.vapour, y_vapour);
            vapour.p = std::min(vapour.p, wet.p * (1 - apart));
            return vapour;
        }
        const double y_liquid = y_of(wet.ends.liquid);
        if (!(y > y_liquid)) {
            State liquid = dense(wet.ends.liquid, y_liquid, d_highest, y_highest);
            liquid.p = std::max(liquid.p, wet.p * (1 + apart));
            return liquid;
        }
        wet.x = quality(y, y_liquid, y_vapour);
        return wet;
    }

    [[nodiscard]] bool within(double t_highest) const noexcept {
        constexpr double y_beyond = 1e4;  // any state, kJ/kg and kJ/(kg K) alike
        return t >= T_min && t <= t_highest && fabs(y) < y_beyond;
    }

    // The state of lowest pressure.
    [[nodiscard]] State lowest() const noexcept {
        if (!within(T_max)) return outside;
        if (t <= T_13) return up_to_t13();
        if (t <= T_23_max) return up_to_t23();
        return t <= T_25 ? vapour<region2>(p_max, Y::y.region2(p_max, t))
                         : vapour<region5>(p_max_5, Y::y.region5(p_max_5, t));
    }

    // The next one, which is liquid: wet steam or the other leg comes before it.
    [[nodiscard]] State next() const noexcept {
        if (!within(Along::t_turning)) return outside;
        const double ps = psat(t);
        const double y_liquid = Y::y.region1(ps, t);
        return liquid(ps, y_liquid, y <= y_liquid);
    }
};

}  // namespace

template <class Y>
State lowest_state_ty(double t, double y, const Asked& asked) noexcept {
    return Pair<Y>{t, y, asked.p || asked.single}.lowest();
}
template <class Y>
State next_state_ty(double t, double y, const Asked& asked) noexcept {
    return Pair<Y>{t, y, asked.p || asked.single}.next();
}
template State lowest_state_ty<Enthalpy>(double t, double h, const Asked& asked) noexcept;
template State lowest_state_ty<Entropy>(double t, double s, const Asked& asked) noexcept;
template State next_state_ty<Enthalpy>(double t, double h, const Asked& asked) noexcept;
template State next_state_ty<Entropy>(double t, double s, const Asked& asked) noexcept;

}  // namespace vaprix::inverse
