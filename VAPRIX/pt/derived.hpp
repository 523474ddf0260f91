// SPDX-License-Identifier: MIT
//
// Derived properties of a single-phase state, each as the functions that evaluate it in the
// regions.
// Source: IAPWS R7-97(2012) for the equations and the symbols; IAPWS AN3-07(2018) for the
//         derivatives.
#pragma once

#include <cmath>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "pt/properties.hpp"
#include "regions/derivatives.hpp"

namespace vaprix::pt {

// Wherever a Property stands a DerivedProperty may. It takes a state of region 3 by pressure,
// density and temperature: the pressure in a formula is the one given, not the one that the density
// gives back.
struct DerivedProperty {
    using Dense = double (*)(double, double, double) noexcept;
    Property::Function region1, region2, region5;  // of (p, T)
    Dense dense;                                   // region 3, of (p, density, T)

    // Of a state of region 3 without a pressure of its own.
    [[nodiscard]] double region3(double d, double t) const noexcept {
        return dense(region3::p(d, t), d, t);
    }
};

template <Formula<double> formula>
inline constexpr DerivedProperty derived{region1::derived<formula>, region2::derived<formula>,
                                         region5::derived<formula>, region3::derived<formula>};

inline constexpr DerivedProperty alpha_v = derived<formula::alpha_v>;
inline constexpr DerivedProperty alpha_p = derived<formula::alpha_p>;
inline constexpr DerivedProperty beta_p = derived<formula::beta_p>;
inline constexpr DerivedProperty kappa_t = derived<formula::kappa_t>;
inline constexpr DerivedProperty kappa = derived<formula::kappa>;
inline constexpr DerivedProperty cp_per_cv = derived<formula::cp_per_cv>;
inline constexpr DerivedProperty mu = derived<formula::mu>;
inline constexpr DerivedProperty d_p = derived<formula::d_p>;
inline constexpr DerivedProperty h_p = derived<formula::h_p>;
inline constexpr DerivedProperty v_h = derived<formula::v_h>;
inline constexpr DerivedProperty d_h = derived<formula::d_h>;
inline constexpr DerivedProperty v_t = derived<formula::v_t>;
inline constexpr DerivedProperty v_p = derived<formula::v_p>;

// Compressibility factor p v/(R T).
template <Property::Function v_of>
double compressibility(double p, double t) noexcept {
    return 1000 * p * v_of(p, t) / (R * t);
}
inline constexpr DerivedProperty z{
    compressibility<region1::v>, compressibility<region2::v>, compressibility<region5::v>,
    [](double p, double d, double t) noexcept { return 1000 * p / (d * R * t); }};

// Gibbs energy of the ideal gas at (p, T), kJ/kg: R T gamma0, of region 2 up to 1073.15 K and of
// region 5 above, whatever the region of the state. Its zero is that of the real fluid.
inline double ideal_gibbs(double p, double t) noexcept {
    const double at_1_mpa = t <= T_25 ? region2::ideal_part(t) : region5::ideal_part(t);
    return R * t * (at_1_mpa + guarded_log(p));
}
inline constexpr DerivedProperty g_ideal{
    ideal_gibbs, ideal_gibbs, ideal_gibbs,
    [](double p, double, double t) noexcept { return ideal_gibbs(p, t); }};

// Fugacity p exp((g - g_ideal)/(R T)), MPa. Where region 2 itself has the ideal gas, g - g_ideal is
// its residual part; elsewhere the p before the exponential and the ln p of the ideal gas cancel.
inline double fugacity_of(double gibbs, double t) noexcept {
    return std::exp(gibbs / (R * t) - region2::ideal_part(t));
}
inline constexpr DerivedProperty fugacity{
    [](double p, double t) noexcept { return fugacity_of(region1::g(p, t), t); },
    [](double p, double t) noexcept { return p * std::exp(region2::residual_part(p, t)); },
    [](double p, double t) noexcept { return p * std::exp(region5::residual_part(p, t)); },
    [](double, double d, double t) noexcept { return fugacity_of(region3::g(d, t), t); }};

}  // namespace vaprix::pt
