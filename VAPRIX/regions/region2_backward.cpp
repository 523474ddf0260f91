// SPDX-License-Identifier: MIT
#include "regions/region2_backward.hpp"

#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/region2_backward.hpp"

namespace vaprix::region2 {
namespace {

constexpr auto theta_a_ph = polynomial(tables::t2a_ph);
constexpr auto theta_b_ph = polynomial(tables::t2b_ph);
constexpr auto theta_c_ph = polynomial(tables::t2c_ph);
constexpr auto theta_a_ps = polynomial(tables::t2a_ps);
constexpr auto theta_b_ps = polynomial(tables::t2b_ps);
constexpr auto theta_c_ps = polynomial(tables::t2c_ps);

constexpr double p_2a = 4;      // highest pressure of subregion 2a, MPa
constexpr double s_2bc = 5.85;  // divides 2b, which owns it, and 2c, kJ/(kg K)

}  // namespace

// Eq. (20)
double p_b2bc(double h) noexcept {
    constexpr const auto& n = tables::b2bc;
    return (n[2] * h + n[1]) * h + n[0];
}

// Eqs. (22) to (24): theta = sum n pi^I (eta - 2.1)^J in 2a, (pi - 2)^I (eta - 2.6)^J in 2b,
// (pi + 25)^I (eta - 1.8)^J in 2c, eta = h / 2000 kJ/kg
double t_ph(double p, double h) noexcept {
    const double eta = h / 2000;
    if (p <= p_2a) return evaluate<theta_a_ph>(p, eta - 2.1);
    return p > p_b2bc(h) ? evaluate<theta_c_ph>(p + 25, eta - 1.8)
                         : evaluate<theta_b_ph>(p - 2, eta - 2.6);
}

// Eqs. (25) to (27): theta = sum n pi^I (s/2 - 2)^J in 2a, pi^I (10 - s/0.7853)^J in 2b,
// pi^I (2 - s/2.9251)^J in 2c
double t_ps(double p, double s) noexcept {
    constexpr double s_star_2c_reciprocal = 0.34186865406311;
    if (p <= p_2a) return evaluate<theta_a_ps>(signed_sqrt(signed_sqrt(p)), s / 2 - 2);
    return s < s_2bc ? evaluate<theta_c_ps>(p, 2 - s * s_star_2c_reciprocal)
                     : evaluate<theta_b_ps>(p, 10 - s / 0.7853);
}

}  // namespace vaprix::region2
