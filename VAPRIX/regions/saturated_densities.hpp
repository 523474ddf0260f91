// SPDX-License-Identifier: MIT
//
// Coexisting densities of region 3, on the saturation line from 623.15 K to the critical point.
#pragma once

#include <cstddef>
#include <iterator>
#include <utility>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/region3.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/saturated_densities.hpp"

namespace vaprix {

// Saturated density, kg/m3, of t, K, by the auxiliary equations alone: an estimate, good to 0.1 %
// away from the critical point.
// Source: IAPWS SR1-86(1992), Eqs. (2) and (3).
template <class Number>
[[nodiscard]] Number d_liquid_estimate(Number t) noexcept;
template <class Number>
[[nodiscard]] Number d_vapour_estimate(Number t) noexcept;

template <class Number>
struct SaturatedDensities {
    Number vapour;  // kg/m3
    Number liquid;  // kg/m3
    Number t;       // saturation temperature, K
};

// Densities that coexist at t, K, by the region-3 equation: equal pressure and equal Gibbs energy
// on both sides. The caller has put (t, p) on the saturation line above 623.15 K; nothing is
// checked.
// Notes:  within 1e-5 MPa of the critical pressure the estimates at tsat(p) stand for the solution,
//         deliberately; at the critical pressure itself both densities are 322 kg/m3.
// Source: IAPWS R7-97(2012), Table 31 (Maxwell criterion).
template <class Number>
[[nodiscard]] SaturatedDensities<Number> dsat3(Number t, Number p) noexcept;

extern template double d_liquid_estimate(double) noexcept;
extern template double d_vapour_estimate(double) noexcept;
extern template SaturatedDensities<double> dsat3(double, double) noexcept;

namespace detail {

// A term is exactly zero while its base is at or below its threshold, so that no power underflows.
// The first one of the liquid has none.
inline constexpr double none = -1e300;
inline constexpr double liquid_thresholds[] = {none, 1e-8, 0.0001, 0.1, 0.424528622, 0.715394265};
inline constexpr double vapour_thresholds[] = {1e-8,        0.0001,     0.01,
                                               0.129154966, 0.36946012, 0.595179394};

template <auto const& Terms, auto const& thresholds, class Number>
Number estimate_sum(Number base) noexcept {
    static_assert(std::size(Terms) == std::size(thresholds));
    const auto sum = [base]<std::size_t... k>(std::index_sequence<k...>) {
        return ((base <= thresholds[k] ? Number(0) : Terms[k].n * power<Terms[k].J>(base)) + ...);
    };
    return sum(std::make_index_sequence<std::size(Terms)>{});
}

}  // namespace detail

// d' = 322 (1 + sum b x^J), x = (1 - T/Tc)^(1/3)
template <class Number>
Number d_liquid_estimate(Number t) noexcept {
    const Number x = cbrt(1 - t / T_crit);
    return d_crit *
           (1 +
            detail::estimate_sum<tables::saturated_liquid_density, detail::liquid_thresholds>(x));
}

// d'' = 322 exp(sum c x^J), x = (1 - T/Tc)^(1/6)
template <class Number>
Number d_vapour_estimate(Number t) noexcept {
    const Number x = signed_sqrt(cbrt(1 - t / T_crit));
    return d_crit *
           clamped_exp(
               detail::estimate_sum<tables::saturated_vapour_density, detail::vapour_thresholds>(
                   x));
}

template <class Number>
SaturatedDensities<Number> dsat3(Number t, Number p) noexcept {
    constexpr double near_critical = 1e-5;
    const Number distance = fabs(p - p_crit);
    if (distance < critical_rounding) return {d_crit, d_crit, T_crit};
    if (distance < near_critical) {
        const Number ts = tsat(p);
        return {d_vapour_estimate(ts), d_liquid_estimate(ts), ts};
    }

    constexpr double tolerance = 1e-8;  // relative step that ends the iteration
    constexpr int rounds = 40;

    // Maxwell criterion: the pressure of coexistence is (f' - f'')/(v'' - v'); each density takes a
    // Newton step towards it. From the estimates, which lie outside the pair, the steps do not pass
    // the root.
    const typename Region3<Number>::Isotherm isotherm(t);
    Number d1 = d_liquid_estimate(t);
    Number d2 = d_vapour_estimate(t);
    for (int round = 0; round < rounds; ++round) {
        const Number ps = isotherm.f_difference(d1, d2) * d1 * d2 / (1000 * (d1 - d2));
        const Number step1 = (ps - isotherm.p(d1)) / isotherm.p_d(d1);
        const Number step2 = (ps - isotherm.p(d2)) / isotherm.p_d(d2);
        d1 += step1;
        d2 += step2;
        if (fabs(step1) < tolerance * d1 && fabs(step2) < tolerance * d2) break;
    }
    return {d2, d1, t};
}

}  // namespace vaprix
