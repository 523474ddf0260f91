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

// sqrt(Tr) sum a_k Tr^k, given both
template <class Number>
Number dilute(Number tr, Number root) noexcept {
    return root * (a0 + tr * (a1 + tr * (a2 + tr * a3)));
}

// b0 + b1 rr + b2 exp(B1 (rr + B2)^2)
template <class Number>
Number dense(Number r) noexcept {
    const Number shifted = r + B2;
    return b0 + b1 * r + b2 * clamped_exp(B1 * (shifted * shifted));
}

// (d1/Tr^10 + d2) rr^(9/5) exp(C1 (1 - rr^(14/5)))
template <class Number>
Number compressed(Number tr, Number r, const RealPowers<Number>& of_r) noexcept {
    const Number y = 1 / tr;
    const Number y2 = y * y;
    const Number y4 = y2 * y2;
    const Number power = of_r.to(1.8);
    return (d1 * (y4 * y4 * y2) + d2) * power * clamped_exp(C1 * (1 - power * r));
}

// d3 S rr^Q exp(Q/(1 + Q) (1 - rr^(1 + Q))): the region around the critical point
template <class Number>
Number critical(Number t, Number r, const RealPowers<Number>& of_r) noexcept {
    const Number distance = fabs(t - T_star) / T_star + C4;
    const Number reciprocal = 1 / pow(distance, 0.6);
    const Number Q = 2 + C5 * reciprocal;
    const Number S = machine::select(t >= T_star, 1 / distance, C6 * reciprocal);
    const Number power = of_r.to(Q);
    return d3 * S * power * clamped_exp(Q / (1 + Q) * (1 - power * r));
}

// d4 exp(C2 Tr^(3/2) + C3/rr^5), left out where it is smaller than 1e-85
template <class Number>
Number liquid(Number tr, Number root, Number r) noexcept {
    const auto dense = r >= 0.5;
    if (machine::none(dense)) return Number(0);
    const Number held = machine::select(dense, r, Number(1));
    const Number r2 = held * held;
    return machine::select(dense, d4 * clamped_exp(C2 * (tr * root) + C3 / (r2 * r2 * held)), 0.0);
}

}  // namespace detail::conductivity

template <class Number>
Number conductivity(Number t, Number d) noexcept {
    using namespace detail::conductivity;
    const Number tr = t / T_star;
    const Number r = d / rho_star;
    const Number root = signed_sqrt(tr);
    const RealPowers<Number> of_r(r);
    return dilute(tr, root) + dense(r) +
           (compressed(tr, r, of_r) + critical(t, r, of_r) + liquid(tr, root, r));
}

}  // namespace vaprix::transport
