// SPDX-License-Identifier: MIT
//
// Boundaries between the regions of (h, s): enthalpy, kJ/kg, of s, kJ/(kg K), and the temperature
// of the boundary between regions 2 and 3.
// Given:    s, and h, in the range of the equation; nothing is checked.
// Failure:  none.
// Source:   IAPWS SR4-04(2014), Eqs. (3) to (8), Tables 9, 10, 16, 17, 23 and 25.
#pragma once

#include "frame/elementary.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/boundaries_hs.hpp"

namespace vaprix::boundaries_hs {

// Where one boundary hands over to the next, kJ/(kg K).
inline constexpr double s_liquid_min = -1.545495919e-4;  // saturated liquid at 273.15 K
inline constexpr double s_13_min = 3.397782955;          // 100 MPa and 623.15 K
inline constexpr double s_liquid_13 = 3.778281340;       // saturated liquid at 623.15 K
inline constexpr double s_23_min = 5.048096828;          // lowest entropy of the B23 line
inline constexpr double s_vapour_13 = 5.210887825;       // saturated vapour at 623.15 K
inline constexpr double s_23_max = 5.260578707;          // highest entropy of the B23 line
inline constexpr double s_vapour_max = 9.155759395;      // saturated vapour at 273.15 K
inline constexpr double h_23_min = 2563.592004;          // saturated vapour at 623.15 K, kJ/kg
inline constexpr double h_23_max = 2812.942061;          // 100 MPa and 863.15 K, kJ/kg

// Saturated liquid, s_liquid_min to s_liquid_13 (beside region 1), and on to s_crit (beside 3a).
template <class Number>
[[nodiscard]] Number h_liquid_1(Number s) noexcept;
template <class Number>
[[nodiscard]] Number h_liquid_3a(Number s) noexcept;

// Saturated vapour, s_crit to 5.85 (beside 3b and 2c), and on to s_vapour_max (beside 2a and 2b).
template <class Number>
[[nodiscard]] Number h_vapour_2c3b(Number s) noexcept;
template <class Number>
[[nodiscard]] Number h_vapour_2ab(Number s) noexcept;

// Boundary of regions 1 and 3, the isotherm 623.15 K: s_13_min to s_liquid_13.
template <class Number>
[[nodiscard]] Number h_13(Number s) noexcept;

// Temperature, K, of the boundary of regions 2 and 3: s_23_min to s_23_max, h_23_min to h_23_max.
template <class Number>
[[nodiscard]] Number t_23(Number h, Number s) noexcept;

extern template double h_liquid_1(double) noexcept;
extern template double h_liquid_3a(double) noexcept;
extern template double h_vapour_2c3b(double) noexcept;
extern template double h_vapour_2ab(double) noexcept;
extern template double h_13(double) noexcept;
extern template double t_23(double, double) noexcept;

namespace detail {

// h = 1700 sum n (sigma - 1.09)^I (sigma + 0.366e-4)^J, sigma = s / 3.8
template <auto const& Terms, class Number>
Number h_liquid(Number s) noexcept {
    const Number sigma = s / 3.8;
    static constexpr auto enthalpy = 1700 * polynomial(Terms);
    return evaluate<enthalpy>(sigma - 1.09, sigma + 0.366e-4);
}

}  // namespace detail

// Eqs. (3) and (4)
template <class Number>
Number h_liquid_1(Number s) noexcept {
    return detail::h_liquid<tables::h1_liq_s>(s);
}
template <class Number>
Number h_liquid_3a(Number s) noexcept {
    return detail::h_liquid<tables::h3a_liq_s>(s);
}

// Eq. (5): h = 2800 exp(sum n (5.21/s - 0.513)^I (s/9.2 - 0.524)^J)
template <class Number>
Number h_vapour_2ab(Number s) noexcept {
    return 2800 * exp(evaluate_table<tables::h2ab_vap_s>(5.21 / s - 0.513, s / 9.2 - 0.524));
}

// Eq. (6): h = 2800 (sum n (sigma - 1.02)^I (sigma - 0.726)^J)^4, sigma = s / 5.9
template <class Number>
Number h_vapour_2c3b(Number s) noexcept {
    const Number sigma = s / 5.9;
    return 2800 * power<4>(evaluate_table<tables::h2c3b_vap_s>(sigma - 1.02, sigma - 0.726));
}

// Eq. (7): h = 1700 sum n (sigma - 0.884)^I (sigma - 0.864)^J, sigma = s / 3.8
template <class Number>
Number h_13(Number s) noexcept {
    static constexpr auto enthalpy = 1700 * polynomial(tables::hb13_s);
    const Number sigma = s / 3.8;
    return evaluate<enthalpy>(sigma - 0.884, sigma - 0.864);
}

// Eq. (8): T = 900 K sum n (h / 3000 - 0.727)^I (s / 5.3 - 0.864)^J
template <class Number>
Number t_23(Number h, Number s) noexcept {
    static constexpr auto temperature = 900 * polynomial(tables::tb23_hs);
    return evaluate<temperature>(h / 3000 - 0.727, s / 5.3 - 0.864);
}

}  // namespace vaprix::boundaries_hs
