// SPDX-License-Identifier: MIT
//
// Coexisting densities of region 3, on the saturation line from 623.15 K to the critical point.
#pragma once

#include <cstddef>
#include <iterator>
#include <utility>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/machine.hpp"
#include "frame/polynomial.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/coexisting_densities.hpp"
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
};

// Root of the distance, K, of t from the critical temperature of the region-3 equation itself: what
// the coexisting densities, and all that goes with them, are smooth in.
template <class Number>
[[nodiscard]] VAPRIX_INLINE Number coexisting_root(Number t) noexcept {
    return signed_sqrt((T_crit - t) + tables::coexisting_t_crit_beyond);
}

// Densities that coexist at a root, from 623.15 K up to the critical temperature, by the region-3
// equation: equal pressure and equal Gibbs energy on both sides. They are expansions of the
// solution, off by 5e-16 of it; nothing is checked.
// Source: IAPWS R7-97(2012), Table 31 (Maxwell criterion); tools/coexisting_densities.
template <class Number>
class CoexistingDensities {
    static constexpr auto& table = tables::coexisting_densities;
    static constexpr double scale = tables::coexisting_pieces_per_root;

    decltype(machine::rounded(Number())) piece;
    Number x;  // within the piece

    // sum a(k) n(k) x^(k - 1) of the terms after the constant one
    template <std::size_t phase, class Weight>
    [[nodiscard]] VAPRIX_INLINE Number sum(Weight a) const noexcept {
        const auto n = [&](std::size_t k) noexcept { return a(k) * coefficient<phase>(k); };
        const Number x2 = x * x;
        const Number x4 = x2 * x2;
        const auto four = [&](std::size_t k) noexcept {
            return (n(k) + n(k + 1) * x) + (n(k + 2) + n(k + 3) * x) * x2;
        };
        return (four(1) + four(5) * x4) + ((n(9) + n(10) * x) + n(11) * x2) * (x4 * x4);
    }
    template <std::size_t phase>
    [[nodiscard]] VAPRIX_INLINE Number coefficient(std::size_t k) const noexcept {
        return machine::entry(&table[0][k][phase], piece * (sizeof table[0] / sizeof(double)));
    }

public:
    static constexpr std::size_t liquid = 0, vapour = 1;

    VAPRIX_INLINE explicit CoexistingDensities(Number root) noexcept {
        constexpr double end = static_cast<double>(std::size(table)) - 0.5;
        const Number scaled = scale * root;
        const Number held = machine::select((scaled > 0) & (scaled < end), scaled, 0.0);
        piece = machine::rounded(held);
        x = scaled - ((held + 0x1p52) - 0x1p52);
    }

    // kg/m3; of the constant term only this sum rounds
    template <std::size_t phase>
    [[nodiscard]] VAPRIX_INLINE Number density() const noexcept {
        return coefficient<phase>(0) + x * sum<phase>([](std::size_t) { return 1.0; });
    }

    // derivative by the root
    template <std::size_t phase>
    [[nodiscard]] VAPRIX_INLINE Number slope() const noexcept {
        return scale * sum<phase>([](std::size_t k) { return static_cast<double>(k); });
    }
};

// Distance from the critical pressure, MPa, within which the estimates stand for the solution.
inline constexpr double estimated_zone = 1e-5;

// Densities that coexist at t, K, for a caller who has put (t, p) on the saturation line above
// 623.15 K; nothing is checked.
// Notes:  within 1e-5 MPa of the critical pressure the estimates at tsat(p) stand for the solution,
//         deliberately; at the critical pressure itself both densities are 322 kg/m3. Several
//         states at a time are never so close to it.
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
SaturatedDensities<Number> dsat3(Number t, [[maybe_unused]] Number p) noexcept {
    if constexpr (!requires { Number::lanes; }) {
        const Number distance = fabs(p - p_crit);
        if (distance < critical_rounding) return {d_crit, d_crit};
        if (distance < estimated_zone) {
            const Number ts = tsat(p);
            return {d_vapour_estimate(ts), d_liquid_estimate(ts)};
        }
    }
    const CoexistingDensities<Number> at(coexisting_root(t));
    return {at.template density<at.vapour>(), at.template density<at.liquid>()};
}

}  // namespace vaprix
