// SPDX-License-Identifier: MIT
#include "regions/saturated_densities.hpp"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/region3.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/saturated_densities.hpp"

namespace vaprix {
namespace {

// A term is exactly zero while its base is at or below its threshold, so that no power underflows.
// The first one of the liquid has none.
constexpr double none = -1e300;
constexpr double liquid_thresholds[] = {none, 1e-8, 0.0001, 0.1, 0.424528622, 0.715394265};
constexpr double vapour_thresholds[] = {1e-8, 0.0001, 0.01, 0.129154966, 0.36946012, 0.595179394};

template <auto const& Terms, auto const& thresholds>
double estimate_sum(double base) noexcept {
    static_assert(std::size(Terms) == std::size(thresholds));
    const auto sum = [base]<std::size_t... k>(std::index_sequence<k...>) {
        return ((base <= thresholds[k] ? 0.0 : Terms[k].n * power<Terms[k].J>(base)) + ...);
    };
    return sum(std::make_index_sequence<std::size(Terms)>{});
}

}  // namespace

// d' = 322 (1 + sum b x^J), x = (1 - T/Tc)^(1/3)
double d_liquid_estimate(double t) noexcept {
    const double x = std::cbrt(1 - t / T_crit);
    return d_crit * (1 + estimate_sum<tables::saturated_liquid_density, liquid_thresholds>(x));
}

// d'' = 322 exp(sum c x^J), x = (1 - T/Tc)^(1/6)
double d_vapour_estimate(double t) noexcept {
    const double x = signed_sqrt(std::cbrt(1 - t / T_crit));
    return d_crit *
           clamped_exp(estimate_sum<tables::saturated_vapour_density, vapour_thresholds>(x));
}

SaturatedDensities dsat3(double t, double p) noexcept {
    constexpr double critical = 1e-15;
    constexpr double near_critical = 1e-5;
    const double distance = std::fabs(p - p_crit);
    if (distance < critical) return {d_crit, d_crit, T_crit};
    if (distance < near_critical) {
        const double ts = tsat(p);
        return {d_vapour_estimate(ts), d_liquid_estimate(ts), ts};
    }

    constexpr double tolerance = 1e-8;  // relative step that ends the iteration
    constexpr int rounds = 40;

    // Maxwell criterion: the pressure of coexistence is (f' - f'')/(v'' - v'); each density takes a
    // Newton step towards it. From the estimates, which lie outside the pair, the steps do not pass
    // the root.
    const region3::Isotherm isotherm(t);
    double d1 = d_liquid_estimate(t);
    double d2 = d_vapour_estimate(t);
    for (int round = 0; round < rounds; ++round) {
        const double ps = isotherm.f_difference(d1, d2) * d1 * d2 / (1000 * (d1 - d2));
        const double step1 = (ps - isotherm.p(d1)) / isotherm.p_d(d1);
        const double step2 = (ps - isotherm.p(d2)) / isotherm.p_d(d2);
        d1 += step1;
        d2 += step2;
        if (std::fabs(step1) < tolerance * d1 && std::fabs(step2) < tolerance * d2) break;
    }
    return {d2, d1, t};
}

}  // namespace vaprix
