// SPDX-License-Identifier: MIT
#include "transport/dielectric.hpp"

#include <cmath>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "transport/tables/dielectric.hpp"

namespace vaprix::transport {
namespace {

// A = A_factor d g Tc/T and B = B_factor d. The factors gather the molecular constants of Table 1,
// NA mu^2/(eps0 k Mw Tc) and NA alpha/(3 eps0 Mw) in m3/kg, in the digits that the results have
// always been published with: 7e-14 off the exact products, deliberately.
constexpr double A_factor = 0.01592062421480592;
constexpr double B_factor = 0.0002058842842420929;

constexpr auto sum = polynomial(tables::dielectric::terms);

// Harris-Alder g factor: 1 + sum N rr^i (Tc/T)^j + N12 rr (T/228 - 1)^-1.2
double g_factor(double t, double y, double r) noexcept {
    const double last = tables::dielectric::last * r * std::pow(t / 228 - 1, -1.2);
    return 1 + evaluate<sum>(r, std::sqrt(std::sqrt(y))) + last;
}

}  // namespace

// eps = (1 + A + 5 B + sqrt(9 + 2 A + 18 B + A^2 + 10 A B + 9 B^2)) / (4 - 4 B)
double dielectric_constant(double t, double d) noexcept {
    const double y = T_crit / t;
    const double A = A_factor * d * g_factor(t, y, d / d_crit) * y;
    const double B = B_factor * d;
    const double radicand = 9 + 2 * A + 18 * B + A * A + 10 * A * B + 9 * B * B;
    return (1 + A + 5 * B + signed_sqrt(radicand)) / (4 - 4 * B);
}

}  // namespace vaprix::transport
