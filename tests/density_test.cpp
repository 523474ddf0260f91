// SPDX-License-Identifier: MIT
// Densities of region 3: DOPT, DOTP, VTP3N and DITER3 must solve p3(d, T) = p on the right side of
// the saturation line, wherever the isotherm is steep, flat, falling or cut.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "reference/basic_equations.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;
using bound::call;
using strata::T_13, strata::T_crit, strata::p_13, strata::p_crit, strata::p_high;

constexpr double d_crit = 322;

// Within roundings of a limit and of the critical point, where other pairs need not find the state.
const std::vector<strata::Stratum> extreme = {
    {"corner of regions 1 and 3", strata::Place::boundary,
     [](Random& random) {
         return strata::Point{random.beside(p_high), random.beside(T_13)};
     }},
    {"line up to the critical point, by p", strata::Place::boundary,
     [](Random& random) {
         const double p = p_crit - random.log_uniform(1e-12, p_crit - p_13);
         return strata::Point{p, random.beside(call<TBP>(p))};
     }},
    {"line up to the critical point, by T", strata::Place::boundary, [](Random& random) {
         const double t = T_crit - random.log_uniform(1e-12, T_crit - T_13);
         return strata::Point{random.beside(call<PBT>(t)), t};
     }}};

double pressure(double d, double t) { return static_cast<double>(region3(d, t).p()); }

// The basic equation has a saturation line of its own: this close to the critical temperature it
// does not have every phase that Eq. (31) asks for, and any root will do.
constexpr double phases_disagree = 4e-5;  // K

TEST(Density, SolvesTheBasicEquation) {
    Deviations deviations;
    int tried = 0;
    const auto visit = [&](const strata::Stratum& stratum, const strata::State& at) {
        const double p = at[bound::p], t = at[bound::T];
        const bool critical = std::abs(t - T_crit) < 1.1e-9 && std::abs(p - p_crit) < 1.1e-9;
        if (at.region != 3 || critical) return;
        ++tried;
        const double d = call<DOPT>(p, t);
        deviations.check(stratum.name, pressure(d, t), p, p, 3e-12, {p, t, d});
        if (t < T_crit - phases_disagree) {
            const bool liquid = p > p_crit || t < call<TBP>(p);
            EXPECT_EQ(d > d_crit, liquid) << digits({p, t, d});
        }
        EXPECT_EQ(call<DOTP>(t, p), d);
        EXPECT_EQ(call<VOPT>(p, t), 1 / d);
        EXPECT_EQ(call<VTP3N>(t, p), 1 / d);
    };
    strata::sweep(0.2, 100, visit);
    strata::sweep(0.2, 150, visit, extreme);
    EXPECT_GT(tried, strata::states(1));
}

// From a good start and from a poor one DITER3 finds the root on the start's side of the critical
// density, as closely as the tolerance asks; from the other side none but that side's own.
TEST(Density, Diter3StaysOnTheSideOfItsStart) {
    Random random(200);
    const auto visit = [&](const strata::Stratum& stratum, const strata::State& at) {
        const double p = at[bound::p], t = at[bound::T];
        const bool of_either_side = stratum.place == strata::Place::boundary && p > p_crit;
        if (at.region != 3 || std::abs(t - T_crit) < 1 || of_either_side) return;
        const double exact = call<DOPT>(p, t), start = random.uniform(60, 760);
        const double close = exact * (1 + random.offset(1e-9, 9e-4));
        for (const double tolerance : {1e-3, 1e-6, 1e-12}) {
            const double allowed = std::max(tolerance, 1e-11);
            if ((close > d_crit) == (exact > d_crit)) {
                EXPECT_NEAR(call<DITER3>(p, t, close, tolerance) / exact, 1, allowed)
                    << digits({p, t, close, tolerance});
            }
            const double d = call<DITER3>(p, t, start, tolerance);
            if ((start > d_crit) == (exact > d_crit)) {
                EXPECT_NEAR(d / exact, 1, allowed) << digits({p, t, start, tolerance});
            } else if (d != 0) {
                EXPECT_EQ(d > d_crit, start > d_crit) << digits({p, t, start, tolerance});
                EXPECT_NEAR(pressure(d, t), p, 100 * allowed * p);
            }
        }
    };
    strata::sweep(0.1, 200, visit);
    strata::sweep(0.1, 250, visit, extreme);
}

}  // namespace
