// SPDX-License-Identifier: MIT
//
// Energies of the saturation line and temperature of wet steam of (h, s) by the auxiliary equations
// alone: where iterations on the basic equations start.
//
// On the saturation line h = alpha + T v dps/dT and s = phi + v dps/dT for either phase and any
// mixture of them, so that h - T s = alpha - T phi whatever the quality.
// Source: IAPWS SR1-86(1992), Eqs. (4) to (9).
#pragma once

#include <algorithm>

#include "frame/constants.hpp"
#include "frame/elementary.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/saturated_energies.hpp"

namespace vaprix {

// The auxiliary energies of theta = T/Tc.
template <class Number>
struct AuxiliaryEnergies {
    Number alpha;      // kJ/kg
    Number phi;        // times Tc, kJ/kg
    Number phi_theta;  // its slope by theta
};
template <class Number>
[[nodiscard]] AuxiliaryEnergies<Number> auxiliary_energies(Number theta) noexcept;

template <class Number>
struct WetTemperature {
    Number t;    // K
    Number s_t;  // dphi/dT there, kJ/(kg K2): nearly the slope of the entropy of saturated liquid
};

// Given:    h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K).
// Returned: the temperature, held between 273.15 K and the critical one: within 0.09 K from a
//           quality of 0.1, 0.3 K from 0.01 and 1.4 K below.
template <class Number>
[[nodiscard]] WetTemperature<Number> wet_temperature_estimate(Number h, Number s) noexcept;

extern template AuxiliaryEnergies<double> auxiliary_energies(double) noexcept;
extern template WetTemperature<double> wet_temperature_estimate(double, double) noexcept;

namespace detail::energies {

inline constexpr const auto& n = tables::saturated_energies;
inline constexpr double d1 = n[0], d2 = n[1], d3 = n[2], d4 = n[3], d5 = n[4];
inline constexpr double d_alpha = n[5], d_phi = n[6];

}  // namespace detail::energies

// alpha = d_alpha + d1 theta^-19 + d2 theta + d3 theta^4.5 + d4 theta^5 + d5 theta^54.5,
// phi = d_phi + 19/20 d1 theta^-20 + d2 ln theta + 9/7 d3 theta^3.5 + 5/4 d4 theta^4
//       + 109/107 d5 theta^53.5, phi' = alpha' / theta
template <class Number>
AuxiliaryEnergies<Number> auxiliary_energies(Number theta) noexcept {
    using namespace detail::energies;
    const Number cold = d1 * power<19>(1 / theta);
    const Number root = sqrt(theta);
    const Number theta3 = theta * theta * theta;
    const Number hot = d5 * power<53>(theta) * root;
    return {d_alpha + cold + theta * (d2 + theta3 * (d3 * root + d4 * theta)) + hot * theta,
            d_phi + 19.0 / 20 * cold / theta + d2 * log(theta) +
                theta3 * (9.0 / 7 * d3 * root + 5.0 / 4 * d4 * theta) + 109.0 / 107 * hot,
            ((d2 - 19 * cold / theta) + theta3 * (4.5 * d3 * root + 5 * d4 * theta) + 54.5 * hot) /
                theta};
}

// With a = s Tc the equation is f = h - a theta - (alpha - theta phi) = 0, f' = phi - a,
// f'' = phi'.
template <class Number>
WetTemperature<Number> wet_temperature_estimate(Number h, Number s) noexcept {
    constexpr int rounds = 5;
    constexpr double settled = 1e-4;  // step in theta, after which the error is of third order
    constexpr double theta_min = T_min / T_crit;

    const Number a = s * T_crit;
    // alpha - T phi is negative: h / s is on the cold side of the solution
    Number theta = !(a > 0 && h > 0) ? theta_min : h < a ? std::max<Number>(h / a, theta_min) : 1.0;
    Number phi_theta = 0;
    for (int round = 0; round < rounds; ++round) {
        const AuxiliaryEnergies<Number> at = auxiliary_energies(theta);
        phi_theta = at.phi_theta;
        // to the root of the parabola, or, where h is beyond the liquid line, to its vertex
        const Number f = h - a * theta - (at.alpha - theta * at.phi);
        const Number slope = at.phi - a;
        const Number square = std::max<Number>(slope * slope - 2 * f * phi_theta, 0.0);
        const Number next =
            std::clamp<Number>(theta - (slope + sqrt(square)) / phi_theta, theta_min, 1.0);
        const bool done = fabs(next - theta) < settled;
        theta = next;
        if (done) break;
    }
    return {theta * T_crit, phi_theta / (T_crit * T_crit)};
}

}  // namespace vaprix
