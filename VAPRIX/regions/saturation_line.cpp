// SPDX-License-Identifier: MIT
#include "regions/saturation_line.hpp"

#include <algorithm>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/pegasus.hpp"
#include "regions/tables/saturation.hpp"

namespace vaprix {
namespace {

constexpr auto& n = tables::saturation;
constexpr double n1 = n[0], n2 = n[1], n3 = n[2], n4 = n[3], n5 = n[4], n6 = n[5], n7 = n[6],
                 n8 = n[7], n9 = n[8], n10 = n[9];

constexpr double critical_tolerance = 1e-15;  // K or MPa

// Eq. (31) and what its derivative needs: beta = p^(1/4); E, F, G; the root of F^2 - 4 E G; D; and
// half the root of (n10 + D)^2 - 4 (n9 + n10 D), which is (n10 - D)^2 - 4 n9 without the
// cancellation.
struct Backward {
    double beta, E, F, G, root, D, half_root;

    explicit Backward(double p) noexcept
        : beta(signed_sqrt(signed_sqrt(p))),
          E((beta + n3) * beta + n6),
          F((n1 * beta + n4) * beta + n7),
          G((n2 * beta + n5) * beta + n8),
          root(signed_sqrt(F * F - 4 * E * G)),
          D(2 * G / (-F - root)),
          half_root(0.5 * signed_sqrt((n10 - D) * (n10 - D) - 4 * n9)) {}

    [[nodiscard]] double t() const noexcept { return 0.5 * (n10 + D) - half_root; }

    // dT/dp
    [[nodiscard]] double t_p() const noexcept {
        const double beta_p = 1 / (4 * beta * beta * beta);
        const double E_p = (2 * beta + n3) * beta_p;
        const double F_p = (2 * n1 * beta + n4) * beta_p;
        const double G_p = (2 * n2 * beta + n5) * beta_p;
        const double root_p = (F * F_p - 2 * (E_p * G + E * G_p)) / root;
        const double D_p = (2 * G_p + D * (F_p + root_p)) / (-F - root);
        return 0.5 * D_p * (1 + (n10 - D) / (2 * half_root));
    }
};

constexpr auto theta_hs = 550 * polynomial(tables::tsat_hs);  // K
// Eq. (30) and what its derivative needs.
struct Forward {
    double theta, A, B, C, beta;

    explicit Forward(double t) noexcept
        : theta(t + n9 / (t - n10)),
          A((theta + n1) * theta + n2),
          B((n3 * theta + n4) * theta + n5),
          C((n6 * theta + n7) * theta + n8),
          beta(2 * C / (signed_sqrt(B * B - 4 * A * C) - B)) {}
};

}  // namespace

double psat(double t) noexcept {
    // Eq. (30) itself gives 22.064000000002 MPa at the critical temperature.
    if (std::fabs(t - T_crit) < critical_tolerance) return p_crit;
    const Forward f(t);
    return (f.beta * f.beta) * (f.beta * f.beta);
}

// dbeta/dtheta from A beta^2 + B beta + C = 0, Eq. (29)
Tangent psat_tangent(double t) noexcept {
    const Forward f(t);
    const double beta2 = f.beta * f.beta;
    const double by_theta =
        (2 * f.theta + n1) * beta2 + (2 * n3 * f.theta + n4) * f.beta + (2 * n6 * f.theta + n7);
    const double by_beta = 2 * f.A * f.beta + f.B;
    const double theta_t = 1 - n9 / ((t - n10) * (t - n10));
    return {beta2 * beta2, -4 * beta2 * f.beta * by_theta / by_beta * theta_t};
}

double tsat(double p) noexcept { return Backward(p).t(); }

double tsat_p(double p) noexcept { return Backward(p).t_p(); }

// T = 550 K sum n (h / 2800 - 0.119)^I (s / 9.2 - 1.07)^J
double tsat_hs(double h, double s) noexcept {
    return evaluate<theta_hs>(h / 2800 - 0.119, s / 9.2 - 1.07);
}

// Eqs. (30) and (31) solve the same equation (29), so the backward temperature is off by no more
// than its rounding, which one Newton step takes away.
double tsat_exact(double p) noexcept {
    if (std::fabs(p_crit - p) < critical_tolerance) return T_crit;
    const Backward b(p);
    const double t = b.t();
    constexpr double rounding = 1e-12;  // relative
    const double step = (p - psat(t)) * b.t_p();
    if (std::fabs(step) < rounding * t) return std::min(t + step, T_crit);
    return pegasus([p](double x) noexcept { return psat(x) - p; }, std::max(T_min, 0.99 * t),
                   std::min(T_crit, 1.01 * t), 1e-15);
}

}  // namespace vaprix
