// SPDX-License-Identifier: MIT
//
// Properties of a vapour equation gamma(pi, tau) = gamma0 + gammar, an ideal-gas part and a
// residual part, which regions 2 and 5 share: IAPWS R7-97(2012), Tables 12 and 41.
//
// Equation names the two tables as polynomials (the ideal part in tau alone), T*, the shift of tau
// in the residual part and the stored reciprocals of T*; p* = 1 MPa, so pi is p.
#pragma once

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/newton.hpp"
#include "frame/polynomial.hpp"
#include "regions/derivatives.hpp"

namespace vaprix {

// h and s + R ln p with their slopes.
template <class Number>
struct TangentsP {
    Tangent<Number> h, s_plus_r_ln_p;
};

template <class Equation, class Number>
class Vapour {
public:
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

    // s + R ln p, which spares an iteration along the isobar the logarithm.
    [[nodiscard]] static Number s_plus_r_ln_p(Number p, Number t) noexcept;

    // h and s + R ln p with their slopes in T along the isobar, cp and cp/T, from shared sums.
    [[nodiscard]] static Tangent<Number> h_tangent_t(Number p, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> s_plus_r_ln_p_tangent_t(Number p, Number t) noexcept;

    // h and s with their slopes by pressure and by temperature, from shared sums.
    [[nodiscard]] static TangentPair<Number> hs_tangents(Number p, Number t) noexcept;

    // v and h, v and s, from shared powers.
    [[nodiscard]] static Point<Number> vh(Number p, Number t) noexcept;
    [[nodiscard]] static Point<Number> vs(Number p, Number t) noexcept;

    // The same with their slopes by pressure and by temperature.
    [[nodiscard]] static TangentPair<Number> vh_tangents(Number p, Number t) noexcept;
    [[nodiscard]] static TangentPair<Number> vs_tangents(Number p, Number t) noexcept;

    // h and s + R ln p with their slopes by pressure, from shared sums.
    [[nodiscard]] static TangentsP<Number> h_and_s_plus_r_ln_p_tangents_p(Number p,
                                                                          Number t) noexcept;

    // v with its slope in p along the isotherm, from shared powers.
    [[nodiscard]] static Tangent<Number> v_tangent_p(Number p, Number t) noexcept;

    // v with its slope in T along the isobar.
    [[nodiscard]] static Tangent<Number> v_tangent_t(Number p, Number t) noexcept;

    // h and s + R ln p with their slopes in p along the isotherm.
    [[nodiscard]] static Tangent<Number> h_tangent_p(Number p, Number t) noexcept;
    [[nodiscard]] static Tangent<Number> s_plus_r_ln_p_tangent_p(Number p, Number t) noexcept;

    // A property by its formula on the derivatives.
    template <Formula<Number> formula>
    [[nodiscard]] static Number derived(Number p, Number t) noexcept;

    // All derivatives at once, inlined: a sum that is not read is not evaluated.
    // v = R T a / p, (dv/dp)_T = -R T c / p^2, (dv/dT)_p = R b / p, (dh/dp)_T = R T tau
    // gammar_pitau, the ideal gas having none, cp and cv as above
    VAPRIX_INLINE static Derivatives<Number> derivatives(Number p, Number t) noexcept {
        return derivatives(p, t, SecondDerivatives(p, t));
    }
    VAPRIX_INLINE static DerivativesAndEntropy<Number> derivatives_and_s(Number p,
                                                                         Number t) noexcept {
        const Number r_ln_p = R * guarded_log(p);  // before the sums, which the call would spill
        const Number tau = Equation::T_star / t;
        const auto [s, tt, pi, pitau, pipi] =
            evaluate<entropy, gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(
                p, tau - Equation::shift);
        return {derivatives(p, t, SecondDerivatives(p, t, tau, tt, pi, pitau, pipi)),
                ideal<entropy0>(tau, t) + s - r_ln_p};
    }

    // v_pp = R T (2 / p^3 + gammar_pipipi), v_pt = R (gammar_pipi - tau gammar_pipitau - 1 / p^2),
    // v_tt = R tau^2 gammar_pitautau / T,
    // cp_t = R tau^2 (2 gamma_tautau + tau gamma_tautautau) / T, gamma = gamma0 + gammar
    VAPRIX_INLINE static Curvatures<Number> curvatures(Number p, Number t) noexcept {
        const Number tau = Equation::T_star / t;
        const auto [pipipi, pipi, pipitau, pitautau, tt, ttt] =
            evaluate<gamma_pipipi, gamma_pipi, gamma_pipitau, gamma_pitautau, gamma_tautau,
                     gamma_tautautau>(p, tau - Equation::shift);
        const Number tau2_t = tau * tau / t;
        const Number ideal_pipi = 1 / (p * p);
        return {.v_pp = v_factor * t * (2 * ideal_pipi / p + pipipi),
                .v_pt = v_factor * (pipi - tau * pipitau - ideal_pipi),
                .v_tt = v_factor * tau2_t * pitautau,
                .h_pp = h_p_factor * pipitau,
                .cp_t = R / t * ideal<slope0>(tau, t) + R * tau2_t * (2 * tt + tau * ttt)};
    }

    // The two parts of gamma = g/(R T): that of the ideal gas at 1 MPa, gamma0 - ln pi, and the
    // residual one, which is the logarithm of the fugacity coefficient.
    [[nodiscard]] static Number ideal_part(Number t) noexcept;
    [[nodiscard]] static Number residual_part(Number p, Number t) noexcept;

private:
    static constexpr long double R_l = extended(R);
    static constexpr long double R_T_star = R_l * extended(Equation::T_star);

    static constexpr auto v_factor = static_cast<Number>(R_l / 1000);
    static constexpr auto h_p_factor = static_cast<Number>(R_T_star);

    // ideal-gas part, without ln pi
    static constexpr auto gamma0 = Equation::ideal;
    static constexpr auto tautau0 = weighted(gamma0, [](int, int J) { return J * (J - 1); });
    // 2 tau^2 gamma0_tautau + tau^3 gamma0_tautautau
    static constexpr auto slope0 = weighted(gamma0, [](int, int J) { return J * J * (J - 1); });
    static constexpr auto enthalpy0 = R_T_star * d_y(gamma0);
    static constexpr auto entropy0 = R_l * weighted(gamma0, [](int, int J) { return J - 1; });
    static constexpr auto gibbs0_over_t = R_l * gamma0;

    // residual part; its y is tau - shift
    static constexpr auto gamma = Equation::residual;
    static constexpr auto gamma_pi = d_x(gamma);
    static constexpr auto gamma_pipi = d_x(gamma_pi);
    static constexpr auto gamma_tau = d_y(gamma);
    static constexpr auto gamma_tautau = d_y(gamma_tau);
    static constexpr auto gamma_pitau = d_y(gamma_pi);
    static constexpr auto gamma_pipipi = d_x(gamma_pipi);
    static constexpr auto gamma_pipitau = d_y(gamma_pipi);
    static constexpr auto gamma_pitautau = d_y(gamma_pitau);
    static constexpr auto gamma_tautautau = d_y(gamma_tautau);
    static constexpr auto enthalpy = R_T_star * gamma_tau;
    // tau gamma_tau - gamma as one polynomial, all of whose folded terms keep their sign
    static constexpr auto entropy = R_l * (weighted(gamma, [](int, int J) { return J - 1; }) +
                                           extended(Equation::shift) * gamma_tau);
    static constexpr auto gibbs_over_t = R_l * gamma;
    static constexpr auto enthalpy_p = d_x(enthalpy);
    static constexpr auto entropy_p = d_x(entropy);

    // Value of an ideal-gas polynomial; its negative powers of tau are positive ones of T times
    // 1/T*.
    template <auto const& P>
    static Number ideal(Number tau, Number t, Number reciprocal) noexcept {
        return evaluate<P>(WithReciprocal<Number>{0, 0},
                           WithReciprocal<Number>{tau, t * reciprocal});
    }

    template <auto const& P>
    static Number ideal(Number tau, Number t) noexcept {
        return ideal<P>(tau, t, Equation::T_star_reciprocal);
    }

    // What the derivatives and the speed of sound are made of; inlined, so that no sum is evaluated
    // that is not read.
    struct SecondDerivatives {
        Number tautau;  // tau^2 (gamma0_tautau + gammar_tautau)
        Number a;       // 1 + pi gammar_pi
        Number b;       // 1 + pi gammar_pi - tau pi gammar_pitau
        Number c;       // 1 - pi^2 gammar_pipi
        Number pitau;   // gammar_pitau

        VAPRIX_INLINE SecondDerivatives(Number p, Number t) noexcept {
            const Number tau = Equation::T_star / t;
            const auto [tt, pi, mixed, pipi] =
                evaluate<gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(p, tau - Equation::shift);
            *this = SecondDerivatives(p, t, tau, tt, pi, mixed, pipi);
        }
        VAPRIX_INLINE SecondDerivatives(Number p, Number t, Number tau, Number tt, Number pi,
                                        Number mixed, Number pipi) noexcept {
            tautau = ideal<tautau0>(tau, t) + tau * tau * tt;
            pitau = mixed;
            a = 1 + p * pi;
            b = a - tau * p * pitau;
            c = 1 - p * p * pipi;
        }
    };

    VAPRIX_INLINE static Derivatives<Number> derivatives(Number p, Number t,
                                                         const SecondDerivatives& d) noexcept {
        const Number v_t_ideal = v_factor / p;
        const Number v_ideal = v_t_ideal * t;
        return {.v = v_ideal * d.a,
                .v_p = -v_ideal / p * d.c,
                .v_t = v_t_ideal * d.b,
                .h_p = h_p_factor * d.pitau,
                .cp = -R * d.tautau,
                .cv = -R * (d.tautau + d.b * d.b / d.c)};
    }
};

// v = R T (gamma0_pi + gammar_pi), gamma0_pi = 1/pi
template <class Equation, class Number>
Number Vapour<Equation, Number>::v(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    return v_factor * t * (1 / p + evaluate<gamma_pi>(p, tau - Equation::shift));
}

// h = R T tau (gamma0_tau + gammar_tau)
template <class Equation, class Number>
Number Vapour<Equation, Number>::h(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    return ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) +
           evaluate<enthalpy>(p, tau - Equation::shift);
}

// u = R T (tau (gamma0_tau + gammar_tau) - (1 + pi gammar_pi))
template <class Equation, class Number>
Number Vapour<Equation, Number>::u(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [from_tau, from_pi] = evaluate<enthalpy, gamma_pi>(p, tau - Equation::shift);
    return ideal<enthalpy0>(tau, t) + from_tau - R * t * (1 + p * from_pi);
}

// s = R (tau (gamma0_tau + gammar_tau) - (gamma0 + gammar))
template <class Equation, class Number>
Number Vapour<Equation, Number>::s(Number p, Number t) noexcept {
    const Number ln_p = guarded_log(p);
    return s_plus_r_ln_p(p, t) - R * ln_p;
}

// s + R ln p
template <class Equation, class Number>
Number Vapour<Equation, Number>::s_plus_r_ln_p(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    return ideal<entropy0>(tau, t) + evaluate<entropy>(p, tau - Equation::shift);
}

// g = R T (gamma0 + gammar)
template <class Equation, class Number>
Number Vapour<Equation, Number>::g(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    return t * (ideal<gibbs0_over_t>(tau, t) + evaluate<gibbs_over_t>(p, tau - Equation::shift) +
                R * guarded_log(p));
}

// cp = -R tau^2 (gamma0_tautau + gammar_tautau)
template <class Equation, class Number>
Number Vapour<Equation, Number>::cp(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    return -R *
           (ideal<tautau0>(tau, t) + tau * tau * evaluate<gamma_tautau>(p, tau - Equation::shift));
}

template <class Equation, class Number>
Point<Number> Vapour<Equation, Number>::vh(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [pi, h] = evaluate<gamma_pi, enthalpy>(p, tau - Equation::shift);
    return {v_factor * t * (1 / p + pi),
            ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h};
}

template <class Equation, class Number>
Point<Number> Vapour<Equation, Number>::vs(Number p, Number t) noexcept {
    const Number r_ln_p = R * guarded_log(p);
    const Number tau = Equation::T_star / t;
    const auto [pi, s] = evaluate<gamma_pi, entropy>(p, tau - Equation::shift);
    return {v_factor * t * (1 / p + pi), ideal<entropy0>(tau, t) + s - r_ln_p};
}

template <class Equation, class Number>
TangentPair<Number> Vapour<Equation, Number>::vh_tangents(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [h, tt, pi, pitau, pipi] =
        evaluate<enthalpy, gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(p,
                                                                            tau - Equation::shift);
    const Derivatives<Number> f =
        derivatives(p, t, SecondDerivatives(p, t, tau, tt, pi, pitau, pipi));
    return {f.v,   f.v_p, f.v_t, ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h,
            f.h_p, f.cp};
}

template <class Equation, class Number>
TangentPair<Number> Vapour<Equation, Number>::vs_tangents(Number p, Number t) noexcept {
    const auto [f, s] = derivatives_and_s(p, t);
    return {f.v, f.v_p, f.v_t, s, -1000 * f.v_t, f.cp / t};
}

template <class Equation, class Number>
Tangent<Number> Vapour<Equation, Number>::h_tangent_t(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [h, tt] = evaluate<enthalpy, gamma_tautau>(p, tau - Equation::shift);
    return {ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h,
            -R * (ideal<tautau0>(tau, t) + tau * tau * tt)};
}

// of s + R ln p
template <class Equation, class Number>
Tangent<Number> Vapour<Equation, Number>::s_plus_r_ln_p_tangent_t(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [s, tt] = evaluate<entropy, gamma_tautau>(p, tau - Equation::shift);
    return {ideal<entropy0>(tau, t) + s,
            -R / Equation::T_star * tau * (ideal<tautau0>(tau, t) + tau * tau * tt)};
}

template <class Equation, class Number>
Tangent<Number> Vapour<Equation, Number>::v_tangent_p(Number p, Number t) noexcept {
    const auto [pi, pipi] =
        evaluate<gamma_pi, gamma_pipi>(p, Equation::T_star / t - Equation::shift);
    const Number ideal = 1 / p;
    return {v_factor * t * (ideal + pi), v_factor * t * (pipi - ideal * ideal)};
}

// h_p = R T* gammar_pitau, s_p = -R (1 + pi gammar_pi - tau pi gammar_pitau) / p
template <class Equation, class Number>
TangentPair<Number> Vapour<Equation, Number>::hs_tangents(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [h, s, tt, pi, pitau] =
        evaluate<enthalpy, entropy, gamma_tautau, gamma_pi, gamma_pitau>(p, tau - Equation::shift);
    const Number cp = -R * (ideal<tautau0>(tau, t) + tau * tau * tt);
    return {ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h,
            h_p_factor * pitau,
            cp,
            ideal<entropy0>(tau, t) + s - R * guarded_log(p),
            -R * (1 / p + (pi - tau * pitau)),
            cp / t};
}

template <class Equation, class Number>
TangentsP<Number> Vapour<Equation, Number>::h_and_s_plus_r_ln_p_tangents_p(Number p,
                                                                           Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [h, s, pi, pitau] =
        evaluate<enthalpy, entropy, gamma_pi, gamma_pitau>(p, tau - Equation::shift);
    return {{ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h, h_p_factor * pitau},
            {ideal<entropy0>(tau, t) + s, -R * (pi - tau * pitau)}};
}

template <class Equation, class Number>
Tangent<Number> Vapour<Equation, Number>::v_tangent_t(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [pi, pitau] = evaluate<gamma_pi, gamma_pitau>(p, tau - Equation::shift);
    const Number ideal = 1 / p;
    return {v_factor * t * (ideal + pi), v_factor * (ideal + (pi - tau * pitau))};
}

template <class Equation, class Number>
Tangent<Number> Vapour<Equation, Number>::h_tangent_p(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [h, h_p] = evaluate<enthalpy, enthalpy_p>(p, tau - Equation::shift);
    return {ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h, h_p};
}

// of s + R ln p
template <class Equation, class Number>
Tangent<Number> Vapour<Equation, Number>::s_plus_r_ln_p_tangent_p(Number p, Number t) noexcept {
    const Number tau = Equation::T_star / t;
    const auto [s, s_p] = evaluate<entropy, entropy_p>(p, tau - Equation::shift);
    return {ideal<entropy0>(tau, t) + s, s_p};
}

// cv = cp - R (1 + pi gammar_pi - tau pi gammar_pitau)^2 / (1 - pi^2 gammar_pipi)
template <class Equation, class Number>
Number Vapour<Equation, Number>::cv(Number p, Number t) noexcept {
    return derivatives(p, t).cv;
}

// w^2 = R T a^2 / (c + b^2 / (tau^2 (gamma0_tautau + gammar_tautau))), a, b, c as above
template <class Equation, class Number>
Number Vapour<Equation, Number>::w(Number p, Number t) noexcept {
    const SecondDerivatives d(p, t);
    return fabs(d.a) * signed_sqrt(1000 * R * t / (d.c + d.b * d.b / d.tautau));
}

// gamma0 - ln pi
template <class Equation, class Number>
Number Vapour<Equation, Number>::ideal_part(Number t) noexcept {
    return ideal<gamma0>(Equation::T_star / t, t);
}

// gammar
template <class Equation, class Number>
Number Vapour<Equation, Number>::residual_part(Number p, Number t) noexcept {
    return evaluate<gamma>(p, Equation::T_star / t - Equation::shift);
}

template <class Equation, class Number>
Number Vapour<Equation, Number>::v_t(Number p, Number t) noexcept {
    return derivatives(p, t).v_t;
}

template <class Equation, class Number>
template <Formula<Number> formula>
Number Vapour<Equation, Number>::derived(Number p, Number t) noexcept {
    return formula(derivatives(p, t), p);
}

}  // namespace vaprix
