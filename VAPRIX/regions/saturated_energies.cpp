// SPDX-License-Identifier: MIT
#include "regions/saturated_energies.hpp"

#include <algorithm>
#include <cmath>

#include "frame/constants.hpp"
#include "frame/polynomial.hpp"
#include "regions/tables/saturated_energies.hpp"

namespace vaprix {
namespace {

constexpr const auto& n = tables::saturated_energies;
constexpr double d1 = n[0], d2 = n[1], d3 = n[2], d4 = n[3], d5 = n[4];
constexpr double d_alpha = n[5], d_phi = n[6];

}  // namespace

// alpha = d_alpha + d1 theta^-19 + d2 theta + d3 theta^4.5 + d4 theta^5 + d5 theta^54.5, kJ/kg,
// phi = (d_phi + 19/20 d1 theta^-20 + d2 ln theta + 9/7 d3 theta^3.5 + 5/4 d4 theta^4
//        + 109/107 d5 theta^53.5) / Tc, kJ/(kg K), theta = T/Tc.
// With a = s Tc the equation is f = h - a theta - (alpha - theta phi) = 0, f' = phi - a,
// f'' = phi' = (1/theta) alpha'.
WetTemperature wet_temperature_estimate(double h, double s) noexcept {
    constexpr int rounds = 5;
    constexpr double settled = 1e-4;  // step in theta, after which the error is of third order
    constexpr double theta_min = T_min / T_crit;

    const double a = s * T_crit;
    // alpha - T phi is negative: h / s is on the cold side of the solution
    double theta = s > 0 ? std::clamp(h / a, theta_min, 1.0) : theta_min;
    double phi_theta = 0;
    for (int round = 0; round < rounds; ++round) {
        const double cold = d1 * power<19>(1 / theta);
        const double root = std::sqrt(theta);
        const double theta3 = theta * theta * theta;
        const double hot = d5 * power<53>(theta) * root;
        const double alpha =
            d_alpha + cold + theta * (d2 + theta3 * (d3 * root + d4 * theta)) + hot * theta;
        const double phi = d_phi + 19.0 / 20 * cold / theta + d2 * std::log(theta) +
                           theta3 * (9.0 / 7 * d3 * root + 5.0 / 4 * d4 * theta) +
                           109.0 / 107 * hot;
        phi_theta =
            ((d2 - 19 * cold / theta) + theta3 * (4.5 * d3 * root + 5 * d4 * theta) + 54.5 * hot) /
            theta;
        // to the root of the parabola, or, where h is beyond the liquid line, to its vertex
        const double f = h - a * theta - (alpha - theta * phi);
        const double slope = phi - a;
        const double square = std::max(slope * slope - 2 * f * phi_theta, 0.0);
        const double next =
            std::clamp(theta - (slope + std::sqrt(square)) / phi_theta, theta_min, 1.0);
        const bool done = std::fabs(next - theta) < settled;
        theta = next;
        if (done) break;
    }
    return {theta * T_crit, phi_theta / (T_crit * T_crit)};
}

}  // namespace vaprix
