// SPDX-License-Identifier: MIT
#include "saturation/by_property.hpp"

#include <algorithm>
#include <type_traits>

#include "frame/bracketed_newton.hpp"
#include "frame/bracketed_secant.hpp"
#include "frame/elementary.hpp"
#include "frame/polynomial.hpp"
#include "inverse/second_variable.hpp"
#include "regions/region3.hpp"
#include "regions/saturated_densities.hpp"
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

// Properties of region 3 and their slopes by density and temperature.
struct DenseTangent {
    double y, y_d, y_t;
};
DenseTangent density(double d, double /* t */) noexcept { return {d, 1, 0}; }
template <TangentPair<double> (*tangents)(double, double)>
DenseTangent second_of(double d, double t) noexcept {
    const TangentPair<double> at = tangents(d, t);
    return {at.b, at.b_x, at.b_y};
}
constexpr auto dense_enthalpy = second_of<region3::ph_tangents>;
constexpr auto dense_entropy = second_of<region3::ps_tangents>;

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

template <const SaturatedLimits& limits>
double beside_critical(double y) noexcept {
    return y * (1 / limits.y_crit) - 1;
}

// One property of one phase: above 623.15 K by density and temperature, its tangent below, its
// limits, its start values for the search above 623.15 K and up to there; those with a maximum have
// one for its cold side too.
template <Phase phase_of, auto dense_of, auto tangent_of, const SaturatedLimits& limits_of,
          const auto& start_dense_of, const auto& start_of, auto variable_of>
struct Saturated {
    static constexpr Phase phase = phase_of;
    static constexpr auto dense = dense_of;
    static constexpr auto tangent = tangent_of;
    static constexpr const SaturatedLimits& limits = limits_of;
    static constexpr auto hot = polynomial(start_dense_of);
    static constexpr auto warm = polynomial(start_of);
    static constexpr auto variable = variable_of;
};
struct LiquidDensity
    : Saturated<Phase::liquid, density, density_tangent<Phase::liquid>, tables::limits_d1,
                tables::start_d1_dense, tables::start_d1, below_maximum<tables::limits_d1>> {
    static constexpr auto cold = polynomial(tables::start_d1_cold);
};
using VapourDensity =
    Saturated<Phase::vapour, density, density_tangent<Phase::vapour>, tables::limits_d2,
              tables::start_d2_dense, tables::start_d2, log<double>>;
using LiquidEnthalpy =
    Saturated<Phase::liquid, dense_enthalpy, tangent<Phase::liquid, Enthalpy>, tables::limits_h1,
              tables::start_h1_dense, tables::start_h1, reduced<tables::limits_h1>>;
struct VapourEnthalpy
    : Saturated<Phase::vapour, dense_enthalpy, tangent<Phase::vapour, Enthalpy>, tables::limits_h2,
                tables::start_h2_dense, tables::start_h2, below_maximum<tables::limits_h2>> {
    static constexpr auto cold = polynomial(tables::start_h2_cold);
};
using LiquidEntropy =
    Saturated<Phase::liquid, dense_entropy, tangent<Phase::liquid, Entropy>, tables::limits_s1,
              tables::start_s1_dense, tables::start_s1, reduced<tables::limits_s1>>;
using VapourEntropy =
    Saturated<Phase::vapour, dense_entropy, tangent<Phase::vapour, Entropy>, tables::limits_s2,
              tables::start_s2_dense, tables::start_s2, reduced<tables::limits_s2>>;

bool between(double y, double a, double b) noexcept {
    return y >= std::min(a, b) && y <= std::max(a, b);
}

template <class Property>
double newton_from(double start, double y, double low, double high) noexcept {
    constexpr double step = 1e-8;  // relative, after which the error is one of rounding
    return bracketed_newton(Property::tangent, y, low, high, std::clamp(start, low, high), step).x;
}

// Above 623.15 K, where the densities are expansions, by Newton's method along the root that they are
// expanded in.
template <class Property>
double t_solved(double y) noexcept {
    using Densities = CoexistingDensities<double>;
    constexpr std::size_t phase =
        Property::phase == Phase::liquid ? Densities::liquid : Densities::vapour;
    constexpr double step = 1e-8;  // relative, after which the error is one of rounding
    const auto t_of = [](double root) noexcept {
        return std::clamp(T_crit - (root * root - tables::coexisting_t_crit_beyond), T_13_dense,
                          tables::t_solved);
    };
    const auto along_line = [t_of](double root) noexcept -> Tangent<double> {
        const Densities at(root);
        const DenseTangent f = Property::dense(at.density<phase>(), t_of(root));
        return {f.y, f.y_d * at.slope<phase>() - 2 * root * f.y_t};
    };
    const double low = coexisting_root(tables::t_solved);
    const double high = coexisting_root(T_13_dense);
    const double start = start_at<Property::hot>(beside_critical<Property::limits>(y));
    return t_of(bracketed_newton(along_line, y, low, high, std::clamp(start, low, high), step).x);
}

// Beside the critical point, where the densities are estimated. The property bends like the cube
// root of the distance from it.
template <class Property>
double t_estimated(double y) noexcept {
    constexpr double step =
        1e-5;  // relative: a smaller one is soon less than the spacing of temperatures
    const auto t_of = [](double x) noexcept { return T_crit * (1 - x * x * x); };
    const auto excess = [=](double x) noexcept {
        const double t = t_of(x);
        const SaturatedDensities d = dsat3(t, psat(t));
        return Property::dense(Property::phase == Phase::liquid ? d.liquid : d.vapour, t).y - y;
    };
    const Residual<double> cold{cbrt(1 - tables::t_solved / T_crit),
                                Property::limits.y_estimated - y};
    const Residual<double> hot{0, Property::limits.y_crit - y};
    return t_of(bracketed_secant(excess, cold, hot, step).x);
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
    if (fabs(y - limits.y_13_dense) <= rounding * limits.y_13_dense) return at(T_13_dense);
    // between the two equations that meet at 623.15 K
    if (between(y, limits.y_13, limits.y_13_dense)) return at(T_13);
    if (fabs(y - limits.y_crit) <= rounding * limits.y_crit) return at(T_crit);
    if (between(y, limits.y_13_dense, limits.y_solved)) return at(t_solved<Property>(y));
    return between(y, limits.y_13_dense, limits.y_crit) ? at(t_estimated<Property>(y)) : nowhere;
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
