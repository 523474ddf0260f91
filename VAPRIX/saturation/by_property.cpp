// SPDX-License-Identifier: MIT
#include "saturation/by_property.hpp"

#include <algorithm>
#include <type_traits>

#include "frame/bracketed_newton.hpp"
#include "frame/bracketed_secant.hpp"
#include "frame/elementary.hpp"
#include "frame/polynomial.hpp"
#include "inverse/second_variable.hpp"
#include "regions/tables/saturated_limits.hpp"

namespace vaprix::saturation {
namespace {

using inverse::Enthalpy;
using inverse::Entropy;
using tables::SaturatedLimits;

// Properties of a phase up to 623.15 K and their slopes along the saturation line, dy/dT = (dy/dT)_p
// + (dy/dp)_T dps/dT.
template <Phase phase>
using EquationOf = std::conditional_t<phase == Phase::liquid, region1, region2>;

template <Phase phase>
Tangent<double> density_tangent(double t) noexcept {
    const Tangent<double> ps = psat_tangent(t);
    const Tangent<double> v = EquationOf<phase>::v_tangent_p(ps.y, t);
    const double v_t = EquationOf<phase>::v_t(ps.y, t);
    return {1 / v.y, -(v_t + v.y_x * ps.y_x) / (v.y * v.y)};
}

template <Phase phase, class Y>
Tangent<double> tangent(double t) noexcept {
    using Equation = EquationOf<phase>;
    const auto [p, p_t] = psat_tangent(t);
    const Tangent<double> y = Y::template tangent<Equation>(p, t);
    const double y_p = Y::slope_by_p(t, Equation::v(p, t), Equation::v_t(p, t));
    return {y.y - inverse::along_isobar<Y, Equation>(p, 0.0), y.y_x + y_p * p_t};
}

double density(double d, double /* t */) noexcept { return d; }

template <auto const& polynomial_of>
double start_at(double x) noexcept {
    return evaluate<polynomial_of>(x, 1.0);
}

// What the start values of a property are polynomials in.
template <const SaturatedLimits& limits>
double below_maximum(double y) noexcept {
    return sqrt(std::max(0.0, limits.y_max - y));
}
template <const SaturatedLimits& limits>
double reduced(double y) noexcept {
    return y * (1 / limits.y_crit);
}

// One property of one phase: above 623.15 K by density and temperature, its tangent below, its
// limits, its start value for the search up to 623.15 K; those with a maximum have one for its cold
// side too.
template <Phase phase_of, auto dense_of, auto tangent_of, const SaturatedLimits& limits_of,
          const auto& start_of, auto variable_of>
struct Saturated {
    static constexpr Phase phase = phase_of;
    static constexpr auto dense = dense_of;
    static constexpr auto tangent = tangent_of;
    static constexpr const SaturatedLimits& limits = limits_of;
    static constexpr auto warm = polynomial(start_of);
    static constexpr auto variable = variable_of;
};
struct LiquidDensity
    : Saturated<Phase::liquid, density, density_tangent<Phase::liquid>, tables::limits_d1,
                tables::start_d1, below_maximum<tables::limits_d1>> {
    static constexpr auto cold = polynomial(tables::start_d1_cold);
};
using VapourDensity = Saturated<Phase::vapour, density, density_tangent<Phase::vapour>,
                                tables::limits_d2, tables::start_d2, log<double>>;
using LiquidEnthalpy = Saturated<Phase::liquid, region3::h, tangent<Phase::liquid, Enthalpy>,
                                 tables::limits_h1, tables::start_h1, reduced<tables::limits_h1>>;
struct VapourEnthalpy
    : Saturated<Phase::vapour, region3::h, tangent<Phase::vapour, Enthalpy>, tables::limits_h2,
                tables::start_h2, below_maximum<tables::limits_h2>> {
    static constexpr auto cold = polynomial(tables::start_h2_cold);
};
using LiquidEntropy = Saturated<Phase::liquid, region3::s, tangent<Phase::liquid, Entropy>,
                                tables::limits_s1, tables::start_s1, reduced<tables::limits_s1>>;
using VapourEntropy = Saturated<Phase::vapour, region3::s, tangent<Phase::vapour, Entropy>,
                                tables::limits_s2, tables::start_s2, reduced<tables::limits_s2>>;

bool between(double y, double a, double b) noexcept {
    return y >= std::min(a, b) && y <= std::max(a, b);
}

template <class Property>
double newton_from(double start, double y, double low, double high) noexcept {
    constexpr double step = 1e-8;  // relative, after which the error is one of rounding
    return bracketed_newton(Property::tangent, y, low, high, std::clamp(start, low, high), step).x;
}

// Above 623.15 K. The property bends like the square root of the distance from the critical point
// while the densities are solved, like the cube root where they are estimated: in these it is
// nearly a straight line.
template <class Property>
double t_dense(double y) noexcept {
    constexpr const SaturatedLimits& limits = Property::limits;
    const auto solve = [y](auto t_of, Residual<double> cold, Residual<double> hot,
                           double step) noexcept {
        const auto excess = [=](double x) noexcept {
            const double t = t_of(x);
            const SaturatedDensities d = dsat3(t, psat(t));
            return Property::dense(Property::phase == Phase::liquid ? d.liquid : d.vapour, t) - y;
        };
        return t_of(bracketed_secant(excess, cold, hot, step).x);
    };
    if (between(y, limits.y_13_dense, limits.y_solved)) {
        constexpr double step = 1e-12;  // relative, as a root beside an end is approached slowly
        const auto t_of = [](double u) noexcept {
            return std::min(T_crit * (1 - u * u), tables::t_solved);
        };
        const Residual<double> cold{sqrt(1 - T_13 / T_crit), limits.y_13_dense - y};
        const Residual<double> hot{sqrt(1 - tables::t_solved / T_crit), limits.y_solved - y};
        return solve(t_of, cold, hot, step);
    }
    constexpr double step = 1e-5;  // a smaller one is soon less than the spacing of temperatures
    const auto t_of = [](double x) noexcept { return T_crit * (1 - x * x * x); };
    const Residual<double> cold{cbrt(1 - tables::t_solved / T_crit), limits.y_estimated - y};
    const Residual<double> hot{0, limits.y_crit - y};
    return solve(t_of, cold, hot, step);
}

constexpr NewtonRoot<double> nowhere{0, false};
constexpr NewtonRoot<double> at(double t) noexcept { return {t, true}; }

constexpr double rounding = 2e-15;  // relative, of a limit

// A value beyond the greatest one by no more than rounding is that one.
double up_to_maximum(const SaturatedLimits& limits, double y) noexcept {
    return y > limits.y_max && y <= limits.y_max * (1 + rounding) ? limits.y_max : y;
}

// The branch that reaches the critical point, from the maximum or from 273.15 K.
template <class Property>
NewtonRoot<double> t_warm(double y_given) noexcept {
    constexpr const SaturatedLimits& limits = Property::limits;
    const double y = up_to_maximum(limits, y_given);
    if (between(y, limits.y_max, limits.y_13)) {
        const double start = start_at<Property::warm>(Property::variable(y));
        return at(newton_from<Property>(start, y, limits.t_max, T_13));
    }
    // beside the first densities solved, as far as they are exact
    constexpr double exactness = 5e-12;  // relative
    if (fabs(y - limits.y_13_dense) <= exactness * limits.y_13_dense) return at(T_13_dense);
    // between the two equations that meet at 623.15 K
    if (between(y, limits.y_13, limits.y_13_dense)) return at(T_13);
    if (fabs(y - limits.y_crit) <= rounding * limits.y_crit) return at(T_crit);
    return between(y, limits.y_13_dense, limits.y_crit) ? at(t_dense<Property>(y)) : nowhere;
}

template <class Property>
NewtonRoot<double> t_cold(double y_given) noexcept {
    constexpr const SaturatedLimits& limits = Property::limits;
    const double y = up_to_maximum(limits, y_given);
    if (!between(y, limits.y_min, limits.y_max)) return nowhere;
    const double start = start_at<Property::cold>(Property::variable(y));
    return at(newton_from<Property>(start, y, T_min, limits.t_max));
}

}  // namespace

NewtonRoot<double> t_liquid_d(double d) noexcept { return t_warm<LiquidDensity>(d); }
NewtonRoot<double> t_vapour_d(double d) noexcept { return t_warm<VapourDensity>(d); }
NewtonRoot<double> t_liquid_h(double h) noexcept { return t_warm<LiquidEnthalpy>(h); }
NewtonRoot<double> t_vapour_h(double h) noexcept { return t_warm<VapourEnthalpy>(h); }
NewtonRoot<double> t_liquid_s(double s) noexcept { return t_warm<LiquidEntropy>(s); }
NewtonRoot<double> t_vapour_s(double s) noexcept { return t_warm<VapourEntropy>(s); }
NewtonRoot<double> t_cold_liquid_d(double d) noexcept { return t_cold<LiquidDensity>(d); }
NewtonRoot<double> t_cold_vapour_h(double h) noexcept { return t_cold<VapourEnthalpy>(h); }

}  // namespace vaprix::saturation
