// SPDX-License-Identifier: MIT
//
// Region 2, vapour: backward equations for the temperature and the pressure.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (20) and (22) to (27), Tables 19 to 22 and 25 to 27;
//           IAPWS SR2-01(2014), Eqs. (2) to (5), Tables 5 to 8.
#pragma once

#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/region2.hpp"
#include "regions/tables/region2_backward.hpp"

namespace vaprix {

// Eq. (20)
template <class Number>
Number Region2<Number>::p_b2bc(Number h) noexcept {
    constexpr const auto& n = tables::b2bc;
    return (n[2] * h + n[1]) * h + n[0];
}

// Eqs. (22) to (24): theta = sum n pi^I (eta - 2.1)^J in 2a, (pi - 2)^I (eta - 2.6)^J in 2b,
// (pi + 25)^I (eta - 1.8)^J in 2c, eta = h / 2000 kJ/kg
template <class Number>
VAPRIX_INLINE Number Region2<Number>::t2a_ph(Number p, Number h) noexcept {
    return evaluate_table<tables::t2a_ph>(p, h / 2000 - 2.1);
}
template <class Number>
VAPRIX_INLINE Number Region2<Number>::t2b_ph(Number p, Number h) noexcept {
    return evaluate_table<tables::t2b_ph>(p - 2, h / 2000 - 2.6);
}
template <class Number>
VAPRIX_INLINE Number Region2<Number>::t2c_ph(Number p, Number h) noexcept {
    return evaluate_table<tables::t2c_ph>(p + 25, h / 2000 - 1.8);
}

template <class Number>
Number Region2<Number>::t_ph(Number p, Number h) noexcept {
    if (p <= p_2a) return t2a_ph(p, h);
    return is_2c_ph(p, h) ? t2c_ph(p, h) : t2b_ph(p, h);
}

template <class Number>
VAPRIX_INLINE Number Region2<Number>::t2a_ps(Number p, Number s) noexcept {
    return evaluate_table<tables::t2a_ps>(signed_sqrt(signed_sqrt(p)), s / 2 - 2);
}
template <class Number>
VAPRIX_INLINE Number Region2<Number>::t2b_ps(Number p, Number s) noexcept {
    return evaluate_table<tables::t2b_ps>(p, 10 - s / 0.7853);
}
template <class Number>
VAPRIX_INLINE Number Region2<Number>::t2c_ps(Number p, Number s) noexcept {
    constexpr double s_star_2c_reciprocal = 0.34186865406311;
    return evaluate_table<tables::t2c_ps>(p, 2 - s * s_star_2c_reciprocal);
}

template <class Number>
Number Region2<Number>::t_ps(Number p, Number s) noexcept {
    if (p <= p_2a) return t2a_ps(p, s);
    return is_2c_ps(p, s) ? t2c_ps(p, s) : t2b_ps(p, s);
}

template <class Number>
Number Region2<Number>::h_2ab(Number s) noexcept {
    constexpr const auto& n = tables::h2ab;
    return ((n[3] * s + n[2]) * s + n[1]) * s + n[0];
}

// Eqs. (3) to (5): p = 4 MPa (sum n (h/4200 - 0.5)^I (s/12 - 1.2)^J)^4 in 2a,
// 100 MPa (sum n (h/4100 - 0.6)^I (s/7.9 - 1.01)^J)^4 in 2b,
// 100 MPa (sum n (h/3500 - 0.7)^I (s/5.9 - 1.1)^J)^4 in 2c
template <class Number>
Number Region2<Number>::p_hs(Number h, Number s) noexcept {
    if (s < s_2bc)
        return 100 * power<4>(evaluate_table<tables::p2c_hs>(h / 3500 - 0.7, s / 5.9 - 1.1));
    return h > h_2ab(s)
               ? 100 * power<4>(evaluate_table<tables::p2b_hs>(h / 4100 - 0.6, s / 7.9 - 1.01))
               : 4 * power<4>(evaluate_table<tables::p2a_hs>(h / 4200 - 0.5, s / 12 - 1.2));
}

}  // namespace vaprix
