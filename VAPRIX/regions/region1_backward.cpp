// SPDX-License-Identifier: MIT
#include "regions/region1_backward.hpp"

#include "frame/polynomial.hpp"
#include "regions/tables/region1_backward.hpp"

namespace vaprix::region1 {
namespace {

constexpr auto theta_ph = polynomial(tables::t1_ph);
constexpr auto theta_ps = polynomial(tables::t1_ps);
constexpr auto p_polynomial_hs = 100 * polynomial(tables::p1_hs);

}  // namespace

// Eq. (11): theta = sum n pi^I (eta + 1)^J, eta = h / 2500 kJ/kg
double t_ph(double p, double h) noexcept { return evaluate<theta_ph>(p, h / 2500 + 1); }

// Eq. (13): theta = sum n pi^I (sigma + 2)^J
double t_ps(double p, double s) noexcept { return evaluate<theta_ps>(p, s + 2); }

// Eq. (1): p = 100 MPa sum n (h / 3400 + 0.05)^I (s / 7.6 + 0.05)^J
double p_hs(double h, double s) noexcept {
    return evaluate<p_polynomial_hs>(h / 3400 + 0.05, s / 7.6 + 0.05);
}

}  // namespace vaprix::region1
