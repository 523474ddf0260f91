// SPDX-License-Identifier: MIT
//
// Static dielectric constant (relative permittivity) of water and steam.
// Given:    t  temperature, K, above 228;  d  density, kg/m3; nothing is checked.
// Source:   IAPWS R8-97, Eqs. (3) to (7), Tables 1 and 2.
#pragma once

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "transport/tables/dielectric.hpp"

namespace vaprix::transport {

template <class Number>
[[nodiscard]] Number dielectric_constant(Number t, Number d) noexcept;

extern template double dielectric_constant(double, double) noexcept;

namespace detail {

// A = A_factor d g Tc/T and B = B_factor d. The factors gather the molecular constants of Table 1,
// NA mu^2/(eps0 k Mw Tc) and NA alpha/(3 eps0 Mw) in m3/kg, in the digits that the results have
// always been published with: 7e-14 off the exact products, deliberately.
inline constexpr double A_factor = 0.01592062421480592;
inline constexpr double B_factor = 0.0002058842842420929;

// Harris-Alder g factor: 1 + sum N rr^i (Tc/T)^j + N12 rr (T/228 - 1)^-1.2
template <class Number>
Number g_factor(Number t, Number y, Number r) noexcept {
    const Number last = tables::dielectric::last * r * pow(t / 228 - 1, -1.2);
    return 1 + evaluate_table<tables::dielectric::terms>(r, sqrt(sqrt(y))) + last;
}

}  // namespace detail

// eps = (1 + A + 5 B + sqrt(9 + 2 A + 18 B + A^2 + 10 A B + 9 B^2)) / (4 - 4 B)
template <class Number>
Number dielectric_constant(Number t, Number d) noexcept {
    const Number y = T_crit / t;
    const Number A = detail::A_factor * d * detail::g_factor(t, y, d / d_crit) * y;
    const Number B = detail::B_factor * d;
    const Number radicand = 9 + 2 * A + 18 * B + A * A + 10 * A * B + 9 * B * B;
    return (1 + A + 5 * B + signed_sqrt(radicand)) / (4 - 4 * B);
}

}  // namespace vaprix::transport
