// SPDX-License-Identifier: MIT
#include "inverse/th.hpp"

#include "inverse/by_temperature.hpp"

namespace vaprix::th {
namespace {

struct Enthalpy {
    static constexpr const pt::Property& y = pt::h;
    static constexpr double rounding = 1e-11;  // of h, kJ/kg

    static constexpr auto tangent1 = region1::h_tangent_p;
    static constexpr auto tangent2 = region2::h_tangent_p;
    static constexpr auto tangent3 = region3::h_tangent_d;
    static constexpr auto tangent5 = region5::h_tangent_p;

    // The enthalpy of the liquid has a minimum between 520.6 K, where it lies on the saturation
    // line, and 613 K, where it reaches 100 MPa. Colder, h rises throughout.
    static constexpr double turn = 1;
    static constexpr double t_turning = T_13;
    static bool may_turn(double t) noexcept { return t > 520; }
    static double turning_pressure(double t, double ps) noexcept {
        const double start = 6.6 + 1.05 * (t - 523.15);  // the minima lie nearly on a line
        return bracketed_newton([t](double p) noexcept { return region1::h_p_tangent_p(p, t); },
                                0.0, ps, p_max, std::clamp(start, ps, p_max), inverse::step_p)
            .x;
    }

    template <class TangentOf>
    static double vapour_pressure(TangentOf tangent, double t, double h, double h_lowest,
                                  double p_highest, double h_highest) noexcept {
        const double share = (h_lowest - h) / (h_lowest - h_highest);
        const double start = p_min + (p_highest - p_min) * share;
        return bracketed_newton([=](double p) noexcept { return tangent(p, t); }, h, p_min,
                                p_highest, start, inverse::step_p)
            .x;
    }
};

}  // namespace

inverse::IsothermState lowest(double t, double h) noexcept {
    return inverse::lowest<Enthalpy>(t, h);
}
inverse::IsothermState next(double t, double h) noexcept { return inverse::next<Enthalpy>(t, h); }

}  // namespace vaprix::th
