// SPDX-License-Identifier: MIT
#include "regions/region3.hpp"

#include <cmath>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/region3.hpp"

namespace vaprix::region3 {
namespace {

// phi = n1 ln delta + sum n delta^I tau^J with delta = d/322 kg/m3, tau = 647.096 K/T
constexpr double n1 = tables::region3_log_coefficient;
constexpr long double R_l = extended(R);
constexpr auto d_crit_reciprocal = static_cast<double>(1 / extended(d_crit));

constexpr auto phi = polynomial(tables::region3);

// The sums below stand for the named derivative without the part of n1 ln delta, which is added
// where they are used: delta phi_delta has n1, delta^2 phi_deltadelta -n1, the derivatives by tau
// nothing.
constexpr auto delta_phi_delta = weighted(phi, [](int I, int) { return I; });
// delta phi_delta - delta tau phi_deltatau, plus n1
constexpr auto thermal = weighted(phi, [](int I, int J) { return I * (1 - J); });
// 2 delta phi_delta + delta^2 phi_deltadelta, plus n1
constexpr auto stiffness = weighted(phi, [](int I, int) { return I * (I + 1); });
// tau^2 phi_tautau
constexpr auto tautau = weighted(phi, [](int, int J) { return J * (J - 1); });

constexpr auto pressure = (R_l / 1000) * delta_phi_delta;
constexpr auto enthalpy_over_t = R_l * weighted(phi, [](int I, int J) { return I + J; });
constexpr auto energy = (R_l * extended(T_crit)) * d_y(phi);
constexpr auto entropy = R_l * weighted(phi, [](int, int J) { return J - 1; });
constexpr auto gibbs_over_t = R_l * weighted(phi, [](int I, int) { return I + 1; });
constexpr auto helmholtz_over_t = R_l * phi;
constexpr auto heat_capacity_v = -R_l * tautau;

// delta times the derivative by delta of h/T and, plus -R n1, of s
constexpr auto enthalpy_slope = R_l * weighted(phi, [](int I, int J) { return I * (I + J); });
constexpr auto entropy_slope = R_l * weighted(phi, [](int I, int J) { return I * (J - 1); });

constexpr auto R_n1 = static_cast<double>(R_l * extended(n1));
constexpr auto R_n1_1000 = static_cast<double>(R_l * extended(n1) / 1000);

// v_t = p_t/(d^2 p_d), v_p = -1/(d^2 p_d), h_p = v - T v_t: of the difference, delta^2
// phi_deltadelta + delta phi_delta + delta tau phi_deltatau, n1 falls out
VAPRIX_INLINE Derivatives derivatives(double d, double t) noexcept {
    constexpr auto v_p_factor = static_cast<double>(1000 / R_l);
    const auto [tt, thermal_sum, stiffness_sum] =
        evaluate<tautau, thermal, stiffness>(d * d_crit_reciprocal, T_crit / t);
    const double a = thermal_sum + n1;
    const double b = stiffness_sum + n1;
    const double v = 1 / d;
    const double v_per_b = v / b;
    return {.v = v,
            .v_p = -v_p_factor * v_per_b * v / t,
            .v_t = v_per_b * a / t,
            .h_p = 1000 * v_per_b * (stiffness_sum - thermal_sum),
            .cp = R * (a * a / b - tt),
            .cv = -R * tt};
}

}  // namespace

// p = d R T delta phi_delta
double p(double d, double t) noexcept {
    return d * t * (evaluate<pressure>(d * d_crit_reciprocal, T_crit / t) + R_n1_1000);
}

// h = R T (tau phi_tau + delta phi_delta)
double h(double d, double t) noexcept {
    return t * (evaluate<enthalpy_over_t>(d * d_crit_reciprocal, T_crit / t) + R_n1);
}

// u = R T tau phi_tau
double u(double d, double t) noexcept {
    return evaluate<energy>(d * d_crit_reciprocal, T_crit / t);
}

// s = R (tau phi_tau - phi)
double s(double d, double t) noexcept {
    const double delta = d * d_crit_reciprocal;
    return evaluate<entropy>(delta, T_crit / t) - R_n1 * guarded_log(delta);
}

// g = R T (phi + delta phi_delta)
double g(double d, double t) noexcept {
    const double delta = d * d_crit_reciprocal;
    return t * (evaluate<gibbs_over_t>(delta, T_crit / t) + R_n1 * (1 + guarded_log(delta)));
}

// f = R T phi
double f(double d, double t) noexcept {
    const double delta = d * d_crit_reciprocal;
    return t * (evaluate<helmholtz_over_t>(delta, T_crit / t) + R_n1 * guarded_log(delta));
}

// cv = -R tau^2 phi_tautau
double cv(double d, double t) noexcept {
    return evaluate<heat_capacity_v>(d * d_crit_reciprocal, T_crit / t);
}

// cp = cv + R (delta phi_delta - delta tau phi_deltatau)^2 / (2 delta phi_delta + delta^2
// phi_deltadelta)
double cp(double d, double t) noexcept { return derivatives(d, t).cp; }

// w^2 = R T (2 delta phi_delta + delta^2 phi_deltadelta
//            - (delta phi_delta - delta tau phi_deltatau)^2 / (tau^2 phi_tautau))
double w(double d, double t) noexcept {
    const auto [tt, a, b] = evaluate<tautau, thermal, stiffness>(d * d_crit_reciprocal, T_crit / t);
    return signed_sqrt(1000 * R * t * (b + n1 - (a + n1) * (a + n1) / tt));
}

// p_d = R T (2 delta phi_delta + delta^2 phi_deltadelta),
// p_t = R d (delta phi_delta - delta tau phi_deltatau),
// h_d = (1000/d) (p_d - (T/d) p_t), h_t = cv + 1000 p_t/d
TangentPair ph_tangents(double d, double t) noexcept {
    const auto [i, a, b, tt, h_t] =
        evaluate<delta_phi_delta, thermal, stiffness, tautau, enthalpy_over_t>(
            d * d_crit_reciprocal, T_crit / t);
    const double factor = R * t / 1000;
    const double p_d = factor * (b + n1);
    const double p_t = R / 1000 * d * (a + n1);
    const double v = 1000 / d;
    return {d * factor * (i + n1), p_d, p_t, t * (h_t + R_n1), v * (p_d - t / d * p_t),
            v * p_t - R * tt};
}

// s_d = -1000 p_t/d^2, s_t = cv/T
TangentPair ps_tangents(double d, double t) noexcept {
    const double delta = d * d_crit_reciprocal;
    const auto [i, a, b, tt, s] =
        evaluate<delta_phi_delta, thermal, stiffness, tautau, entropy>(delta, T_crit / t);
    const double factor = R * t / 1000;
    const double p_t = R / 1000 * d * (a + n1);
    return {d * factor * (i + n1),         factor * (b + n1),     p_t,
            s - R_n1 * guarded_log(delta), -1000 * p_t / (d * d), -R * tt / t};
}

Tangent p_tangent_t(double d, double t) noexcept {
    const auto [i, a] = evaluate<delta_phi_delta, thermal>(d * d_crit_reciprocal, T_crit / t);
    const double factor = R / 1000 * d;
    return {factor * t * (i + n1), factor * (a + n1)};
}

Tangent h_tangent_d(double d, double t) noexcept {
    const auto [h_over_t, slope] =
        evaluate<enthalpy_over_t, enthalpy_slope>(d * d_crit_reciprocal, T_crit / t);
    return {t * (h_over_t + R_n1), t * slope / d};
}

Tangent s_tangent_d(double d, double t) noexcept {
    const double delta = d * d_crit_reciprocal;
    const auto [s, slope] = evaluate<entropy, entropy_slope>(delta, T_crit / t);
    return {s - R_n1 * guarded_log(delta), (slope - R_n1) / d};
}

TangentPair hs_tangents(double d, double t) noexcept {
    const double delta = d * d_crit_reciprocal;
    const auto [a, b, tt, h_t, s] =
        evaluate<thermal, stiffness, tautau, enthalpy_over_t, entropy>(delta, T_crit / t);
    const double p_t = R * (a + n1);  // times 1000/d, as is p_d
    const double p_d = R * t / d * (b + n1);
    return {t * (h_t + R_n1), p_d - t / d * p_t, p_t - R * tt, s - R_n1 * guarded_log(delta),
            -p_t / d,         -R * tt / t};
}

Isotherm::Isotherm(double t) noexcept : c(coefficients_in_x<pressure>(T_crit / t)) {
    c[0] += R_n1_1000;  // the table has no power 0 of delta in delta phi_delta
    double factor = t;  // T / 322^k
    for (double& coefficient : c) {
        coefficient *= factor;
        factor *= d_crit_reciprocal;
    }
}

double Isotherm::f_difference(double d, double e) const noexcept {
    const auto weight = [](std::size_t k) { return k == 0 ? 0.0 : 1.0 / static_cast<double>(k); };
    return 1000 * (c[0] * std::log1p((d - e) / e) + (sum(d, weight) - sum(e, weight)));
}

template <Formula formula>
double derived(double p, double d, double t) noexcept {
    return formula(derivatives(d, t), p);
}
VAPRIX_INSTANTIATE_DERIVED(double, double, double);

}  // namespace vaprix::region3
