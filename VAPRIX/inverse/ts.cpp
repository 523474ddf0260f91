// SPDX-License-Identifier: MIT
#include "inverse/ts.hpp"

#include "inverse/by_temperature.hpp"

namespace vaprix::ts {
namespace {

struct Entropy {
    static constexpr const pt::Property& y = pt::s;
    static constexpr double rounding = 1e-14;  // of s, kJ/(kg K)

    static constexpr auto tangent1 = region1::s_tangent_p;
    static constexpr auto tangent2 = region2::s_plus_r_ln_p_tangent_p;  // of s + R ln p
    static constexpr auto tangent3 = region3::s_tangent_d;
    static constexpr auto tangent5 = region5::s_plus_r_ln_p_tangent_p;

    // The entropy of the liquid has a maximum where it is densest along the isobar: on the
    // saturation line at 277.133 K, at 19 MPa at 273.15 K. Warmer, s falls throughout.
    static constexpr double turn = -1;
    static constexpr double t_turning = 277.14;
    static bool may_turn(double t) noexcept { return t < t_turning; }
    static double turning_pressure(double t, double ps) noexcept {
        const double start = (277.1333942 - t) / 0.208;
        return bracketed_newton([t](double p) noexcept { return region1::s_p_tangent_p(p, t); },
                                0.0, ps, p_max, std::max(start, ps), inverse::step_p)
            .x;
    }

    // p = p_of(p) with p_of = exp((s + R ln p - s_given)/R): the real part of s hardly depends on
    // p, so that Newton's method is nearly exact from the ideal gas.
    template <class TangentOf>
    static double vapour_pressure(TangentOf tangent, double t, double s, double /* s_lowest */,
                                  double p_highest, double s_highest) noexcept {
        const auto excess = [=](double p) noexcept -> Tangent<double> {
            const Tangent at = tangent(p, t);
            const double p_of = std::exp((at.y - s) / R);
            return {p - p_of, 1 - p_of * at.y_x / R};
        };
        const double start = p_highest * std::exp((s_highest - s) / R);
        return bracketed_newton(excess, 0.0, p_min, p_highest, std::max(start, p_min),
                                inverse::step_p)
            .x;
    }
};

}  // namespace

inverse::IsothermState lowest(double t, double s) noexcept {
    return inverse::lowest<Entropy>(t, s);
}
inverse::IsothermState next(double t, double s) noexcept { return inverse::next<Entropy>(t, s); }

}  // namespace vaprix::ts
