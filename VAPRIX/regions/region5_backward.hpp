// SPDX-License-Identifier: MIT
//
// Temperature of region 5 from (p, h) and (p, s). IAPWS-IF97 has no backward equation there: the
// basic equation is solved by search.
// Given:    p  pressure, MPa;  h  specific enthalpy, kJ/kg;  s  specific entropy, kJ/(kg K);
//           nothing is checked.
// Returned: K, to a relative 1e-6; the last iterate of a search that does not settle.
// Failure:  0.0 when the search cannot start because both ends of its bracket give the same
//           residual.
// Source:   IAPWS R7-97(2012), Eq. (32).
#pragma once

#include "frame/constants.hpp"
#include "frame/steered_search.hpp"
#include "regions/region5.hpp"

namespace vaprix {

namespace detail {

inline constexpr double tolerance_5 = 1e-6;

template <class Number>
struct Bracket5 {
    Number low, high;  // K
};

template <class Number>
Bracket5<Number> bracket_ph(Number h) noexcept {
    using machine::select;
    const auto warm = h < 5000, middle = h < 6500;
    return {select(warm, Number(T_25), select(middle, Number(1323.15), 1823.15)),
            select(warm, Number(1573.15), select(middle, Number(2073.15), T_max))};
}

template <class Number>
Bracket5<Number> bracket_ps(Number p, Number s) noexcept {
    using machine::select;
    const auto thin = p < 0.1;
    const auto below = s < select(p < 1, Number(9.5), select(p < 5, Number(9.0), 8.5));
    return {select((p < 1) | below, Number(T_25), 1323.15),
            select(thin | !below, Number(T_max), 1823.15)};
}

}  // namespace detail

template <class Number>
Number Region5<Number>::t_ph(Number p, Number h) noexcept {
    const detail::Bracket5<Number> bracket = detail::bracket_ph(h);
    const auto residual = [p, h](Number t) noexcept { return Region5::h(p, t) - h; };
    return steered_search(residual, bracket.low, bracket.high, detail::tolerance_5);
}

template <class Number>
Number Region5<Number>::t_ps(Number p, Number s) noexcept {
    const detail::Bracket5<Number> bracket = detail::bracket_ps(p, s);
    const auto residual = [p, s](Number t) noexcept { return Region5::s(p, t) - s; };
    return steered_search(residual, bracket.low, bracket.high, detail::tolerance_5);
}

}  // namespace vaprix
