// SPDX-License-Identifier: MIT
// Saturated states by density, enthalpy and entropy: the property at the answer is the argument, on
// every branch up to the critical point. Ranges and codes: tests/host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;
using Function = double (*)(double);

constexpr double t_low = 273.15, t_13 = 623.15, tc = 647.096;
constexpr double t_densest = 277.13505, t_h_max = 508.44296;  // K, where branches part

struct Branch {
    const char* name;
    double from, to;  // K
    Function y;       // the saturated property of T
    Function t, p;    // the temperature and the pressure of y; none
    Function d, v;    // density and volume of y; none
    Function d_t;     // the density of T
};
const Branch branches[] = {
    {"d'", t_densest, tc, call1<DLOT>, call1<TSATOD>, call1<PSATOD>, nullptr, nullptr, call1<DLOT>},
    {"d' cold", t_low, t_densest, call1<DLOT>, nullptr, call1<PSATODZ>, nullptr, nullptr,
     call1<DLOT>},
    {"d''", t_low, tc, call1<DVOT>, call1<TSATOD>, call1<PSATOD>, nullptr, nullptr, call1<DVOT>},
    {"h'", t_low, tc, call1<HLOT>, call1<TSATOH>, call1<PSATOH>, call1<DLOH>, call1<V1OH>,
     call1<DLOT>},
    {"h''", t_h_max, tc, call1<HVOT>, call1<TSATOH>, call1<PSATOH>, call1<DVOH>, call1<V2OH>,
     call1<DVOT>},
    {"h'' cold", t_low, t_h_max, call1<HVOT>, call1<TSATOHZ>, call1<PSATOHZ>, call1<DVOHZ>,
     call1<V2OHZ>, call1<DVOT>},
    {"s'", t_low, tc, call1<SLOT>, call1<TSATOS>, call1<PSATOS>, call1<DLOS>, call1<V1OS>,
     call1<DLOT>},
    {"s''", t_low, tc, call1<SVOT>, call1<TSATOS>, call1<PSATOS>, call1<DVOS>, call1<V2OS>,
     call1<DVOT>},
};

TEST(SaturatedInverse, GivesBackTheArgument) {
    for (const Branch& branch : branches) {
        Random random(81);
        Deviations deviations;
        for (int k = 0; k < states() / 4; ++k) {
            const double ends[] = {branch.from, branch.to, t_13};
            double t = random.uniform(branch.from, branch.to);
            if (k % 3 == 0) t = ends[k % 9 / 3] + random.offset(1e-12, 1e-2);
            // beyond, the coexisting densities are estimates that overlap with those solved
            if (!(t > branch.from && t < std::min(branch.to, tc - 4e-5))) continue;
            const double y = branch.y(t);
            const double found = branch.t != nullptr ? branch.t(y) : call1<TSATOP>(branch.p(y));
            ASSERT_GT(found, 0) << branch.name << ' ' << digits({t, y});
            // what a spacing of T is worth, and the noise of the densities near the critical point
            const double spacing =
                std::abs(branch.y(up(found)) - branch.y(down(found))) / std::abs(y);
            const double noise = t > t_13 ? std::max(2e-11, 5e-11 / (tc - t)) : 1e-12;
            const double scale = std::abs(y) + (branch.name[0] == 'h' ? 126 : 0.46);
            deviations.check(branch.name, branch.y(found), y, scale, noise + spacing, {t, y});
            EXPECT_NEAR(branch.p(y) / call1<PBT>(found), 1, 1e-13) << branch.name << digits({t, y});
            if (branch.d == nullptr) continue;
            EXPECT_NEAR(branch.d(y) / branch.d_t(found), 1, noise) << branch.name << digits({t, y});
            EXPECT_NEAR(branch.v(y) * branch.d(y), 1, 1e-15) << branch.name;
        }
    }
}

TEST(SaturatedInverse, BranchesMeet) {
    constexpr double h_crit = 2087.5468451171591, s_crit = 4.412021482236347;
    EXPECT_EQ(call1<TSATOD>(322), tc);
    EXPECT_EQ(call1<PSATOD>(322), 22.064);
    EXPECT_EQ(call1<TSATOH>(h_crit), tc);
    EXPECT_EQ(call1<TSATOS>(s_crit), tc);
    EXPECT_EQ(call1<DLOH>(h_crit), 322);
    EXPECT_EQ(call1<DVOH>(h_crit), 322);
    EXPECT_EQ(call1<DLOS>(s_crit), 322);
    EXPECT_EQ(call1<DVOS>(s_crit), 322);
    for (const double d : {321.5, 321.99, 321.9999, 322.0001, 322.01, 322.5}) {
        EXPECT_NEAR(call1<TSATOD>(d), tc, 4e-5) << d;
    }
    // between the values of regions 1 and 3 at 623.15 K
    EXPECT_EQ(call1<TSATOD>(574.68), t_13);
    EXPECT_EQ(call1<TSATOH>(1670.87), t_13);
    EXPECT_EQ(call1<TSATOS>(3.7783), t_13);
    // at a maximum both branches answer it
    EXPECT_NEAR(call1<PSATOD>(999.9256712434), call1<PSATODZ>(999.9256712434), 1e-6);
    EXPECT_NEAR(call1<TSATOH>(2803.28525589), call1<TSATOHZ>(2803.28525589), 0.02);
    EXPECT_LT(call1<PSATODZ>(999.9), call1<PBT>(277.13));
}

}  // namespace
