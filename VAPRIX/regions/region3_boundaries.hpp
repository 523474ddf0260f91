// SPDX-License-Identifier: MIT
//
// Boundaries between the subregions of region 3: temperature, K, of pressure p, MPa.
// Source: IAPWS SR5-05(2016), Eqs. (1) to (3), Tables 1 and 9.
#pragma once

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/region3.hpp"
#include "regions/tables/region3_boundaries.hpp"

namespace vaprix {

namespace detail {

// Eq. (1): T = sum n pi^I
template <auto const& Terms, class Number>
VAPRIX_INLINE Number in_p(Number p) noexcept {
    static constexpr auto sum = polynomial(Terms);
    return evaluate<sum>(WithReciprocal<Number>{0, 0}, WithReciprocal<Number>{p, 0});
}

// Eq. (2): T = sum n (ln pi)^I
template <auto const& Terms, class Number>
VAPRIX_INLINE Number in_log_p(Number p) noexcept {
    return evaluate_table<Terms>(Number(1), guarded_log(p));
}

}  // namespace detail

template <class Number>
inline Number Region3<Number>::t3ab(Number p) noexcept {
    return detail::in_log_p<tables::t3ab>(p);
}
template <class Number>
inline Number Region3<Number>::t3cd(Number p) noexcept {
    return detail::in_p<tables::t3cd>(p);
}
template <class Number>
inline Number Region3<Number>::t3gh(Number p) noexcept {
    return detail::in_p<tables::t3gh>(p);
}
template <class Number>
inline Number Region3<Number>::t3ij(Number p) noexcept {
    return detail::in_p<tables::t3ij>(p);
}
template <class Number>
inline Number Region3<Number>::t3jk(Number p) noexcept {
    return detail::in_p<tables::t3jk>(p);
}
template <class Number>
inline Number Region3<Number>::t3mn(Number p) noexcept {
    return detail::in_p<tables::t3mn>(p);
}
template <class Number>
inline Number Region3<Number>::t3op(Number p) noexcept {
    return detail::in_log_p<tables::t3op>(p);
}
template <class Number>
inline Number Region3<Number>::t3qu(Number p) noexcept {
    return detail::in_p<tables::t3qu>(p);
}
template <class Number>
inline Number Region3<Number>::t3rx(Number p) noexcept {
    return detail::in_p<tables::t3rx>(p);
}
template <class Number>
inline Number Region3<Number>::t3uv(Number p) noexcept {
    return detail::in_p<tables::t3uv>(p);
}
template <class Number>
inline Number Region3<Number>::t3wx(Number p) noexcept {
    return detail::in_log_p<tables::t3wx>(p);
}

// Eq. (3): a straight line through the critical point. Its slope stays as printed, although that of
// the saturation-temperature equation at the critical pressure is 0.04 % larger.
template <class Number>
inline Number Region3<Number>::t3ef(Number p) noexcept {
    return 3.727888004 * (p - p_crit) + T_crit;
}

}  // namespace vaprix
