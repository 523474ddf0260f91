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

constexpr auto pi_root_a_hs = polynomial(tables::p2a_hs);
constexpr auto pi_root_b_hs = polynomial(tables::p2b_hs);
constexpr auto pi_root_c_hs = polynomial(tables::p2c_hs);

constexpr double p_2a = 4;  // highest pressure of subregion 2a of (p, h) and (p, s), MPa

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

// Eq. (2)
double h_2ab(double s) noexcept {
    constexpr const auto& n = tables::h2ab;
    return ((n[3] * s + n[2]) * s + n[1]) * s + n[0];
}

// Eqs. (3) to (5): p = 4 MPa (sum n (h/4200 - 0.5)^I (s/12 - 1.2)^J)^4 in 2a,
// 100 MPa (sum n (h/4100 - 0.6)^I (s/7.9 - 1.01)^J)^4 in 2b,
// 100 MPa (sum n (h/3500 - 0.7)^I (s/5.9 - 1.1)^J)^4 in 2c
double p_hs(double h, double s) noexcept {
    if (s < s_2bc) return 100 * power<4>(evaluate<pi_root_c_hs>(h / 3500 - 0.7, s / 5.9 - 1.1));
    return h > h_2ab(s) ? 100 * power<4>(evaluate<pi_root_b_hs>(h / 4100 - 0.6, s / 7.9 - 1.01))
                        : 4 * power<4>(evaluate<pi_root_a_hs>(h / 4200 - 0.5, s / 12 - 1.2));
}

}  // namespace vaprix::region2
