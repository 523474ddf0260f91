// SPDX-License-Identifier: MIT
#include "regions/boundaries_hs.hpp"

#include <cmath>

#include "frame/polynomial.hpp"
#include "regions/tables/boundaries_hs.hpp"

namespace vaprix::boundaries_hs {
namespace {

constexpr auto liquid_1 = 1700 * polynomial(tables::h1_liq_s);
constexpr auto liquid_3a = 1700 * polynomial(tables::h3a_liq_s);
constexpr auto vapour_2ab = polynomial(tables::h2ab_vap_s);
constexpr auto vapour_2c3b = polynomial(tables::h2c3b_vap_s);
constexpr auto line_13 = 1700 * polynomial(tables::hb13_s);
constexpr auto line_23 = 900 * polynomial(tables::tb23_hs);

// h = 1700 sum n (sigma - 1.09)^I (sigma + 0.366e-4)^J, sigma = s / 3.8
template <auto const& P>
double liquid(double s) noexcept {
    const double sigma = s / 3.8;
    return evaluate<P>(sigma - 1.09, sigma + 0.366e-4);
}

}  // namespace

// Eqs. (3) and (4)
double h_liquid_1(double s) noexcept { return liquid<liquid_1>(s); }
double h_liquid_3a(double s) noexcept { return liquid<liquid_3a>(s); }

// Eq. (5): h = 2800 exp(sum n (5.21/s - 0.513)^I (s/9.2 - 0.524)^J)
double h_vapour_2ab(double s) noexcept {
    return 2800 * std::exp(evaluate<vapour_2ab>(5.21 / s - 0.513, s / 9.2 - 0.524));
}

// Eq. (6): h = 2800 (sum n (sigma - 1.02)^I (sigma - 0.726)^J)^4, sigma = s / 5.9
double h_vapour_2c3b(double s) noexcept {
    const double sigma = s / 5.9;
    return 2800 * power<4>(evaluate<vapour_2c3b>(sigma - 1.02, sigma - 0.726));
}

// Eq. (7): h = 1700 sum n (sigma - 0.884)^I (sigma - 0.864)^J, sigma = s / 3.8
double h_13(double s) noexcept {
    const double sigma = s / 3.8;
    return evaluate<line_13>(sigma - 0.884, sigma - 0.864);
}

// Eq. (8): T = 900 K sum n (h / 3000 - 0.727)^I (s / 5.3 - 0.864)^J
double t_23(double h, double s) noexcept {
    return evaluate<line_23>(h / 3000 - 0.727, s / 5.3 - 0.864);
}

}  // namespace vaprix::boundaries_hs
