// SPDX-License-Identifier: MIT
#include "regions/region1.hpp"

#include <cmath>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/region1.hpp"

namespace vaprix::region1 {
namespace {

// gamma = sum n x^I y^J with x = 7.1 - pi, y = tau - 1.222, pi = p/p*, tau = T*/T
constexpr double p_star = 16.53;  // MPa
constexpr double T_star = 1386;   // K
constexpr double x_0 = 7.1;
constexpr double y_0 = 1.222;

// 1/p*, in the two roundings that v and h, and the other properties, have always been published
// with. They differ by a few units in the last place and must stay apart, or digits of hosts
// change.
constexpr double p_star_reciprocal_short = 0.060496067755596;
constexpr double p_star_reciprocal = 0.060496067755595885;

constexpr long double R_T_star = extended(R) * extended(T_star);
constexpr long double R_per_p_star = extended(R) / (1000 * extended(p_star));

constexpr auto gamma = polynomial(tables::region1);
constexpr auto gamma_pi = -1 * d_x(gamma);
constexpr auto gamma_pipi = d_x(d_x(gamma));
constexpr auto gamma_tau = d_y(gamma);
constexpr auto gamma_tautau = d_y(gamma_tau);
constexpr auto gamma_pitau = d_y(gamma_pi);

constexpr auto volume_over_t = R_per_p_star * gamma_pi;
constexpr auto volume_pitau = R_per_p_star * gamma_pitau;
constexpr auto enthalpy = R_T_star * gamma_tau;
// tau gamma_tau - gamma with tau = y + y_0: one polynomial, all of whose folded terms keep their
// sign
constexpr auto entropy =
    extended(R) * (weighted(gamma, [](int, int J) { return J - 1; }) + extended(y_0) * gamma_tau);
constexpr auto gibbs_over_t = extended(R) * gamma;

// slopes in p
constexpr auto enthalpy_p = (-1 / extended(p_star)) * d_x(enthalpy);
constexpr auto enthalpy_pp = (-1 / extended(p_star)) * d_x(enthalpy_p);
constexpr auto entropy_p = (-1 / extended(p_star)) * d_x(entropy);
constexpr auto entropy_pp = (-1 / extended(p_star)) * d_x(entropy_p);

// Reduced variables; the shifts are applied where the polynomial is evaluated.
struct Reduced {
    double pi, tau;
    Reduced(double p, double t) noexcept : pi(p * p_star_reciprocal), tau(T_star / t) {}
    [[nodiscard]] double x() const noexcept { return x_0 - pi; }
    [[nodiscard]] double y() const noexcept { return tau - y_0; }
};

// v = R T pi gamma_pi / p, (dv/dp)_T = R T gamma_pipi / p*^2,
// (dv/dT)_p = R (gamma_pi - tau gamma_pitau) / p*, (dh/dp)_T = R T tau gamma_pitau / p*,
// cp = -R tau^2 gamma_tautau, cv = cp + R (gamma_pi - tau gamma_pitau)^2 / gamma_pipi
VAPRIX_INLINE Derivatives derivatives(double p, double t) noexcept {
    constexpr auto v_factor = static_cast<double>(R_per_p_star);
    constexpr auto v_p_factor = static_cast<double>(R_per_p_star / extended(p_star));
    constexpr auto h_p_factor = static_cast<double>(R_T_star / extended(p_star));
    const Reduced r(p, t);
    const auto [tautau, pi, pitau, pipi] =
        evaluate<gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(r.x(), r.y());
    const double a = pi - r.tau * pitau;
    const double c = r.tau * r.tau * tautau;
    return {.v = v_factor * t * pi,
            .v_p = v_p_factor * t * pipi,
            .v_t = v_factor * a,
            .h_p = h_p_factor * pitau,
            .cp = -R * c,
            .cv = R * (a * a / pipi - c)};
}

}  // namespace

// v = R T pi gamma_pi / p
double v(double p, double t) noexcept {
    return t * evaluate<volume_over_t>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
}

// h = R T tau gamma_tau
double h(double p, double t) noexcept {
    return evaluate<enthalpy>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
}

// u = R T (tau gamma_tau - pi gamma_pi)
double u(double p, double t) noexcept {
    const Reduced r(p, t);
    const auto [from_tau, from_pi] = evaluate<enthalpy, gamma_pi>(r.x(), r.y());
    return from_tau - R * t * r.pi * from_pi;
}

// s = R (tau gamma_tau - gamma)
double s(double p, double t) noexcept {
    const Reduced r(p, t);
    return evaluate<entropy>(r.x(), r.y());
}

// g = R T gamma
double g(double p, double t) noexcept {
    const Reduced r(p, t);
    return t * evaluate<gibbs_over_t>(r.x(), r.y());
}

// cp = -R tau^2 gamma_tautau
double cp(double p, double t) noexcept {
    const Reduced r(p, t);
    return -R * (r.tau * r.tau) * evaluate<gamma_tautau>(r.x(), r.y());
}

double cv(double p, double t) noexcept { return derivatives(p, t).cv; }

// w^2 = R T gamma_pi^2 / ((gamma_pi - tau gamma_pitau)^2 / (tau^2 gamma_tautau) - gamma_pipi)
double w(double p, double t) noexcept {
    const Reduced r(p, t);
    const auto [tautau, pi, pitau, pipi] =
        evaluate<gamma_tautau, gamma_pi, gamma_pitau, gamma_pipi>(r.x(), r.y());
    const double a = pi - r.tau * pitau;
    return std::fabs(pi) * signed_sqrt(1000 * R * t / (a * a / (r.tau * r.tau * tautau) - pipi));
}

double v_t(double p, double t) noexcept { return derivatives(p, t).v_t; }

Tangent h_tangent_t(double p, double t) noexcept {
    const double tau = T_star / t;
    const auto [h, tautau] =
        evaluate<enthalpy, gamma_tautau>(x_0 - p * p_star_reciprocal_short, tau - y_0);
    return {h, -R * (tau * tau) * tautau};
}

Tangent v_tangent_p(double p, double t) noexcept {
    constexpr auto factor = static_cast<double>(R_per_p_star / extended(p_star));
    const auto [v_over_t, pipi] =
        evaluate<volume_over_t, gamma_pipi>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
    return {t * v_over_t, factor * t * pipi};
}

Tangent v_tangent_t(double p, double t) noexcept {
    const double tau = T_star / t;
    const auto [v_over_t, pitau] =
        evaluate<volume_over_t, volume_pitau>(x_0 - p * p_star_reciprocal_short, tau - y_0);
    return {t * v_over_t, v_over_t - tau * pitau};
}

Tangent h_tangent_p(double p, double t) noexcept {
    const auto [h, h_p] =
        evaluate<enthalpy, enthalpy_p>(x_0 - p * p_star_reciprocal_short, T_star / t - y_0);
    return {h, h_p};
}

Tangent s_tangent_p(double p, double t) noexcept {
    const Reduced r(p, t);
    const auto [s, s_p] = evaluate<entropy, entropy_p>(r.x(), r.y());
    return {s, s_p};
}

Tangent h_p_tangent_p(double p, double t) noexcept {
    const Reduced r(p, t);
    const auto [h_p, h_pp] = evaluate<enthalpy_p, enthalpy_pp>(r.x(), r.y());
    return {h_p, h_pp};
}

Tangent s_p_tangent_p(double p, double t) noexcept {
    const Reduced r(p, t);
    const auto [s_p, s_pp] = evaluate<entropy_p, entropy_pp>(r.x(), r.y());
    return {s_p, s_pp};
}

Tangent s_tangent_t(double p, double t) noexcept {
    const Reduced r(p, t);
    const auto [s, tautau] = evaluate<entropy, gamma_tautau>(r.x(), r.y());
    return {s, -R / T_star * (r.tau * r.tau * r.tau) * tautau};
}

// h_p = R T* gamma_pitau / p*, s_p = -R (gamma_pi - tau gamma_pitau) / p*
TangentPair hs_tangents(double p, double t) noexcept {
    constexpr auto factor = static_cast<double>(1000 * R_per_p_star);
    const Reduced r(p, t);
    const auto [h, s, tautau, pi, pitau] =
        evaluate<enthalpy, entropy, gamma_tautau, gamma_pi, gamma_pitau>(r.x(), r.y());
    const double cp = -R * (r.tau * r.tau) * tautau;
    return {h, factor * T_star * pitau, cp, s, -factor * (pi - r.tau * pitau), cp / t};
}

template <Formula formula>
double derived(double p, double t) noexcept {
    return formula(derivatives(p, t), p);
}
VAPRIX_INSTANTIATE_DERIVED(double, double);

}  // namespace vaprix::region1
