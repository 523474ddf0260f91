// SPDX-License-Identifier: MIT
#include "regions/region1_backward.hpp"

#include "frame/polynomial.hpp"
#include "regions/tables/region1_backward.hpp"

namespace vaprix::region1 {
namespace {

constexpr auto theta_ph = polynomial(tables::t1_ph);
constexpr auto theta_ps = polynomial(tables::t1_ps);

}  // namespace

// Eq. (11): theta = sum n pi^I (eta + 1)^J, eta = h / 2500 kJ/kg
double t_ph(double p, double h) noexcept { return evaluate<theta_ph>(p, h / 2500 + 1); }

// Eq. (13): theta = sum n pi^I (sigma + 2)^J
double t_ps(double p, double s) noexcept { return evaluate<theta_ps>(p, s + 2); }

}  // namespace vaprix::region1
