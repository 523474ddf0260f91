// SPDX-License-Identifier: MIT
//
// Boundaries between the subregions of region 3: temperature, K, of pressure p, MPa.
// Source: IAPWS SR5-05(2016), Eqs. (1) to (3), Tables 1 and 9.
#pragma once

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/region3_boundaries.hpp"

namespace vaprix::region3 {

namespace detail {

// Eq. (1): T = sum n pi^I
template <auto const& P>
VAPRIX_INLINE double in_p(double p) noexcept {
    return evaluate<P>(WithReciprocal<double>{0, 0}, WithReciprocal<double>{p, 0});
}

// Eq. (2): T = sum n (ln pi)^I
template <auto const& P>
VAPRIX_INLINE double in_log_p(double p) noexcept {
    return evaluate<P>(1.0, guarded_log(p));
}

inline constexpr auto t3ab = polynomial(tables::t3ab);
inline constexpr auto t3cd = polynomial(tables::t3cd);
inline constexpr auto t3gh = polynomial(tables::t3gh);
inline constexpr auto t3ij = polynomial(tables::t3ij);
inline constexpr auto t3jk = polynomial(tables::t3jk);
inline constexpr auto t3mn = polynomial(tables::t3mn);
inline constexpr auto t3op = polynomial(tables::t3op);
inline constexpr auto t3qu = polynomial(tables::t3qu);
inline constexpr auto t3rx = polynomial(tables::t3rx);
inline constexpr auto t3uv = polynomial(tables::t3uv);
inline constexpr auto t3wx = polynomial(tables::t3wx);

}  // namespace detail

inline double t3ab(double p) noexcept { return detail::in_log_p<detail::t3ab>(p); }
inline double t3cd(double p) noexcept { return detail::in_p<detail::t3cd>(p); }
inline double t3gh(double p) noexcept { return detail::in_p<detail::t3gh>(p); }
inline double t3ij(double p) noexcept { return detail::in_p<detail::t3ij>(p); }
inline double t3jk(double p) noexcept { return detail::in_p<detail::t3jk>(p); }
inline double t3mn(double p) noexcept { return detail::in_p<detail::t3mn>(p); }
inline double t3op(double p) noexcept { return detail::in_log_p<detail::t3op>(p); }
inline double t3qu(double p) noexcept { return detail::in_p<detail::t3qu>(p); }
inline double t3rx(double p) noexcept { return detail::in_p<detail::t3rx>(p); }
inline double t3uv(double p) noexcept { return detail::in_p<detail::t3uv>(p); }
inline double t3wx(double p) noexcept { return detail::in_log_p<detail::t3wx>(p); }

// Eq. (3): a straight line through the critical point. Its slope stays as printed, although that of
// the saturation-temperature equation at the critical pressure is 0.04 % larger.
inline double t3ef(double p) noexcept { return 3.727888004 * (p - p_crit) + T_crit; }

}  // namespace vaprix::region3
