// SPDX-License-Identifier: MIT
//
// Measures the committed start fits: in which share of region 3 the start brackets the density.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

#include "frame/polynomial.hpp"
#include "region3.hpp"
#include "regions/tables/region3_start.hpp"

namespace start_fits {

namespace start {
inline constexpr auto v1 = vaprix::polynomial(tables::start_volume_1);
inline constexpr auto v2 = vaprix::polynomial(tables::start_volume_2);
inline constexpr auto v3 = vaprix::polynomial(tables::start_volume_3);
inline constexpr auto v4 = vaprix::polynomial(tables::start_volume_4);
inline constexpr auto v5 = vaprix::polynomial(tables::start_volume_5);
inline constexpr auto v6 = vaprix::polynomial(tables::start_volume_6);
inline constexpr auto v7 = vaprix::polynomial(tables::start_volume_7);
}  // namespace start

inline double start_volume(int k, double p, double T) {
    const tables::StartScale& s = tables::start_scale[k - 1];
    const double x = (p - s.p0) * s.p_factor, y = (T - s.T0) * s.T_factor;
    switch (k) {
        case 1: return vaprix::evaluate<start::v1>(x, y);
        case 2: return vaprix::evaluate<start::v2>(x, y);
        case 3: return vaprix::evaluate<start::v3>(x, y);
        case 4: return vaprix::evaluate<start::v4>(x, y);
        case 5: return vaprix::evaluate<start::v5>(x, y);
        case 6: return vaprix::evaluate<start::v6>(x, y);
        default: return vaprix::evaluate<start::v7>(x, y);
    }
}

struct Tally {
    long states = 0, bracketed = 0, wrong_side = 0;
    Real worst = 0;
    double share() const {
        return static_cast<double>(bracketed) / static_cast<double>(std::max(states, 1L));
    }
    double worst_error() const { return static_cast<double>(worst); }
    bool add(double p, double T, int k) {
        const Isotherm isotherm{static_cast<Real>(T)};
        const Real rho = density(Real(p), Real(T), k != 4);
        const Real rho0 = 1 / Real(start_volume(k, p, T));
        const bool thin = rho0 <= rho_c;
        const Real low = thin ? 0.999L * rho0 : std::max(0.999L * rho0, rho_c);
        const Real high = thin ? std::min(1.001L * rho0, rho_c) : 1.001L * rho0;
        const bool right_side = thin == (rho <= rho_c);
        const Real below = isotherm.at(low).p - Real(p), above = isotherm.at(high).p - Real(p);
        const bool contained = right_side && below <= 0 && above >= 0;
        ++states;
        bracketed += contained;
        wrong_side += !right_side;
        worst = std::max(worst, std::fabs(rho0 / rho - 1));
        return contained;
    }
};

// The share counts states uniform in (p, T). More states crowd around the critical point: the worst
// errors are there.
inline void print_share() {
    std::mt19937_64 random(1);
    const auto uniform = [&](Real low, Real high) {
        return std::uniform_real_distribution<double>(static_cast<double>(low),
                                                      static_cast<double>(high))(random);
    };
    Tally uniform_tally[7], critical_tally[7];
    long states = 0, bracketed = 0;
    while (states < 1000000) {
        const double p = uniform(p_b23(T_min), p_max), T = uniform(T_min, T_max);
        if (Real(p) <= p_b23(Real(T))) continue;
        const int k = subregion(Real(p), Real(T));
        bracketed += uniform_tally[k - 1].add(p, T, k);
        ++states;
    }
    for (int i = 0; i < 40000; ++i) {
        const double direction = uniform(0, 6.283185307L),
                     distance = std::pow(10.0, uniform(-5, 0));
        const double p = static_cast<double>(p_c) + distance * std::sin(direction);
        const double T = static_cast<double>(T_c) + 5 * distance * std::cos(direction);
        const int k = subregion(Real(p), Real(T));
        critical_tally[k - 1].add(p, T, k);
    }
    std::printf(
        "k    states      share  worst error  on the wrong side of rho_c  (the same around the "
        "critical point)\n");
    for (int k = 1; k <= 7; ++k) {
        const Tally &u = uniform_tally[k - 1], &c = critical_tally[k - 1];
        std::printf("%d  %8ld  %.6f      %.5f  %ld  (%ld  %.5f  %.5f  %ld)\n", k, u.states,
                    u.share(), u.worst_error(), u.wrong_side, c.states, c.share(), c.worst_error(),
                    c.wrong_side);
    }
    std::printf("region 3: share %.6f\n",
                static_cast<double>(bracketed) / static_cast<double>(states));
}

}  // namespace start_fits
