// SPDX-License-Identifier: MIT
//
// Region 1, compressed liquid: backward equations for the temperature and the pressure.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eqs. (11) and (13), Tables 6 and 8; IAPWS SR2-01(2014), Eq. (1),
//           Table 2.
#pragma once

#include "frame/polynomial.hpp"
#include "regions/region1.hpp"
#include "regions/tables/region1_backward.hpp"

namespace vaprix {

// Eq. (11): theta = sum n pi^I (eta + 1)^J, eta = h / 2500 kJ/kg
template <class Number>
Number Region1<Number>::t_ph(Number p, Number h) noexcept {
    return evaluate_table<tables::t1_ph>(p, h / 2500 + 1);
}

// Eq. (13): theta = sum n pi^I (sigma + 2)^J
template <class Number>
Number Region1<Number>::t_ps(Number p, Number s) noexcept {
    return evaluate_table<tables::t1_ps>(p, s + 2);
}

// Eq. (1): p = 100 MPa sum n (h / 3400 + 0.05)^I (s / 7.6 + 0.05)^J
template <class Number>
Number Region1<Number>::p_hs(Number h, Number s) noexcept {
    static constexpr auto pressure = 100 * polynomial(tables::p1_hs);
    return evaluate<pressure>(h / 3400 + 0.05, s / 7.6 + 0.05);
}

}  // namespace vaprix
