// SPDX-License-Identifier: MIT
// Densities of region 3: DOPT, DOTP, VTP3N and DITER3 must solve p3(d, T) = p on the right side of
// the saturation line, wherever the isotherm is steep, flat, falling or cut.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "reference/basic_equations.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;
using bound::call;

constexpr double t_low = 623.15, t_high = 863.15, tc = 647.096;
constexpr double p_low = 16.53, p_high = 100, pc = 22.064, dc = 322;

struct Point {
    double p, t;
};

double pressure(double d, double t) { return static_cast<double>(region3(d, t).p()); }

double diter3(double p, double t, double start, double tolerance) {
    return DITER3(&p, &t, &start, &tolerance);
}

// x or a number beside it, often only a spacing or a few away.
double near(Random& random, double x) { return x * (1 + random.offset(1e-16, 1e-3)); }

const char* const strata[] = {"region 3",
                              "saturation line, by p",
                              "saturation line, by T",
                              "critical point",
                              "ridge",
                              "critical isochore",
                              "critical isobar",
                              "edges of region 3",
                              "critical isotherm",
                              "published bands"};

Point sample(std::size_t stratum, Random& random) {
    const double p = random.uniform(p_low, p_high), t = random.uniform(t_low, t_high);
    const double p_wet = pc - random.log_uniform(1e-12, pc - p_low);
    const double t_wet = tc - random.log_uniform(1e-12, tc - t_low);
    const double t_above = tc + random.log_uniform(1e-12, 150), dt = random.offset(1e-12, 1);
    const double bands[] = {19.00881189173929, 20.5, 21.0433673189753, 22.5, 23, 25, 40};
    switch (stratum) {
        case 0: return {p, t};
        case 1: return {p_wet, near(random, call<TBP>(p_wet))};
        case 2: return {near(random, call<PBT>(t_wet)), t_wet};
        case 3: return {near(random, pc), near(random, tc)};
        case 4: return {pc + dt / 3.727888 * (1 + random.offset(1e-6, 1)), tc + dt};
        case 5: return {near(random, pressure(dc, t_above)), t_above};
        case 6: return {near(random, pc), t};
        case 7:
            return random.coin() ? Point{near(random, call<FB23>(t)), t}
                                 : Point{near(random, p_high), near(random, t_low)};
        case 8: return {p, near(random, tc)};
        default:
            return {near(random, bands[static_cast<int>(random.uniform(0, 7))]),
                    random.uniform(t_low, 720)};
    }
}

// The basic equation has a saturation line of its own: this close to the critical temperature it
// does not have every phase that Eq. (31) asks for, and any root will do.
constexpr double phases_disagree = 4e-5;  // K

TEST(Density, SolvesTheBasicEquation) {
    Random random(100);
    for (std::size_t stratum = 0; stratum < std::size(strata); ++stratum) {
        Deviations deviations;
        int tried = 0;
        for (int k = 0; k < strata::states(1) / 5; ++k) {
            const Point at = sample(stratum, random);
            const bool critical = std::abs(at.t - tc) < 1.1e-9 && std::abs(at.p - pc) < 1.1e-9;
            if (call<REGIONPT>(at.p, at.t) != 3 || critical) continue;
            ++tried;
            const double d = call<DOPT>(at.p, at.t);
            deviations.check(strata[stratum], pressure(d, at.t), at.p, at.p, 3e-12,
                             {at.p, at.t, d});
            if (at.t < tc - phases_disagree) {
                const bool liquid = at.p > pc || at.t < call<TBP>(at.p);
                EXPECT_EQ(d > dc, liquid) << digits({at.p, at.t, d});
            }
            EXPECT_EQ(call<DOTP>(at.t, at.p), d);
            EXPECT_EQ(call<VOPT>(at.p, at.t), 1 / d);
            EXPECT_EQ(call<VTP3N>(at.t, at.p), 1 / d);
        }
        EXPECT_GT(tried, strata::states(1) / 100) << strata[stratum];
    }
}

// From a good start and from a poor one DITER3 finds the root on the start's side of the critical
// density, as closely as the tolerance asks; from the other side none but that side's own.
TEST(Density, Diter3StaysOnTheSideOfItsStart) {
    Random random(200);
    for (int k = 0; k < strata::states(1) / 5; ++k) {
        const Point at = sample(k % 2 == 0 ? 0 : 1, random);
        if (call<REGIONPT>(at.p, at.t) != 3 || std::abs(at.t - tc) < 1) continue;
        const double exact = call<DOPT>(at.p, at.t), start = random.uniform(60, 760);
        const double close = exact * (1 + random.offset(1e-9, 9e-4));
        for (const double tolerance : {1e-3, 1e-6, 1e-12}) {
            const double allowed = std::max(tolerance, 1e-11);
            if ((close > dc) == (exact > dc)) {
                EXPECT_NEAR(diter3(at.p, at.t, close, tolerance) / exact, 1, allowed)
                    << digits({at.p, at.t, close, tolerance});
            }
            const double d = diter3(at.p, at.t, start, tolerance);
            if ((start > dc) == (exact > dc)) {
                EXPECT_NEAR(d / exact, 1, allowed) << digits({at.p, at.t, start, tolerance});
            } else if (d != 0) {
                EXPECT_EQ(d > dc, start > dc) << digits({at.p, at.t, start, tolerance});
                EXPECT_NEAR(pressure(d, at.t), at.p, 100 * allowed * at.p);
            }
        }
    }
    EXPECT_NEAR(diter3(20.263915573080816, 640, 315, 1e-6), 177.229349, 1e-6);  // starts unstable
    EXPECT_EQ(diter3(21.298997899049024, 645, 500, 1e-6), 0);  // beyond the metastable liquid
    EXPECT_EQ(diter3(30, 650, 200, 1e-6), 0);                  // one root above Tc, of the liquid
    EXPECT_EQ(diter3(17, 700, 400, 1e-6), 0);                  // and of the vapour
    EXPECT_NEAR(diter3(pc, tc, dc, 1e-6), dc, 0.2);            // 322 is on neither side
}

TEST(Density, CriticalPointAndSaturationLine) {
    EXPECT_EQ(call<DOTP>(tc, pc), dc);
    EXPECT_EQ(call<DOPT>(pc + 9e-10, tc - 9e-10), dc);
    for (const Point at :
         {Point{call<PBT>(500.), 500}, Point{20, call<TBP>(20.)}, Point{200, 700}}) {
        EXPECT_EQ(call<DOTP>(at.t, at.p), -99999) << digits({at.p, at.t});
        EXPECT_EQ(call<VOPT>(at.p, at.t), -99999) << digits({at.p, at.t});
    }
    EXPECT_EQ(call<VTP3N>(650., -1.), HUGE_VAL);  // no density at all
}

}  // namespace
