// SPDX-License-Identifier: MIT
//
// Dynamic viscosity of water and steam.
// Given:    t  temperature, K;  d  density, kg/m3; nothing is checked.
// Source:   IAPWS R12-08, Eqs. (10) to (12), Tables 1 and 2, in the form for industrial use: the
//           factor mu2 of the critical enhancement is 1. It would exceed 1.02 only within 645.91 to
//           650.77 K and 245.8 to 405.3 kg/m3.
#pragma once

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "transport/tables/viscosity.hpp"

namespace vaprix::transport {

template <class Number>
[[nodiscard]] Number viscosity(Number t, Number d) noexcept;  // Pa s
template <class Number>
[[nodiscard]] Number viscosity_t(Number t, Number d) noexcept;  // (dmu/dT)_v, Pa s/K
template <class Number>
[[nodiscard]] Number viscosity_v(Number t, Number d) noexcept;  // (dmu/dv)_T, Pa s kg/m3

extern template double viscosity(double, double) noexcept;
extern template double viscosity_t(double, double) noexcept;
extern template double viscosity_v(double, double) noexcept;

namespace detail::viscosity {

inline constexpr double mu_star = 1e-6;  // Pa s
inline constexpr double T_star_reciprocal = 1 / T_crit;
inline constexpr double d_star_reciprocal = 1 / d_crit;

// mu0 = 100 sqrt(Tr) / sum H_i y^i with y = 1/Tr
inline constexpr auto dilute = polynomial(tables::viscosity::dilute);
inline constexpr auto dilute_y = d_y(dilute);

// mu1 = exp(rr sum H_ij (1/Tr - 1)^i (rr - 1)^j); x = rr - 1, which is known last
inline constexpr auto dense = transposed(polynomial(tables::viscosity::dense));
inline constexpr auto dense_x = d_x(dense);
inline constexpr auto dense_y = d_y(dense);

template <class Number>
struct Reduced {
    Number y, r;  // 1/Tr and rr
    Reduced(Number t, Number d) noexcept : y(T_crit / t), r(d * d_star_reciprocal) {}

    // mu0 mu1 mu*, given the two sums
    [[nodiscard]] Number viscosity(Number t, Number of_dilute, Number of_dense) const noexcept {
        const Number mu0 = 100 * signed_sqrt(t * T_star_reciprocal) / of_dilute;
        return mu0 * clamped_exp(r * of_dense) * mu_star;
    }
};

}  // namespace detail::viscosity

template <class Number>
Number viscosity(Number t, Number d) noexcept {
    using namespace detail::viscosity;
    const Reduced<Number> at(t, d);
    return at.viscosity(t, evaluate<dilute>(Number(0), at.y), evaluate<dense>(at.r - 1, at.y - 1));
}

// d(ln mu)/dT = (1/2 + y (sum0_y/sum0 - rr sum1_y))/T
template <class Number>
Number viscosity_t(Number t, Number d) noexcept {
    using namespace detail::viscosity;
    const Reduced<Number> at(t, d);
    const auto [of_dilute, by_y] = evaluate<dilute, dilute_y>(Number(0), at.y);
    const auto [of_dense, dense_by_y] = evaluate<dense, dense_y>(at.r - 1, at.y - 1);
    return at.viscosity(t, of_dilute, of_dense) *
           (0.5 + at.y * (by_y / of_dilute - at.r * dense_by_y)) / t;
}

// d(ln mu)/dv = -d rr (sum1 + rr sum1_x), as drr/dv = -d rr
template <class Number>
Number viscosity_v(Number t, Number d) noexcept {
    using namespace detail::viscosity;
    const Reduced<Number> at(t, d);
    const auto [of_dense, by_r] = evaluate<dense, dense_x>(at.r - 1, at.y - 1);
    return -at.viscosity(t, evaluate<dilute>(Number(0), at.y), of_dense) * d * at.r *
           (of_dense + at.r * by_r);
}

}  // namespace vaprix::transport
