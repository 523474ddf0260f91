// SPDX-License-Identifier: MIT
//
// Derived properties of a single-phase state.
// Source: IAPWS R7-97(2012) for the equations and the symbols; IAPWS AN3-07(2018) for the
//         derivatives.
#pragma once

#include <cmath>
#include <limits>

#include "frame/guarded_math.hpp"
#include "regions/derivatives.hpp"
#include "regions/saturation_line.hpp"
#include "state/properties.hpp"

namespace vaprix::property {

inline constexpr Asked single_phase{.p = true, .single = true};

template <Formula<double> formula>
inline constexpr Property derived{
    region1::derived<formula>, region2::derived<formula>,
    [](const State& at) noexcept { return region3::derived<formula>(at.p, at.d, at.t); },
    region5::derived<formula>, single_phase};

inline constexpr Property alpha_v = derived<formula::alpha_v>;
inline constexpr Property alpha_p = derived<formula::alpha_p>;
inline constexpr Property beta_p = derived<formula::beta_p>;
inline constexpr Property kappa_T = derived<formula::kappa_t>;
inline constexpr Property kappa = derived<formula::kappa>;
inline constexpr Property cp_per_cv = derived<formula::cp_per_cv>;
inline constexpr Property mu = derived<formula::mu>;
inline constexpr Property d_p = derived<formula::d_p>;
inline constexpr Property h_p = derived<formula::h_p>;
inline constexpr Property v_h = derived<formula::v_h>;
inline constexpr Property d_h = derived<formula::d_h>;
inline constexpr Property v_T = derived<formula::v_t>;
inline constexpr Property v_p = derived<formula::v_p>;

// Slope of the saturation temperature, K/MPa, by Eq. (31).
inline constexpr Reading Ts_p{[](const State& at) noexcept { return tsat_p(at.p); }, {.p = true}};

// Compressibility factor p v/(R T), p in MPa.
template <Property::OfPt v_of>
double compressibility(double pressure, double t) noexcept {
    return 1000 * pressure * v_of(pressure, t) / (R * t);
}
inline constexpr Property z{
    compressibility<region1::v>, compressibility<region2::v>,
    [](const State& at) noexcept { return 1000 * at.p / (at.d * R * at.t); },
    compressibility<region5::v>, single_phase};

// The same of the density given, and of wet steam of quality x.
inline constexpr Reading z_of_d{
    [](const State& at) noexcept { return 1000 * at.p / (at.d * R * at.t); }, {.p = true}};
inline constexpr Reading z_of_v{
    [](const State& at) noexcept { return 1000 * at.p * mixed<v>(at) / (R * at.t); },
    {.p = true, .single = true, .wet = true}};

// Specific volume of wet steam, m3/kg: infinite at no pressure but for pure liquid, which is stored,
// not divided for.
inline constexpr Reading v_or_infinite{
    [](const State& at) noexcept {
        return at.p == 0 && at.x > 0 ? std::numeric_limits<double>::infinity() : mixed<v>(at);
    },
    v.asked};

// Gibbs energy of the ideal gas at (p, T), kJ/kg: R T gamma0, of region 2 up to 1073.15 K and of
// region 5 above, whatever the region of the state. Its zero is that of the real fluid.
inline double ideal_gibbs(double pressure, double t) noexcept {
    const double at_1_mpa = t <= T_25 ? region2::ideal_part(t) : region5::ideal_part(t);
    return R * t * (at_1_mpa + guarded_log(pressure));
}
inline constexpr Property g_ideal{ideal_gibbs, ideal_gibbs,
                                  [](const State& at) noexcept { return ideal_gibbs(at.p, at.t); },
                                  ideal_gibbs, single_phase};

// Fugacity p exp((g - g_ideal)/(R T)), MPa. Where region 2 itself has the ideal gas, g - g_ideal is
// its residual part; elsewhere the p before the exponential and the ln p of the ideal gas cancel.
inline double fugacity_of(double gibbs, double t) noexcept {
    return std::exp(gibbs / (R * t) - region2::ideal_part(t));
}
inline constexpr Property fugacity{
    [](double pressure, double t) noexcept { return fugacity_of(region1::g(pressure, t), t); },
    [](double pressure, double t) noexcept {
        return pressure * std::exp(region2::residual_part(pressure, t));
    },
    [](const State& at) noexcept { return fugacity_of(region3::g(at.d, at.t), at.t); },
    [](double pressure, double t) noexcept {
        return pressure * std::exp(region5::residual_part(pressure, t));
    },
    single_phase};

// Change by vaporisation, vapour less liquid.
template <const auto& property>
inline constexpr Reading vaporisation{[](const State& at) noexcept {
                                          return single<property>(vapour_end(at)) -
                                                 single<property>(liquid_end(at));
                                      },
                                      {.wet = true}};
inline constexpr Reading h_vaporisation = vaporisation<h>;
inline constexpr Reading s_vaporisation = vaporisation<s>;

}  // namespace vaprix::property
