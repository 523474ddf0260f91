// SPDX-License-Identifier: MIT
//
// Region 3, the near-critical and dense fluid: properties of (density, T).
// Given:    d  density, kg/m3;  t  temperature, K. Region 3 is 623.15 to 863.15 K from the B23 line
//           to 100 MPa; nothing is checked.
// Failure:  none.
// Source:   IAPWS R7-97(2012), Eq. (28), Tables 30 to 32.
#pragma once

#include <array>
#include <cstddef>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/newton.hpp"
#include "frame/polynomial.hpp"
#include "regions/derivatives.hpp"
#include "regions/tables/region3.hpp"

namespace vaprix {

// Subregions of (p, T): IAPWS SR5-05(2016), Tables 2 and 10.
// clang-format off
enum class Subregion { a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r, s, t, u, v, w, x, y, z };
// clang-format on

template <class Number>
struct Region3 {
    [[nodiscard]] static Number p(Number d, Number t) noexcept;  // pressure, MPa
    [[nodiscard]] static Number h(Number d, Number t) noexcept;  // specific enthalpy, kJ/kg
    [[nodiscard]] static Number u(Number d, Number t) noexcept;  // specific internal energy, kJ/kg
    [[nodiscard]] static Number s(Number d, Number t) noexcept;  // specific entropy, kJ/(kg K)
    [[nodiscard]] static Number g(Number d, Number t) noexcept;  // specific Gibbs energy, kJ/kg
    [[nodiscard]] static Number f(Number d, Number t) noexcept;  // specific Helmholtz energy, kJ/kg
    [[nodiscard]] static Number w(Number d, Number t) noexcept;  // speed of sound, m/s

    // Heat capacities, isobaric and isochoric, kJ/(kg K).
    [[nodiscard]] static Number cp(Number d, Number t) noexcept;
    [[nodiscard]] static Number cv(Number d, Number t) noexcept;

    // A property by its formula on the derivatives and on the pressure p, MPa.
    template <Formula<Number> formula>
    [[nodiscard]] static Number derived(Number p, Number d, Number t) noexcept;

    // Pressure and enthalpy, or pressure and entropy, or enthalpy and entropy, with their slopes by
    // density and by temperature, from shared sums.
    [[nodiscard]] static TangentPair<Number> ph_tangents(Number d, Number t) noexcept;
    [[nodiscard]] static TangentPair<Number> ps_tangents(Number d, Number t) noexcept;
    [[nodiscard]] static TangentPair<Number> hs_tangents(Number d, Number t) noexcept;

    // p with its slope in T along the isochore; h and s with their slopes in density along the
    // isotherm.
    [[nodiscard]] static Tangent<Number> p_tangent_t(Number d, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> h_tangent_d(Number d, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> s_tangent_d(Number d, Number t) noexcept;

    // One isotherm: the factors that depend on temperature alone are formed once, which is what an
    // iteration on the density needs.
    class Isotherm {
        std::array<Number, 12> c;  // p = sum c[k] d^(k + 1)

        // sum a(k) c[k] d^k
        template <class Weight>
        [[nodiscard]] Number sum(Number d, Weight a) const noexcept {
            const Number d2 = d * d;
            const Number d4 = d2 * d2;
            const auto four = [&](std::size_t k) {
                return (a(k) * c[k] + a(k + 1) * c[k + 1] * d) +
                       (a(k + 2) * c[k + 2] + a(k + 3) * c[k + 3] * d) * d2;
            };
            return four(0) + d4 * (four(4) + d4 * four(8));
        }

    public:
        explicit Isotherm(Number t) noexcept;

        // Pressure, MPa.
        [[nodiscard]] Number p(Number d) const noexcept {
            return d * sum(d, [](std::size_t) { return 1.0; });
        }

        // (dp/dd)_T, MPa m3/kg.
        [[nodiscard]] Number p_d(Number d) const noexcept {
            return sum(d, [](std::size_t k) { return static_cast<Number>(k + 1); });
        }
    };

    // All derivatives at once, inlined: a sum that is not read is not evaluated.
    // v_t = p_t/(d^2 p_d), v_p = -1/(d^2 p_d), h_p = v - T v_t: of the difference, delta^2
    // phi_deltadelta + delta phi_delta + delta tau phi_deltatau, n1 falls out
    VAPRIX_INLINE static Derivatives<Number> derivatives(Number d, Number t) noexcept {
        const auto [tt, thermal_sum, stiffness_sum] =
            evaluate<tautau, thermal, stiffness>(d * d_crit_reciprocal, T_crit / t);
        return from_sums(d, t, tt, thermal_sum, stiffness_sum);
    }
    VAPRIX_INLINE static DerivativesAndEntropy<Number> derivatives_and_s(Number d,
                                                                         Number t) noexcept {
        const Number delta = d * d_crit_reciprocal;
        const auto [s, tt, thermal_sum, stiffness_sum] =
            evaluate<entropy, tautau, thermal, stiffness>(delta, T_crit / t);
        return {from_sums(d, t, tt, thermal_sum, stiffness_sum), s - R_n1 * guarded_log(delta)};
    }

    // Of density as a function of (p, T): d_t = -p_t/p_d, d_pp = -p_dd/p_d^3,
    // d_pt = -(p_dt + p_dd d_t)/p_d^2, d_tt = -(p_tt + 2 p_dt d_t + p_dd d_t^2)/p_d;
    // cp = cv + T p_t^2/(d^2 p_d), with all of it changing along the isobar.
    VAPRIX_INLINE static Curvatures<Number> curvatures(Number d, Number t) noexcept {
        const auto [b, a, dd, dt, tt, cv_sum] =
            evaluate<stiffness, thermal, stiffness_slope, mixed_slope, thermal_slope, tautau_slope>(
                d * d_crit_reciprocal, T_crit / t);
        const Number factor = R / 1000;
        const Number p_d = factor * t * (b + n1), p_t = factor * d * (a + n1);
        const Number p_dd = factor * t / d * dd, p_dt = factor * (dt + n1);
        const Number p_tt = factor * d / t * tt;
        const Number d_t = -p_t / p_d;
        const Number p_d_t = p_dt + p_dd * d_t, p_t_t = p_tt + p_dt * d_t;  // along the isobar
        const Number d_pp = -p_dd / (p_d * p_d * p_d), d_pt = -p_d_t / (p_d * p_d);
        const Number d_tt = -(p_t_t + p_d_t * d_t) / p_d;
        const Number d2 = d * d, d3 = d2 * d;
        const Number q = p_t * p_t / (d2 * p_d);
        const Number q_t = 2 * p_t * p_t_t / (d2 * p_d) - q * (2 * d_t / d + p_d_t / p_d);
        const Number cv_d = -1000 * t / d2 * p_tt;
        const Number v_pt = (2 * d_t / p_d - d * d_pt) / d3;
        return {.v_pp = (2 / (p_d * p_d) - d * d_pp) / d3,
                .v_pt = v_pt,
                .v_tt = (2 * d_t * d_t - d * d_tt) / d3,
                .h_pp = -1000 * (1 / (d2 * p_d) + t * v_pt),
                .cp_t = R / t * cv_sum + cv_d * d_t + 1000 * (q + t * q_t)};
    }

    // Backward equations of (p, h), (p, s) and (h, s): regions/region3_backward.hpp.
    // Entropy of the critical point, which divides subregions 3a and 3b of (p, s) and (h, s),
    // kJ/(kg K).
    static constexpr double s_crit = 4.41202148223476;

    [[nodiscard]] static Number h3ab(Number p) noexcept;  // divides 3a and 3b of (p, h), kJ/kg
    // Whether a state is of subregion 3a, the side of the liquid, else of 3b.
    [[nodiscard]] VAPRIX_INLINE static machine::Truth<Number> is_3a_ph(Number p,
                                                                       Number h) noexcept {
        return h <= h3ab(p);
    }
    [[nodiscard]] VAPRIX_INLINE static machine::Truth<Number> is_3a_ps(Number /* p */,
                                                                       Number s) noexcept {
        return s <= s_crit;
    }
    [[nodiscard]] static Number t_ph(Number p, Number h) noexcept;  // temperature, K
    [[nodiscard]] static Number v_ph(Number p, Number h) noexcept;  // specific volume, m3/kg
    [[nodiscard]] static Number t_ps(Number p, Number s) noexcept;  // temperature, K
    [[nodiscard]] static Number v_ps(Number p, Number s) noexcept;  // specific volume, m3/kg
    // in one subregion
    [[nodiscard]] static Number t3a_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number t3b_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number v3a_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number v3b_ph(Number p, Number h) noexcept;
    [[nodiscard]] static Number t3a_ps(Number p, Number s) noexcept;
    [[nodiscard]] static Number t3b_ps(Number p, Number s) noexcept;
    [[nodiscard]] static Number v3a_ps(Number p, Number s) noexcept;
    [[nodiscard]] static Number v3b_ps(Number p, Number s) noexcept;
    [[nodiscard]] static Number p_hs(Number h, Number s) noexcept;  // pressure, MPa
    [[nodiscard]] static Number p3sat_h(Number h) noexcept;  // saturation pressure of region 3, MPa
    [[nodiscard]] static Number p3sat_s(Number s) noexcept;  // saturation pressure of region 3, MPa

    // Backward equations of (p, T): regions/region3_volume.hpp.
    // Subregion of (p, t): Tables 2 and 10. On the saturation line itself the liquid's.
    [[nodiscard]] static Subregion subregion_pt(Number p, Number t) noexcept;

    // The equation of one subregion: Eq. (4), for 3n Eq. (5).
    [[nodiscard]] static Number v_subregion(Subregion subregion, Number p, Number t) noexcept;

    // Volume of (p, t). Close to the critical point, in subregions 3u to 3z, the auxiliary
    // equations are off by up to 1.8 %: there the density iteration on the basic equation is used
    // instead, deliberately; positive infinity if it does not converge.
    [[nodiscard]] static Number v_pt(Number p, Number t) noexcept;

    // Boundaries between the subregions of (p, T), K: regions/region3_boundaries.hpp.
    static inline Number t3ab(Number p) noexcept;
    static inline Number t3cd(Number p) noexcept;
    static inline Number t3ef(Number p) noexcept;
    static inline Number t3gh(Number p) noexcept;
    static inline Number t3ij(Number p) noexcept;
    static inline Number t3jk(Number p) noexcept;
    static inline Number t3mn(Number p) noexcept;
    static inline Number t3op(Number p) noexcept;
    static inline Number t3qu(Number p) noexcept;
    static inline Number t3rx(Number p) noexcept;
    static inline Number t3uv(Number p) noexcept;
    static inline Number t3wx(Number p) noexcept;

private:
    // phi = n1 ln delta + sum n delta^I tau^J with delta = d/322 kg/m3, tau = 647.096 K/T
    static constexpr double n1 = tables::region3_log_coefficient;
    static constexpr long double R_l = extended(R);
    static constexpr auto d_crit_reciprocal = static_cast<Number>(1 / extended(d_crit));

    static constexpr auto phi = polynomial(tables::region3);

    // The sums below stand for the named derivative without the part of n1 ln delta, which is added
    // where they are used: delta phi_delta has n1, delta^2 phi_deltadelta -n1, the derivatives by
    // tau nothing.
    static constexpr auto delta_phi_delta = weighted(phi, [](int I, int) { return I; });
    // delta phi_delta - delta tau phi_deltatau, plus n1
    static constexpr auto thermal = weighted(phi, [](int I, int J) { return I * (1 - J); });
    // 2 delta phi_delta + delta^2 phi_deltadelta, plus n1
    static constexpr auto stiffness = weighted(phi, [](int I, int) { return I * (I + 1); });
    // tau^2 phi_tautau
    static constexpr auto tautau = weighted(phi, [](int, int J) { return J * (J - 1); });
    // delta times the derivative of stiffness by delta; -tau times that of thermal and of tautau by
    // tau; stiffness less tau times its derivative by tau, less n1
    static constexpr auto stiffness_slope =
        weighted(phi, [](int I, int) { return I * I * (I + 1); });
    static constexpr auto thermal_slope =
        weighted(phi, [](int I, int J) { return I * J * (J - 1); });
    static constexpr auto tautau_slope = weighted(phi, [](int, int J) { return J * J * (J - 1); });
    static constexpr auto mixed_slope =
        weighted(phi, [](int I, int J) { return I * (I + 1) * (1 - J); });

    static constexpr auto pressure = (R_l / 1000) * delta_phi_delta;
    static constexpr auto enthalpy_over_t = R_l * weighted(phi, [](int I, int J) { return I + J; });
    static constexpr auto energy = (R_l * extended(T_crit)) * d_y(phi);
    static constexpr auto entropy = R_l * weighted(phi, [](int, int J) { return J - 1; });
    static constexpr auto gibbs_over_t = R_l * weighted(phi, [](int I, int) { return I + 1; });
    static constexpr auto helmholtz_over_t = R_l * phi;
    static constexpr auto heat_capacity_v = -R_l * tautau;

    // delta times the derivative by delta of h/T and, plus -R n1, of s
    static constexpr auto enthalpy_slope =
        R_l * weighted(phi, [](int I, int J) { return I * (I + J); });
    static constexpr auto entropy_slope =
        R_l * weighted(phi, [](int I, int J) { return I * (J - 1); });

    static constexpr auto R_n1 = static_cast<Number>(R_l * extended(n1));
    static constexpr auto R_n1_1000 = static_cast<Number>(R_l * extended(n1) / 1000);

    VAPRIX_INLINE static Derivatives<Number> from_sums(Number d, Number t, Number tt,
                                                       Number thermal_sum,
                                                       Number stiffness_sum) noexcept {
        constexpr auto v_p_factor = static_cast<Number>(1000 / R_l);
        const Number a = thermal_sum + n1;
        const Number b = stiffness_sum + n1;
        const Number v = 1 / d;
        const Number v_per_b = v / b;
        return {.v = v,
                .v_p = -v_p_factor * v_per_b * v / t,
                .v_t = v_per_b * a / t,
                .h_p = 1000 * v_per_b * (stiffness_sum - thermal_sum),
                .cp = R * (a * a / b - tt),
                .cv = -R * tt};
    }

    template <auto const& Terms, auto const& form>
    VAPRIX_INLINE static Number volume(Number p, Number t) noexcept;
    VAPRIX_INLINE static Number volume_3n(Number p, Number t) noexcept;
    static Subregion near_critical_subregion(Number p, Number t) noexcept;
    VAPRIX_INLINE static Subregion subregion_table2(Number p, Number t) noexcept;
};

using region3 = Region3<double>;
extern template struct Region3<double>;
VAPRIX_DERIVED(extern template, (double, double, double), Region3<double>);

// p = d R T delta phi_delta
template <class Number>
Number Region3<Number>::p(Number d, Number t) noexcept {
    return d * t * (evaluate<pressure>(d * d_crit_reciprocal, T_crit / t) + R_n1_1000);
}

// h = R T (tau phi_tau + delta phi_delta)
template <class Number>
Number Region3<Number>::h(Number d, Number t) noexcept {
    return t * (evaluate<enthalpy_over_t>(d * d_crit_reciprocal, T_crit / t) + R_n1);
}

// u = R T tau phi_tau
template <class Number>
Number Region3<Number>::u(Number d, Number t) noexcept {
    return evaluate<energy>(d * d_crit_reciprocal, T_crit / t);
}

// s = R (tau phi_tau - phi)
template <class Number>
Number Region3<Number>::s(Number d, Number t) noexcept {
    const Number delta = d * d_crit_reciprocal;
    return evaluate<entropy>(delta, T_crit / t) - R_n1 * guarded_log(delta);
}

// g = R T (phi + delta phi_delta)
template <class Number>
Number Region3<Number>::g(Number d, Number t) noexcept {
    const Number delta = d * d_crit_reciprocal;
    return t * (evaluate<gibbs_over_t>(delta, T_crit / t) + R_n1 * (1 + guarded_log(delta)));
}

// f = R T phi
template <class Number>
Number Region3<Number>::f(Number d, Number t) noexcept {
    const Number delta = d * d_crit_reciprocal;
    return t * (evaluate<helmholtz_over_t>(delta, T_crit / t) + R_n1 * guarded_log(delta));
}

// cv = -R tau^2 phi_tautau
template <class Number>
Number Region3<Number>::cv(Number d, Number t) noexcept {
    return evaluate<heat_capacity_v>(d * d_crit_reciprocal, T_crit / t);
}

// cp = cv + R (delta phi_delta - delta tau phi_deltatau)^2 / (2 delta phi_delta + delta^2
// phi_deltadelta)
template <class Number>
Number Region3<Number>::cp(Number d, Number t) noexcept {
    return derivatives(d, t).cp;
}

// w^2 = R T (2 delta phi_delta + delta^2 phi_deltadelta
//            - (delta phi_delta - delta tau phi_deltatau)^2 / (tau^2 phi_tautau))
template <class Number>
Number Region3<Number>::w(Number d, Number t) noexcept {
    const auto [tt, a, b] = evaluate<tautau, thermal, stiffness>(d * d_crit_reciprocal, T_crit / t);
    return signed_sqrt(1000 * R * t * (b + n1 - (a + n1) * (a + n1) / tt));
}

// p_d = R T (2 delta phi_delta + delta^2 phi_deltadelta),
// p_t = R d (delta phi_delta - delta tau phi_deltatau),
// h_d = (1000/d) (p_d - (T/d) p_t), h_t = cv + 1000 p_t/d
template <class Number>
TangentPair<Number> Region3<Number>::ph_tangents(Number d, Number t) noexcept {
    const auto [i, a, b, tt, h_t] =
        evaluate<delta_phi_delta, thermal, stiffness, tautau, enthalpy_over_t>(
            d * d_crit_reciprocal, T_crit / t);
    const Number factor = R * t / 1000;
    const Number p_d = factor * (b + n1);
    const Number p_t = R / 1000 * d * (a + n1);
    const Number v = 1000 / d;
    return {d * factor * (i + n1), p_d, p_t, t * (h_t + R_n1), v * (p_d - t / d * p_t),
            v * p_t - R * tt};
}

// s_d = -1000 p_t/d^2, s_t = cv/T
template <class Number>
TangentPair<Number> Region3<Number>::ps_tangents(Number d, Number t) noexcept {
    const Number delta = d * d_crit_reciprocal;
    const auto [i, a, b, tt, s] =
        evaluate<delta_phi_delta, thermal, stiffness, tautau, entropy>(delta, T_crit / t);
    const Number factor = R * t / 1000;
    const Number p_t = R / 1000 * d * (a + n1);
    return {d * factor * (i + n1),         factor * (b + n1),     p_t,
            s - R_n1 * guarded_log(delta), -1000 * p_t / (d * d), -R * tt / t};
}

template <class Number>
Tangent<Number> Region3<Number>::p_tangent_t(Number d, Number t) noexcept {
    const auto [i, a] = evaluate<delta_phi_delta, thermal>(d * d_crit_reciprocal, T_crit / t);
    const Number factor = R / 1000 * d;
    return {factor * t * (i + n1), factor * (a + n1)};
}

template <class Number>
Tangent<Number> Region3<Number>::h_tangent_d(Number d, Number t) noexcept {
    const auto [h_over_t, slope] =
        evaluate<enthalpy_over_t, enthalpy_slope>(d * d_crit_reciprocal, T_crit / t);
    return {t * (h_over_t + R_n1), t * slope / d};
}

template <class Number>
Tangent<Number> Region3<Number>::s_tangent_d(Number d, Number t) noexcept {
    const Number delta = d * d_crit_reciprocal;
    const auto [s, slope] = evaluate<entropy, entropy_slope>(delta, T_crit / t);
    return {s - R_n1 * guarded_log(delta), (slope - R_n1) / d};
}

template <class Number>
TangentPair<Number> Region3<Number>::hs_tangents(Number d, Number t) noexcept {
    const Number delta = d * d_crit_reciprocal;
    const auto [a, b, tt, h_t, s] =
        evaluate<thermal, stiffness, tautau, enthalpy_over_t, entropy>(delta, T_crit / t);
    const Number p_t = R * (a + n1);  // times 1000/d, as is p_d
    const Number p_d = R * t / d * (b + n1);
    return {t * (h_t + R_n1), p_d - t / d * p_t, p_t - R * tt, s - R_n1 * guarded_log(delta),
            -p_t / d,         -R * tt / t};
}

template <class Number>
Region3<Number>::Isotherm::Isotherm(Number t) noexcept
    : c(coefficients_in_x<pressure>(T_crit / t)) {
    c[0] += R_n1_1000;  // the table has no power 0 of delta in delta phi_delta
    Number factor = t;  // T / 322^k
    for (Number& coefficient : c) {
        coefficient *= factor;
        factor *= d_crit_reciprocal;
    }
}

template <class Number>
template <Formula<Number> formula>
Number Region3<Number>::derived(Number p, Number d, Number t) noexcept {
    return formula(derivatives(d, t), p);
}

}  // namespace vaprix
