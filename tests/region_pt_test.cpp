// SPDX-License-Identifier: MIT
// The region of (p, T): random states against a decision in quadruple precision, and every boundary
// exactly, with its neighbouring doubles.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;

constexpr double t_low = 273.15, t_13 = 623.15, t_23 = 863.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_high = 100, p_high_5 = 50, p_top = 22.064;
constexpr double hair = 1e-12;  // half width of the saturation line, MPa or K

int region(double p, double t) { return static_cast<int>(call<REGIONPT>(p, t)); }

// Decision by the exact lines. The 1e-12 wide saturation line is never met by chance.
int expected_region(double p, double t) {
    if (t < t_low || t > t_high || p < p_low || p > p_high) return 0;
    if (t <= t_13) return p > psat(t) ? 1 : 2;
    if (t <= t_23) return p > p_b23(t) ? 3 : 2;
    if (t <= t_25) return 2;
    return p <= p_high_5 ? 5 : 0;
}

TEST(RegionPt, RandomStates) {
    Random random(7);
    for (int k = 0; k < 4 * states(); ++k) {
        double p = random.coin() ? random.uniform(-1, 101) : random.log_uniform(1e-4, 200);
        const double t = random.uniform(270, 2280) / (random.coin() ? 1 : 2.5);
        if (k % 4 == 0 && t > t_low && t < t_23)  // close to the lines, off by 1e-8 and more
            p = static_cast<double>(t < t_13 ? psat(t) : p_b23(t)) *
                (1 + random.offset(1e-8, 1e-2));
        ASSERT_EQ(region(p, t), expected_region(p, t)) << digits({p, t});
    }
}

TEST(RegionPt, FixedLimits) {
    struct Case {
        double p, t;
        int region;
    };
    const double t_first = t_low - hair;  // the range is open by the tolerance here
    const double t_last_2 = t_25 + hair;  // and so is region 2 towards region 5
    const double infinite = std::numeric_limits<double>::infinity();
    // clang-format off
    const std::vector<Case> cases = {
        // lowest and highest temperature
        {1, t_first, 1}, {1, down(t_first), 0}, {1, t_low - 1e-13, 1}, {1, t_low - 1e-11, 0},
        {1, t_high, 5}, {1, up(t_high), 0},
        // highest pressure, in each region that reaches it
        {p_high, 300, 1}, {up(p_high), 300, 0}, {p_high, 700, 3}, {up(p_high), 700, 0},
        {p_high, 1000, 2}, {up(p_high), 1000, 0},
        // lowest pressure; it lies 2e-11 MPa above the saturation line at 273.15 K
        {p_low, 300, 2}, {down(p_low), 300, 0}, {p_low, 2000, 5}, {down(p_low), 2000, 0},
        {p_low, t_low, 1},
        // region 5 ends at 50 MPa; region 2 does not, and owns its border with region 5
        {p_high_5, t_high, 5}, {up(p_high_5), t_high, 0}, {p_high, t_high, 0},
        {p_high, t_25, 2}, {p_high, t_last_2, 2}, {p_high, up(t_last_2), 0},
        {p_high_5, t_last_2, 2}, {p_high_5, up(t_last_2), 5}, {up(p_high_5), up(t_last_2), 0},
        // 623.15 K belongs to regions 1 and 2; region 3 ends where the B23 line reaches 100 MPa
        {p_high, t_13, 1}, {p_high, up(t_13), 3}, {16, t_13, 2}, {16, up(t_13), 2},
        {p_high, t_23, 2}, {p_high, t_23 - 1e-6, 3}, {p_high, up(t_23), 2},
        // at pc the line is at the temperature of Eq. (31), 1.2e-9 K below Tc; above pc is none
        {p_top, 647.096, 3}, {p_top, call1<TBP>(p_top), 4},
        {up(p_top), 647.096, 3}, {up(p_top), call1<TBP>(p_top), 3},
        {infinite, 300, 0}, {1, infinite, 0}, {-infinite, 300, 0}, {1, -infinite, 0}};
    // clang-format on
    for (const Case& c : cases) EXPECT_EQ(region(c.p, c.t), c.region) << digits({c.p, c.t});
}

TEST(RegionPt, BoundaryOfRegions2And3) {
    Random random(71);
    for (int k = 0; k < states(); ++k) {
        const double t = random.uniform(623.2, t_23);
        const double p = call1<FB23>(t);
        ASSERT_EQ(region(p, t), 2) << digits({p, t});
        ASSERT_EQ(region(up(p), t), 3) << digits({p, t});
    }
}

TEST(RegionPt, SaturationLineUpTo623K) {
    Random random(72);
    for (int k = 0; k < states(); ++k) {
        const double t = k == 0 ? t_13 : random.uniform(273.2, t_13);
        const double ps = call1<PBT>(t), low = ps - hair, high = ps + hair;
        ASSERT_EQ(region(low, t), 2) << digits({low, t});
        ASSERT_EQ(region(up(low), t), 4) << digits({up(low), t});
        ASSERT_EQ(region(ps, t), 4) << digits({ps, t});
        ASSERT_EQ(region(down(high), t), 4) << digits({down(high), t});
        ASSERT_EQ(region(high, t), 1) << digits({high, t});
    }
}

TEST(RegionPt, SaturationLineAbove623K) {
    Random random(73);
    for (int k = 0; k < states(); ++k) {
        const double p = k == 0 ? p_top : random.uniform(16.53, p_top);
        const double ts = call1<TBP>(p), low = ts - hair, high = ts + hair;
        ASSERT_EQ(region(p, low), 3) << digits({p, low});
        ASSERT_EQ(region(p, up(low)), 4) << digits({p, up(low)});
        ASSERT_EQ(region(p, ts), 4) << digits({p, ts});
        ASSERT_EQ(region(p, high), 4) << digits({p, high});
        ASSERT_EQ(region(p, up(high)), 3) << digits({p, up(high)});
    }
}

// The functions that are given a region find it themselves when it is 0 and write it back, with 9
// for the saturation line; a region that is given is neither checked nor changed.
TEST(RegionPt, RegionGivenFunctions) {
    using Given = double (*)(const double*, const double*, int*);
    struct Pair {
        Given given;
        double (*family)(double, double);
    };
    const std::vector<Pair> pairs = {{HPT, call<HBPT>},
                                     {VPT, call<VBPT>},
                                     {SPT, call<SBPT>},
                                     {CPPT, call<CPBPT>},
                                     {CVPT, call<CVBPT>}};
    Random random(74);
    int seen[10] = {};
    for (int k = 0; k < states() / 10; ++k) {
        const double t = random.uniform(t_low, 1300);
        double p = random.log_uniform(p_low, 120);
        if (k % 5 == 0 && t < 647) p = call1<PBT>(t);
        if (k % 5 == 1 && t > t_13 && t < t_23) p = random.uniform(16.5, 100);
        const int found = region(p, t) == 4 ? 9 : region(p, t);
        ++seen[found];
        for (const Pair& pair : pairs) {
            int written = 0;
            const double value = pair.given(&p, &t, &written);
            EXPECT_EQ(written, found) << digits({p, t});
            if (found == 0 || found == 9)
                EXPECT_EQ(value, 0) << digits({p, t});
            else
                EXPECT_EQ(value, pair.family(p, t)) << digits({p, t});
            EXPECT_EQ(pair.given(&p, &t, &written), value) << digits({p, t});
            EXPECT_EQ(written, found);
        }
    }
    for (const int r : {0, 1, 2, 3, 5, 9}) EXPECT_GT(seen[r], 0) << r;
    // Region 1 by order, although 700 K and 10 MPa are vapour.
    const double p = 10, t = 700;
    int liquid = 1;
    EXPECT_EQ(HPT(&p, &t, &liquid), call<HPT1N>(p, t));
    EXPECT_EQ(liquid, 1);
}

}  // namespace
