// SPDX-License-Identifier: MIT
//
// Backward equations of region 3 by (p, h), (p, s) and (h, s).
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Failure:  none.
// Source:   IAPWS SR3-03(2014), Eqs. (1) to (11), Tables 2 to 19; IAPWS SR4-04(2014), Eqs. (1) and
//           (2), Tables 3 and 4.
#pragma once

#include "frame/polynomial.hpp"
#include "regions/region3.hpp"
#include "regions/tables/region3_backward.hpp"

namespace vaprix {

namespace detail {

// Reducing quantities of subregions 3a and 3b of (p, h) and (p, s), and of the saturation pressure.
inline constexpr double p_star = 100;                            // MPa
inline constexpr double T_star_3a = 760, T_star_3b = 860;        // K
inline constexpr double v_star_3a = 0.0028, v_star_3b = 0.0088;  // m3/kg
inline constexpr double p_star_sat = 22;                         // MPa

}  // namespace detail

// Eq. (1). A state on the line belongs to 3a.
template <class Number>
Number Region3<Number>::h3ab(Number p) noexcept {
    constexpr const auto& n = tables::h3ab;
    return ((n[3] * p + n[2]) * p + n[1]) * p + n[0];
}

// Eqs. (2) and (3)
template <class Number>
VAPRIX_INLINE Number Region3<Number>::t3a_ph(Number p, Number h) noexcept {
    return detail::T_star_3a *
           evaluate_table<tables::t3a_ph>(p / detail::p_star + 0.240, h / 2300 - 0.615);
}
template <class Number>
VAPRIX_INLINE Number Region3<Number>::t3b_ph(Number p, Number h) noexcept {
    return detail::T_star_3b *
           evaluate_table<tables::t3b_ph>(p / detail::p_star + 0.298, h / 2800 - 0.720);
}
template <class Number>
Number Region3<Number>::t_ph(Number p, Number h) noexcept {
    return is_3a_ph(p, h) ? t3a_ph(p, h) : t3b_ph(p, h);
}

// Eqs. (4) and (5)
template <class Number>
VAPRIX_INLINE Number Region3<Number>::v3a_ph(Number p, Number h) noexcept {
    return detail::v_star_3a *
           evaluate_table<tables::v3a_ph>(p / detail::p_star + 0.128, h / 2100 - 0.727);
}
template <class Number>
VAPRIX_INLINE Number Region3<Number>::v3b_ph(Number p, Number h) noexcept {
    return detail::v_star_3b *
           evaluate_table<tables::v3b_ph>(p / detail::p_star + 0.0661, h / 2800 - 0.720);
}
template <class Number>
Number Region3<Number>::v_ph(Number p, Number h) noexcept {
    return is_3a_ph(p, h) ? v3a_ph(p, h) : v3b_ph(p, h);
}

// Eqs. (6) and (7)
template <class Number>
VAPRIX_INLINE Number Region3<Number>::t3a_ps(Number p, Number s) noexcept {
    return detail::T_star_3a *
           evaluate_table<tables::t3a_ps>(p / detail::p_star + 0.240, s / 4.4 - 0.703);
}
template <class Number>
VAPRIX_INLINE Number Region3<Number>::t3b_ps(Number p, Number s) noexcept {
    return detail::T_star_3b *
           evaluate_table<tables::t3b_ps>(p / detail::p_star + 0.760, s / 5.3 - 0.818);
}
template <class Number>
Number Region3<Number>::t_ps(Number p, Number s) noexcept {
    return is_3a_ps(p, s) ? t3a_ps(p, s) : t3b_ps(p, s);
}

// Eqs. (8) and (9)
template <class Number>
VAPRIX_INLINE Number Region3<Number>::v3a_ps(Number p, Number s) noexcept {
    return detail::v_star_3a *
           evaluate_table<tables::v3a_ps>(p / detail::p_star + 0.187, s / 4.4 - 0.755);
}
template <class Number>
VAPRIX_INLINE Number Region3<Number>::v3b_ps(Number p, Number s) noexcept {
    return detail::v_star_3b *
           evaluate_table<tables::v3b_ps>(p / detail::p_star + 0.298, s / 5.3 - 0.816);
}
template <class Number>
Number Region3<Number>::v_ps(Number p, Number s) noexcept {
    return is_3a_ps(p, s) ? v3a_ps(p, s) : v3b_ps(p, s);
}

// Eq. (10)
template <class Number>
Number Region3<Number>::p3sat_h(Number h) noexcept {
    const Number eta = h / 2600;
    return detail::p_star_sat * evaluate_table<tables::p3sat_h>(eta - 1.02, eta - 0.608);
}

// Eq. (11)
template <class Number>
Number Region3<Number>::p3sat_s(Number s) noexcept {
    const Number sigma = s / 5.2;
    return detail::p_star_sat * evaluate_table<tables::p3sat_s>(sigma - 1.03, sigma - 0.699);
}

// Eqs. (1) and (2); 3b is fitted as p*/p
template <class Number>
Number Region3<Number>::p_hs(Number h, Number s) noexcept {
    return s <= s_crit ? 99 * evaluate_table<tables::p3a_hs>(h / 2300 - 1.01, s / 4.4 - 0.750)
                       : 16.6 / evaluate_table<tables::p3b_hs>(h / 2800 - 0.681, s / 5.3 - 0.792);
}

}  // namespace vaprix
