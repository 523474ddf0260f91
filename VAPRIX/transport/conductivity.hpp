// SPDX-License-Identifier: MIT
//
// Thermal conductivity of water and steam.
// Given:    t  temperature, K;  d  density, kg/m3, above 0; nothing is checked.
// Returned: W/(m K).
// Source:   IAPWS, Revised Release on the IAPS Formulation 1985 for the Thermal Conductivity of
//           Ordinary Water Substance (1998), in its form for industrial use, with its own reducing
//           quantities 647.26 K and 317.7 kg/m3.
#pragma once

#include "frame/guarded_math.hpp"
#include "transport/tables/conductivity.hpp"

namespace vaprix::transport {

template <class Number>
[[nodiscard]] Number conductivity(Number t, Number d) noexcept;

extern template double conductivity(double, double) noexcept;

namespace detail::conductivity {

using namespace tables::conductivity;

inline constexpr double T_star_reciprocal = 1 / T_star;
inline constexpr double rho_star_reciprocal = 1 / rho_star;

// sqrt(Tr) sum a_k Tr^k, given both
template <class Number>
VAPRIX_INLINE Number dilute(Number tr, Number root) noexcept {
    return root * (a0 + tr * (a1 + tr * (a2 + tr * a3)));
}

// b0 + b1 rr + b2 exp(B1 (rr + B2)^2) + d4 exp(C2 Tr^(3/2) + C3/rr^5), the last left out where it is smaller
// than 1e-85
template <class Number>
VAPRIX_INLINE Number dense(Number tr, Number root, Number r) noexcept {
    const Number shifted = r + B2;
    const Number exponent = B1 * (shifted * shifted);
    const Number linear = b0 + b1 * r;
    const auto liquid = r >= 0.5;
    if (machine::none(liquid)) return linear + b2 * clamped_exp(exponent);
    const Number held = machine::select(liquid, r, Number(1));
    const Number r2 = held * held;
    const machine::Neighbours<Number> both = clamped_exp(
        machine::Neighbours<Number>(exponent, C2 * (tr * root) + C3 / (r2 * r2 * held)));
    return linear + b2 * both.first() + machine::select(liquid, d4 * both.second(), 0.0);
}

// (d1/Tr^10 + d2) rr^(9/5) exp(C1 (1 - rr^(14/5))) and, around the critical point,
// d3 S rr^Q exp(Q/(1 + Q) (1 - rr^(1 + Q)))
template <class Number>
VAPRIX_INLINE Number enhanced(Number t, Number r) noexcept {
    const Number y = T_star / t;
    const Number y2 = y * y;
    const Number y4 = y2 * y2;
    const Number distance = fabs(t - T_star) * T_star_reciprocal + C4;
    const Number reciprocal = Elementary<Number>::to_minus_three_fifths(distance);
    const Number Q = 2 + C5 * reciprocal;
    const Number S = machine::select(t >= T_star, 1 / distance, C6 * reciprocal);
    using Both = machine::Neighbours<Number>;
    const Both power = exp(Both(1.8, Q) * log(r));
    const Both decay = clamped_exp(Both(C1, Q / (1 + Q)) * (Both(1, 1) - power * r));
    const Both terms = Both(d1 * (y4 * y4 * y2) + d2, d3 * S) * power * decay;
    return terms.first() + terms.second();
}

}  // namespace detail::conductivity

template <class Number>
Number conductivity(Number t, Number d) noexcept {
    using namespace detail::conductivity;
    const Number tr = t * T_star_reciprocal;
    const Number r = d * rho_star_reciprocal;
    const Number root = signed_sqrt(tr);
    const Number last = enhanced(t, r);  // takes longest
    return dilute(tr, root) + dense(tr, root, r) + last;
}

}  // namespace vaprix::transport
