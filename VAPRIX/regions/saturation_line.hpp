// SPDX-License-Identifier: MIT
//
// Region 4, the saturation line: 273.15 K to the critical point. Nothing is checked here.
// Source: IAPWS R7-97(2012), Eqs. (29) to (31), Table 34; IAPWS SR4-04(2014), Eq. (9), Table 28.
#pragma once

#include <algorithm>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/newton.hpp"
#include "frame/pegasus.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/saturation.hpp"

namespace vaprix {

// Saturation pressure, MPa, of t, K: Eq. (30), exactly 22.064 MPa at 647.096 K.
template <class Number>
[[nodiscard]] Number psat(Number t) noexcept;

// The same with its slope dps/dT, MPa/K, from shared sums.
template <class Number>
[[nodiscard]] Tangent<Number> psat_tangent(Number t) noexcept;

// Saturation temperature, K, of p, MPa: backward equation, Eq. (31).
template <class Number>
[[nodiscard]] Number tsat(Number p) noexcept;

// Derivative dTs/dp of Eq. (31), K/MPa.
template <class Number>
[[nodiscard]] Number tsat_p(Number p) noexcept;

// Temperature, K, of wet steam of h, kJ/kg, and s, kJ/(kg K), from 5.210887825 kJ/(kg K), the
// saturated vapour at 623.15 K, upwards: backward equation.
template <class Number>
[[nodiscard]] Number tsat_hs(Number h, Number s) noexcept;

// Saturation temperature, K, that gives p, MPa, back through Eq. (30) to rounding; exactly 647.096
// K at 22.064 MPa. Solved by the Pegasus method around Eq. (31); 0.0 if that does not settle.
template <class Number>
[[nodiscard]] Number tsat_exact(Number p) noexcept;

// Distance from the critical point, K or MPa, within which a state of the line is at it.
inline constexpr double critical_rounding = 1e-15;

extern template double psat(double) noexcept;
extern template Tangent<double> psat_tangent(double) noexcept;
extern template double tsat(double) noexcept;
extern template double tsat_p(double) noexcept;
extern template double tsat_hs(double, double) noexcept;
extern template double tsat_exact(double) noexcept;

namespace detail::line {

inline constexpr auto& n = tables::saturation;
inline constexpr double n1 = n[0], n2 = n[1], n3 = n[2], n4 = n[3], n5 = n[4], n6 = n[5], n7 = n[6],
                        n8 = n[7], n9 = n[8], n10 = n[9];

// Eq. (31) and what its derivative needs: beta = p^(1/4); E, F, G; the root of F^2 - 4 E G; D; and
// half the root of (n10 + D)^2 - 4 (n9 + n10 D), which is (n10 - D)^2 - 4 n9 without the
// cancellation.
template <class Number>
struct Backward {
    Number beta, E, F, G, root, D, half_root;

    explicit Backward(Number p) noexcept
        : beta(signed_sqrt(signed_sqrt(p))),
          E((beta + n3) * beta + n6),
          F((n1 * beta + n4) * beta + n7),
          G((n2 * beta + n5) * beta + n8),
          root(signed_sqrt(F * F - 4 * E * G)),
          D(2 * G / (-F - root)),
          half_root(0.5 * signed_sqrt((n10 - D) * (n10 - D) - 4 * n9)) {}

    [[nodiscard]] Number t() const noexcept { return 0.5 * (n10 + D) - half_root; }

    // dT/dp
    [[nodiscard]] Number t_p() const noexcept {
        const Number beta_p = 1 / (4 * beta * beta * beta);
        const Number E_p = (2 * beta + n3) * beta_p;
        const Number F_p = (2 * n1 * beta + n4) * beta_p;
        const Number G_p = (2 * n2 * beta + n5) * beta_p;
        const Number root_p = (F * F_p - 2 * (E_p * G + E * G_p)) / root;
        const Number D_p = (2 * G_p + D * (F_p + root_p)) / (-F - root);
        return 0.5 * D_p * (1 + (n10 - D) / (2 * half_root));
    }
};

// Eq. (30) and what its derivative needs.
template <class Number>
struct Forward {
    Number theta, A, B, C, beta;

    explicit Forward(Number t) noexcept
        : theta(t + n9 / (t - n10)),
          A((theta + n1) * theta + n2),
          B((n3 * theta + n4) * theta + n5),
          C((n6 * theta + n7) * theta + n8),
          beta(2 * C / (signed_sqrt(B * B - 4 * A * C) - B)) {}
};

}  // namespace detail::line

template <class Number>
Number psat(Number t) noexcept {
    // Eq. (30) itself gives 22.064000000002 MPa at the critical temperature.
    const detail::line::Forward<Number> f(t);
    const Number ps = (f.beta * f.beta) * (f.beta * f.beta);
    return machine::select(fabs(t - T_crit) < critical_rounding, Number(p_crit), ps);
}

// dbeta/dtheta from A beta^2 + B beta + C = 0, Eq. (29)
template <class Number>
Tangent<Number> psat_tangent(Number t) noexcept {
    using namespace detail::line;
    const Forward<Number> f(t);
    const Number beta2 = f.beta * f.beta;
    const Number by_theta =
        (2 * f.theta + n1) * beta2 + (2 * n3 * f.theta + n4) * f.beta + (2 * n6 * f.theta + n7);
    const Number by_beta = 2 * f.A * f.beta + f.B;
    const Number theta_t = 1 - n9 / ((t - n10) * (t - n10));
    return {beta2 * beta2, -4 * beta2 * f.beta * by_theta / by_beta * theta_t};
}

template <class Number>
Number tsat(Number p) noexcept {
    return detail::line::Backward<Number>(p).t();
}

template <class Number>
Number tsat_p(Number p) noexcept {
    return detail::line::Backward<Number>(p).t_p();
}

// T = 550 K sum n (h / 2800 - 0.119)^I (s / 9.2 - 1.07)^J
template <class Number>
Number tsat_hs(Number h, Number s) noexcept {
    static constexpr auto temperature = 550 * polynomial(tables::tsat_hs);
    return evaluate<temperature>(h / 2800 - 0.119, s / 9.2 - 1.07);
}

// Eqs. (30) and (31) solve the same equation (29), so the backward temperature is off by no more
// than its rounding, which one Newton step takes away; 0 where it is off by more.
template <class Number>
[[nodiscard]] VAPRIX_INLINE Number tsat_corrected(Number p) noexcept {
    constexpr double rounding = 1e-12;  // relative
    const detail::line::Backward<Number> b(p);
    const Number t = b.t();
    const Number step = (p - psat(t)) * b.t_p();
    const Number corrected = machine::select(t + step > T_crit, Number(T_crit), t + step);
    return machine::select(fabs(step) < rounding * t, corrected, Number(0));
}

template <class Number>
Number tsat_exact(Number p) noexcept {
    if (fabs(p_crit - p) < critical_rounding) return T_crit;
    const Number corrected = tsat_corrected(p);
    if (corrected > 0) return corrected;
    const Number t = tsat(p);
    return pegasus([p](Number x) noexcept { return psat(x) - p; },
                   std::max<Number>(T_min, 0.99 * t), std::min<Number>(T_crit, 1.01 * t), 1e-15);
}

}  // namespace vaprix
