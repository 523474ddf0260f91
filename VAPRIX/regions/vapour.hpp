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

template <class Equation>
class Vapour {
    static constexpr long double R_l = extended(R);
    static constexpr long double R_T_star = R_l * extended(Equation::T_star);

    // ideal-gas part, without ln pi
    static constexpr auto gamma0 = Equation::ideal;
    static constexpr auto tautau0 = weighted(gamma0, [](int, int J) { return J * (J - 1); });
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
    static double ideal(double tau, double t, double reciprocal) noexcept {
        return evaluate<P>(WithReciprocal<double>{0, 0},
                           WithReciprocal<double>{tau, t * reciprocal});
    }

    template <auto const& P>
    static double ideal(double tau, double t) noexcept {
        return ideal<P>(tau, t, Equation::T_star_reciprocal);
    }

    // What the derivatives and the speed of sound are made of; inlined, so that no sum is evaluated
    // that is not read.
    struct SecondDerivatives {
        double tautau;  // tau^2 (gamma0_tautau + gammar_tautau)
        double a;       // 1 + pi gammar_pi
        double b;       // 1 + pi gammar_pi - tau pi gammar_pitau
        double c;       // 1 - pi^2 gammar_pipi
        double pitau;   // gammar_pitau

        VAPRIX_INLINE SecondDerivatives(double p, double t) noexcept {
            const double tau = Equation::T_star / t;
            const auto [tt, pi, mixed, pipi] =
                evaluate<gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(p, tau - Equation::shift);
            tautau = ideal<tautau0>(tau, t) + tau * tau * tt;
            pitau = mixed;
            a = 1 + p * pi;
            b = a - tau * p * pitau;
            c = 1 - p * p * pipi;
        }
    };

public:
    // v = R T (gamma0_pi + gammar_pi), gamma0_pi = 1/pi
    static double v(double p, double t) noexcept {
        constexpr auto factor = static_cast<double>(R_l / 1000);
        const double tau = Equation::T_star / t;
        return factor * t * (1 / p + evaluate<gamma_pi>(p, tau - Equation::shift));
    }

    // h = R T tau (gamma0_tau + gammar_tau)
    static double h(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        return ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) +
               evaluate<enthalpy>(p, tau - Equation::shift);
    }

    // u = R T (tau (gamma0_tau + gammar_tau) - (1 + pi gammar_pi))
    static double u(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        const auto [from_tau, from_pi] = evaluate<enthalpy, gamma_pi>(p, tau - Equation::shift);
        return ideal<enthalpy0>(tau, t) + from_tau - R * t * (1 + p * from_pi);
    }

    // s = R (tau (gamma0_tau + gammar_tau) - (gamma0 + gammar))
    static double s(double p, double t) noexcept {
        return s_plus_r_ln_p(p, t) - R * guarded_log(p);
    }

    // s + R ln p
    static double s_plus_r_ln_p(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        return ideal<entropy0>(tau, t) + evaluate<entropy>(p, tau - Equation::shift);
    }

    // g = R T (gamma0 + gammar)
    static double g(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        return t * (ideal<gibbs0_over_t>(tau, t) +
                    evaluate<gibbs_over_t>(p, tau - Equation::shift) + R * guarded_log(p));
    }

    // cp = -R tau^2 (gamma0_tautau + gammar_tautau)
    static double cp(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        return -R * (ideal<tautau0>(tau, t) +
                     tau * tau * evaluate<gamma_tautau>(p, tau - Equation::shift));
    }

    static Tangent h_tangent_t(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        const auto [h, tt] = evaluate<enthalpy, gamma_tautau>(p, tau - Equation::shift);
        return {ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h,
                -R * (ideal<tautau0>(tau, t) + tau * tau * tt)};
    }

    // of s + R ln p
    static Tangent s_plus_r_ln_p_tangent_t(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        const auto [s, tt] = evaluate<entropy, gamma_tautau>(p, tau - Equation::shift);
        return {ideal<entropy0>(tau, t) + s,
                -R / Equation::T_star * tau * (ideal<tautau0>(tau, t) + tau * tau * tt)};
    }

    static Tangent v_tangent_p(double p, double t) noexcept {
        constexpr auto factor = static_cast<double>(R_l / 1000);
        const auto [pi, pipi] =
            evaluate<gamma_pi, gamma_pipi>(p, Equation::T_star / t - Equation::shift);
        const double ideal = 1 / p;
        return {factor * t * (ideal + pi), factor * t * (pipi - ideal * ideal)};
    }

    // h_p = R T* gammar_pitau, s_p = -R (1 + pi gammar_pi - tau pi gammar_pitau) / p
    static TangentPair hs_tangents(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        const auto [h, s, tt, pi, pitau] =
            evaluate<enthalpy, entropy, gamma_tautau, gamma_pi, gamma_pitau>(p,
                                                                             tau - Equation::shift);
        const double cp = -R * (ideal<tautau0>(tau, t) + tau * tau * tt);
        return {ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h,
                R * Equation::T_star * pitau,
                cp,
                ideal<entropy0>(tau, t) + s - R * guarded_log(p),
                -R * (1 / p + (pi - tau * pitau)),
                cp / t};
    }

    static Tangent v_tangent_t(double p, double t) noexcept {
        constexpr auto factor = static_cast<double>(R_l / 1000);
        const double tau = Equation::T_star / t;
        const auto [pi, pitau] = evaluate<gamma_pi, gamma_pitau>(p, tau - Equation::shift);
        const double ideal = 1 / p;
        return {factor * t * (ideal + pi), factor * (ideal + (pi - tau * pitau))};
    }

    static Tangent h_tangent_p(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        const auto [h, h_p] = evaluate<enthalpy, enthalpy_p>(p, tau - Equation::shift);
        return {ideal<enthalpy0>(tau, t, Equation::T_star_reciprocal_h) + h, h_p};
    }

    // of s + R ln p
    static Tangent s_plus_r_ln_p_tangent_p(double p, double t) noexcept {
        const double tau = Equation::T_star / t;
        const auto [s, s_p] = evaluate<entropy, entropy_p>(p, tau - Equation::shift);
        return {ideal<entropy0>(tau, t) + s, s_p};
    }

    // cv = cp - R (1 + pi gammar_pi - tau pi gammar_pitau)^2 / (1 - pi^2 gammar_pipi)
    static double cv(double p, double t) noexcept { return derivatives(p, t).cv; }

    // w^2 = R T a^2 / (c + b^2 / (tau^2 (gamma0_tautau + gammar_tautau))), a, b, c as above
    static double w(double p, double t) noexcept {
        const SecondDerivatives d(p, t);
        return std::fabs(d.a) * signed_sqrt(1000 * R * t / (d.c + d.b * d.b / d.tautau));
    }

    // v = R T a / p, (dv/dp)_T = -R T c / p^2, (dv/dT)_p = R b / p, (dh/dp)_T = R T tau
    // gammar_pitau, the ideal gas having none, cp and cv as above
    static VAPRIX_INLINE Derivatives derivatives(double p, double t) noexcept {
        constexpr auto v_factor = static_cast<double>(R_l / 1000);
        constexpr auto h_p_factor = static_cast<double>(R_T_star);
        const SecondDerivatives d(p, t);
        const double v_t_ideal = v_factor / p;
        const double v_ideal = v_t_ideal * t;
        return {.v = v_ideal * d.a,
                .v_p = -v_ideal / p * d.c,
                .v_t = v_t_ideal * d.b,
                .h_p = h_p_factor * d.pitau,
                .cp = -R * d.tautau,
                .cv = -R * (d.tautau + d.b * d.b / d.c)};
    }

    // gamma0 - ln pi
    static double ideal_part(double t) noexcept { return ideal<gamma0>(Equation::T_star / t, t); }

    // gammar
    static double residual_part(double p, double t) noexcept {
        return evaluate<gamma>(p, Equation::T_star / t - Equation::shift);
    }
};

}  // namespace vaprix
