// SPDX-License-Identifier: MIT
#include "regions/region3_backward.hpp"

#include "frame/polynomial.hpp"
#include "regions/tables/region3_backward.hpp"

namespace vaprix::region3 {
namespace {

// Value of a table of n x^I y^J.
template <auto const& Terms>
double sum(double x, double y) noexcept {
    static constexpr auto terms = polynomial(Terms);
    return evaluate<terms>(x, y);
}

constexpr double p_star = 100;  // MPa

}  // namespace

// Eq. (1). A state on the line belongs to 3a.
double h3ab(double p) noexcept {
    constexpr const auto& n = tables::h3ab;
    return ((n[3] * p + n[2]) * p + n[1]) * p + n[0];
}

// Eqs. (2) and (3)
double t_ph(double p, double h) noexcept {
    const double pi = p / p_star;
    return h <= h3ab(p) ? 760 * sum<tables::t3a_ph>(pi + 0.240, h / 2300 - 0.615)
                        : 860 * sum<tables::t3b_ph>(pi + 0.298, h / 2800 - 0.720);
}

// Eqs. (4) and (5)
double v_ph(double p, double h) noexcept {
    const double pi = p / p_star;
    return h <= h3ab(p) ? 0.0028 * sum<tables::v3a_ph>(pi + 0.128, h / 2100 - 0.727)
                        : 0.0088 * sum<tables::v3b_ph>(pi + 0.0661, h / 2800 - 0.720);
}

// Eqs. (6) and (7)
double t_ps(double p, double s) noexcept {
    const double pi = p / p_star;
    return s <= s_crit ? 760 * sum<tables::t3a_ps>(pi + 0.240, s / 4.4 - 0.703)
                       : 860 * sum<tables::t3b_ps>(pi + 0.760, s / 5.3 - 0.818);
}

// Eqs. (8) and (9)
double v_ps(double p, double s) noexcept {
    const double pi = p / p_star;
    return s <= s_crit ? 0.0028 * sum<tables::v3a_ps>(pi + 0.187, s / 4.4 - 0.755)
                       : 0.0088 * sum<tables::v3b_ps>(pi + 0.298, s / 5.3 - 0.816);
}

// Eq. (10)
double p3sat_h(double h) noexcept {
    const double eta = h / 2600;
    return 22 * sum<tables::p3sat_h>(eta - 1.02, eta - 0.608);
}

// Eq. (11)
double p3sat_s(double s) noexcept {
    const double sigma = s / 5.2;
    return 22 * sum<tables::p3sat_s>(sigma - 1.03, sigma - 0.699);
}

// Eqs. (1) and (2); 3b is fitted as p*/p
double p_hs(double h, double s) noexcept {
    return s <= s_crit ? 99 * sum<tables::p3a_hs>(h / 2300 - 1.01, s / 4.4 - 0.750)
                       : 16.6 / sum<tables::p3b_hs>(h / 2800 - 0.681, s / 5.3 - 0.792);
}

}  // namespace vaprix::region3
