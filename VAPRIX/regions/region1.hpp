// SPDX-License-Identifier: MIT
//
// Region 1, compressed liquid: properties of (p, T).
// Given:    p  pressure, MPa;  t  temperature, K. Region 1 is 273.15 to 623.15 K,
//           saturation pressure to 100 MPa; nothing is checked, outside the equation is evaluated
//           as it stands.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eq. (7) with Tables 2 to 4.
#pragma once

#include <array>
#include <cstddef>
#include <tuple>
#include <utility>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/newton.hpp"
#include "frame/polynomial.hpp"
#include "regions/derivatives.hpp"
#include "regions/tables/region1.hpp"

namespace vaprix {

template <class Number>
struct Region1 {
    [[nodiscard]] static Number v(Number p, Number t) noexcept;  // specific volume, m3/kg
    [[nodiscard]] static Number h(Number p, Number t) noexcept;  // specific enthalpy, kJ/kg
    [[nodiscard]] static Number u(Number p, Number t) noexcept;  // specific internal energy, kJ/kg
    [[nodiscard]] static Number s(Number p, Number t) noexcept;  // specific entropy, kJ/(kg K)
    [[nodiscard]] static Number g(Number p, Number t) noexcept;  // specific Gibbs energy, kJ/kg
    [[nodiscard]] static Number w(Number p, Number t) noexcept;  // speed of sound, m/s

    // Heat capacities, isobaric and isochoric, kJ/(kg K); (dv/dT)_p, m3/(kg K).
    [[nodiscard]] static Number cp(Number p, Number t) noexcept;
    [[nodiscard]] static Number cv(Number p, Number t) noexcept;
    [[nodiscard]] static Number v_t(Number p, Number t) noexcept;

    // h and s with their slopes in T along the isobar, cp and cp/T, from shared sums.
    [[nodiscard]] static Tangent<Number> h_tangent_t(Number p, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> s_tangent_t(Number p, Number t) noexcept;

    // h and s with their slopes by pressure and by temperature, from shared sums.
    [[nodiscard]] static TangentPair<Number> hs_tangents(Number p, Number t) noexcept;

    // v and h, v and s, from shared powers.
    [[nodiscard]] static Point<Number> vh(Number p, Number t) noexcept;
    [[nodiscard]] static Point<Number> vs(Number p, Number t) noexcept;

    // The same with their slopes by pressure and by temperature.
    [[nodiscard]] static TangentPair<Number> vh_tangents(Number p, Number t) noexcept;
    [[nodiscard]] static TangentPair<Number> vs_tangents(Number p, Number t) noexcept;

    // v with its slope in p along the isotherm, from shared powers.
    [[nodiscard]] static Tangent<Number> v_tangent_p(Number p, Number t) noexcept;

    // v with its slope in T along the isobar.
    [[nodiscard]] static Tangent<Number> v_tangent_t(Number p, Number t) noexcept;

    // h and s with their slopes in p along the isotherm, v - T v_t and -v_t; those slopes with
    // theirs.
    [[nodiscard]] static Tangent<Number> h_tangent_p(Number p, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> s_tangent_p(Number p, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> h_p_tangent_p(Number p, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> s_p_tangent_p(Number p, Number t) noexcept;

    // A property by its formula on the derivatives.
    template <Formula<Number> formula>
    [[nodiscard]] static Number derived(Number p, Number t) noexcept;

    // All of them at once, inlined: a sum that is not read is not evaluated.
    // v = R T pi gamma_pi / p, (dv/dp)_T = R T gamma_pipi / p*^2,
    // (dv/dT)_p = R (gamma_pi - tau gamma_pitau) / p*, (dh/dp)_T = R T tau gamma_pitau / p*,
    // cp = -R tau^2 gamma_tautau, cv = cp + R (gamma_pi - tau gamma_pitau)^2 / gamma_pipi
    VAPRIX_INLINE static Derivatives<Number> derivatives(Number p, Number t) noexcept {
        const Reduced r(p, t);
        const auto [tautau, pi, pitau, pipi] =
            sums<gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(r.x(), r.y());
        return from_sums(r.tau, t, tautau, pi, pitau, pipi);
    }
    VAPRIX_INLINE static DerivativesAndEntropy<Number> derivatives_and_s(Number p,
                                                                         Number t) noexcept {
        const Reduced r(p, t);
        return {derivatives(p, t), evaluate<entropy>(r.x(), r.y())};
    }

    // v_pp = R T gamma_pipipi / p*^3, v_pt = R (gamma_pipi - tau gamma_pipitau) / p*^2,
    // v_tt = R tau^2 gamma_pitautau / (p* T), cp_t = R tau^2 (2 gamma_tautau + tau gamma_tautautau) / T
    VAPRIX_INLINE static Curvatures<Number> curvatures(Number p, Number t) noexcept {
        const Reduced r(p, t);
        const auto [pipipi, pipi, pipitau, pitautau, tautau, tautautau] =
            sums<gamma_pipipi, gamma_pipi, gamma_pipitau, gamma_pitautau, gamma_tautau,
                 gamma_tautautau>(r.x(), r.y());
        const Number tau2_t = r.tau * r.tau / t;
        return {.v_pp = v_p_factor / p_star * t * pipipi,
                .v_pt = v_p_factor * (pipi - r.tau * pipitau),
                .v_tt = v_factor * tau2_t * pitautau,
                .h_pp = h_p_factor / p_star * pipitau,
                .cp_t = R * tau2_t * (2 * tautau + r.tau * tautautau)};
    }

    // Backward equations: regions/region1_backward.hpp.
    [[nodiscard]] static Number t_ph(Number p, Number h) noexcept;  // temperature, K
    [[nodiscard]] static Number t_ps(Number p, Number s) noexcept;  // temperature, K
    [[nodiscard]] static Number p_hs(Number h, Number s) noexcept;  // pressure, MPa

private:
    // gamma = sum n x^I y^J with x = 7.1 - pi, y = tau - 1.222, pi = p/p*, tau = T*/T
    static constexpr double p_star = 16.53;  // MPa
    static constexpr double T_star = 1386;   // K
    static constexpr double x_0 = 7.1;
    static constexpr double y_0 = 1.222;

    // 1/p*, in the two roundings that v and h, and the other properties, have always been published
    // with. They differ by a few units in the last place and must stay apart, or digits of hosts
    // change.
    static constexpr double p_star_reciprocal_short = 0.060496067755596;
    static constexpr double p_star_reciprocal = 0.060496067755595885;

    static constexpr long double R_T_star = extended(R) * extended(T_star);
    static constexpr long double R_per_p_star = extended(R) / (1000 * extended(p_star));

    static constexpr auto v_factor = static_cast<Number>(R_per_p_star);
    static constexpr auto v_p_factor = static_cast<Number>(R_per_p_star / extended(p_star));
    static constexpr auto h_p_factor = static_cast<Number>(R_T_star / extended(p_star));

    static constexpr auto gamma = polynomial(tables::region1);
    static constexpr auto gamma_pi = -1 * d_x(gamma);
    static constexpr auto gamma_pipi = d_x(d_x(gamma));
    static constexpr auto gamma_tau = d_y(gamma);
    static constexpr auto gamma_tautau = d_y(gamma_tau);
    static constexpr auto gamma_pitau = d_y(gamma_pi);
    static constexpr auto gamma_pipipi = -1 * d_x(gamma_pipi);
    static constexpr auto gamma_pipitau = d_y(gamma_pipi);
    static constexpr auto gamma_pitautau = d_y(gamma_pitau);
    static constexpr auto gamma_tautautau = d_y(gamma_tautau);

    static constexpr auto volume_over_t = R_per_p_star * gamma_pi;
    static constexpr auto volume_pitau = R_per_p_star * gamma_pitau;
    static constexpr auto enthalpy = R_T_star * gamma_tau;
    // tau gamma_tau - gamma with tau = y + y_0: one polynomial, all of whose folded terms keep
    // their sign
    static constexpr auto entropy =
        extended(R) *
        (weighted(gamma, [](int, int J) { return J - 1; }) + extended(y_0) * gamma_tau);
    static constexpr auto gibbs_over_t = extended(R) * gamma;

    // slopes in p
    static constexpr auto enthalpy_p = (-1 / extended(p_star)) * d_x(enthalpy);
    static constexpr auto enthalpy_pp = (-1 / extended(p_star)) * d_x(enthalpy_p);
    static constexpr auto entropy_p = (-1 / extended(p_star)) * d_x(entropy);
    static constexpr auto entropy_pp = (-1 / extended(p_star)) * d_x(entropy_p);

    // Reduced variables; the shifts are applied where the polynomial is evaluated.
    struct Reduced {
        Number pi, tau;
        Reduced(Number p, Number t) noexcept : pi(p * p_star_reciprocal), tau(T_star / t) {}
        [[nodiscard]] Number x() const noexcept { return x_0 - pi; }
        [[nodiscard]] Number y() const noexcept { return tau - y_0; }
    };

    // Second derivatives of gamma, and what is used with them. Of each the six terms of highest order,
    //     x^i y^j (n21 + n23 z^2 + z^8/y (n29 + n30 z + n31 z^2 + n32 z^3)), z = x/y,
    // are summed by z^8/y and z - 6. The cubics have nearly threefold roots near z = 6, which is
    // saturated liquid at 620 K: by x and y terms 8000 times the sum would meet there, and even the
    // rounding of their coefficients would show, which are taken as they are printed.
    static constexpr int least_high_order = 18;  // of third derivatives
    static constexpr int cubic_order = 8;
    static constexpr int z_0 = 6;

    template <auto const& P>
    static constexpr auto low = weighted(P,
                                         [](int I, int) { return I < least_high_order ? 1 : 0; });
    template <auto const& P>
    static constexpr auto high = weighted(P,
                                          [](int I, int) { return I < least_high_order ? 0 : 1; });

    // Integers of 128 bits: any rounding of these sums would be as large as that of a double.
    // NOLINTNEXTLINE(modernize-use-using)
    __extension__ typedef __int128 Exact;
    static constexpr long double exact_unit = 1e-39L;
    static constexpr long long nearest(long double x) {
        return static_cast<long long>(x < 0 ? x - 0.5L : x + 0.5L);
    }
    // The 14 digits that a coefficient is printed with.
    static constexpr Exact printed(long double n) {
        long double digits = n / exact_unit;
        Exact factor = 1;
        for (; digits <= -1e14L || digits >= 1e14L; digits /= 10) factor *= 10;
        return factor * nearest(digits);
    }
    // by z^8/y and z - z_0
    template <auto const& P>
    static constexpr auto near_z_0 = [] {
        std::array<std::array<Exact, 4>, 2> sum{};
        for (std::size_t k = 0; k < high<P>.size; ++k) {
            const long double n = high<gamma>.terms[k].n;
            const int order = high<P>.terms[k].I - high<P>.terms[0].I;
            const int cubic = order < cubic_order ? 0 : 1;
            Exact a = printed(n) * nearest(high<P>.terms[k].n / n);  // by the binomial theorem
            for (int i = order - cubic * cubic_order, next = 1; i >= 0; --i, ++next) {
                sum[static_cast<std::size_t>(cubic)][static_cast<std::size_t>(i)] += a;
                a = a * z_0 * i / next;
            }
        }
        Polynomial<7> p;
        for (std::size_t I = 0; I < 2; ++I) {
            for (std::size_t J = 0; J < 4; ++J) {
                p.add(static_cast<int>(I), static_cast<int>(J),
                      static_cast<long double>(sum[I][J]) * exact_unit);
            }
        }
        return p;
    }();
    // monomials in z and y
    static constexpr Polynomial<1> cubic_factor{{{{cubic_order, -1, 1}}}, 1};
    template <auto const& P>
    static constexpr Polynomial<1> high_factor{
        {{{high<P>.terms[0].I, high<P>.terms[0].I + high<P>.terms[0].J, 1}}}, 1};

    template <auto const&... P>
    VAPRIX_INLINE static auto sums(Number x, Number y) noexcept {
        const WithReciprocal<Number> with_y{y, 1 / y};
        const Number z = x * with_y.reciprocal;
        const auto lows = evaluate<low<P>...>(WithReciprocal<Number>{x, {}}, with_y);
        const auto factors =
            evaluate<cubic_factor, high_factor<P>...>(WithReciprocal<Number>{z, {}}, with_y);
        const auto highs = evaluate<near_z_0<P>...>(std::get<0>(factors), z - z_0);
        const auto add = [&]<std::size_t... k>(std::index_sequence<k...>) {
            return std::tuple{std::get<k>(lows) + std::get<k + 1>(factors) * std::get<k>(highs)...};
        };
        return add(std::make_index_sequence<sizeof...(P)>{});
    }

    VAPRIX_INLINE static Derivatives<Number> from_sums(Number tau, Number t, Number tautau,
                                                       Number pi, Number pitau,
                                                       Number pipi) noexcept {
        const Number a = pi - tau * pitau;
        const Number c = tau * tau * tautau;
        return {.v = v_factor * t * pi,
                .v_p = v_p_factor * t * pipi,
                .v_t = v_factor * a,
                .h_p = h_p_factor * pitau,
                .cp = -R * c,
                .cv = R * (a * a / pipi - c)};
    }
};

using region1 = Region1<double>;
extern template struct Region1<double>;
VAPRIX_DERIVED(extern template, (double, double), Region1<double>);

// v = R T pi gamma_pi / p
template <class Number>
Number Region1<Number>::v(Number p, Number t) noexcept {
    return t * evaluate<volume_over_t>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
}

// h = R T tau gamma_tau
template <class Number>
Number Region1<Number>::h(Number p, Number t) noexcept {
    return evaluate<enthalpy>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
}

// u = R T (tau gamma_tau - pi gamma_pi)
template <class Number>
Number Region1<Number>::u(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [from_tau, from_pi] = evaluate<enthalpy, gamma_pi>(r.x(), r.y());
    return from_tau - R * t * r.pi * from_pi;
}

// s = R (tau gamma_tau - gamma)
template <class Number>
Number Region1<Number>::s(Number p, Number t) noexcept {
    const Reduced r(p, t);
    return evaluate<entropy>(r.x(), r.y());
}

// g = R T gamma
template <class Number>
Number Region1<Number>::g(Number p, Number t) noexcept {
    const Reduced r(p, t);
    return t * evaluate<gibbs_over_t>(r.x(), r.y());
}

// cp = -R tau^2 gamma_tautau
template <class Number>
Number Region1<Number>::cp(Number p, Number t) noexcept {
    const Reduced r(p, t);
    return -R * (r.tau * r.tau) * evaluate<gamma_tautau>(r.x(), r.y());
}

template <class Number>
Number Region1<Number>::cv(Number p, Number t) noexcept {
    return derivatives(p, t).cv;
}

// w^2 = R T gamma_pi^2 / ((gamma_pi - tau gamma_pitau)^2 / (tau^2 gamma_tautau) - gamma_pipi)
template <class Number>
Number Region1<Number>::w(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [tautau, pi, pitau, pipi] =
        sums<gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(r.x(), r.y());
    const Number a = pi - r.tau * pitau;
    return fabs(pi) * signed_sqrt(1000 * R * t / (a * a / (r.tau * r.tau * tautau) - pipi));
}

template <class Number>
Number Region1<Number>::v_t(Number p, Number t) noexcept {
    return derivatives(p, t).v_t;
}

template <class Number>
Point<Number> Region1<Number>::vh(Number p, Number t) noexcept {
    const auto [v_over_t, h] =
        evaluate<volume_over_t, enthalpy>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
    return {t * v_over_t, h};
}

template <class Number>
Point<Number> Region1<Number>::vs(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [v_over_t, s] = evaluate<volume_over_t, entropy>(r.x(), r.y());
    return {t * v_over_t, s};
}

template <class Number>
TangentPair<Number> Region1<Number>::vh_tangents(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [v_over_t, pipi, pitau, h, tautau] =
        evaluate<volume_over_t, gamma_pipi, gamma_pitau, enthalpy, gamma_tautau>(r.x(), r.y());
    return {
        t * v_over_t,       v_p_factor * t * pipi,        v_over_t - v_factor * r.tau * pitau, h,
        h_p_factor * pitau, -R * (r.tau * r.tau) * tautau};
}

template <class Number>
TangentPair<Number> Region1<Number>::vs_tangents(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [v_over_t, pipi, pitau, s, tautau] =
        evaluate<volume_over_t, gamma_pipi, gamma_pitau, entropy, gamma_tautau>(r.x(), r.y());
    const Number v_t = v_over_t - v_factor * r.tau * pitau;
    return {t * v_over_t, v_p_factor * t * pipi,
            v_t,          s,
            -1000 * v_t,  -R * (r.tau * r.tau) * tautau / t};
}

template <class Number>
Tangent<Number> Region1<Number>::h_tangent_t(Number p, Number t) noexcept {
    const Number tau = T_star / t;
    const auto [h, tautau] =
        evaluate<enthalpy, gamma_tautau>(x_0 - p * p_star_reciprocal_short, tau - y_0);
    return {h, -R * (tau * tau) * tautau};
}

template <class Number>
Tangent<Number> Region1<Number>::v_tangent_p(Number p, Number t) noexcept {
    const auto [v_over_t, pipi] =
        evaluate<volume_over_t, gamma_pipi>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
    return {t * v_over_t, v_p_factor * t * pipi};
}

template <class Number>
Tangent<Number> Region1<Number>::v_tangent_t(Number p, Number t) noexcept {
    const Number tau = T_star / t;
    const auto [v_over_t, pitau] =
        evaluate<volume_over_t, volume_pitau>(x_0 - p * p_star_reciprocal_short, tau - y_0);
    return {t * v_over_t, v_over_t - tau * pitau};
}

template <class Number>
Tangent<Number> Region1<Number>::h_tangent_p(Number p, Number t) noexcept {
    const auto [h, h_p] =
        evaluate<enthalpy, enthalpy_p>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
    return {h, h_p};
}

template <class Number>
Tangent<Number> Region1<Number>::s_tangent_p(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [s, s_p] = evaluate<entropy, entropy_p>(r.x(), r.y());
    return {s, s_p};
}

template <class Number>
Tangent<Number> Region1<Number>::h_p_tangent_p(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [h_p, h_pp] = evaluate<enthalpy_p, enthalpy_pp>(r.x(), r.y());
    return {h_p, h_pp};
}

template <class Number>
Tangent<Number> Region1<Number>::s_p_tangent_p(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [s_p, s_pp] = evaluate<entropy_p, entropy_pp>(r.x(), r.y());
    return {s_p, s_pp};
}

template <class Number>
Tangent<Number> Region1<Number>::s_tangent_t(Number p, Number t) noexcept {
    const Reduced r(p, t);
    const auto [s, tautau] = evaluate<entropy, gamma_tautau>(r.x(), r.y());
    return {s, -R / T_star * (r.tau * r.tau * r.tau) * tautau};
}

// h_p = R T* gamma_pitau / p*, s_p = -R (gamma_pi - tau gamma_pitau) / p*
template <class Number>
TangentPair<Number> Region1<Number>::hs_tangents(Number p, Number t) noexcept {
    constexpr auto factor = static_cast<Number>(1000 * R_per_p_star);
    const Reduced r(p, t);
    const auto [h, s, tautau, pi, pitau] =
        evaluate<enthalpy, entropy, gamma_tautau, gamma_pi, gamma_pitau>(r.x(), r.y());
    const Number cp = -R * (r.tau * r.tau) * tautau;
    return {h, factor * T_star * pitau, cp, s, -factor * (pi - r.tau * pitau), cp / t};
}

template <class Number>
template <Formula<Number> formula>
Number Region1<Number>::derived(Number p, Number t) noexcept {
    return formula(derivatives(p, t), p);
}

}  // namespace vaprix
