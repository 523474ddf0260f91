// SPDX-License-Identifier: MIT
// The saturation line: accuracy against quadruple precision, inversion, ends and snaps.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_line.hpp"

namespace {

using namespace reference;

constexpr double t_low = 273.15, t_top = 647.096, p_low = 0.0005, p_top = 22.064;
constexpr double sentinel = -99999;

double any_pressure(Random& random, double low) {
    return random.coin() ? random.uniform(low, p_top) : random.log_uniform(low, p_top);
}

TEST(SaturationLine, AgreesWithTheEquations) {
    // The quadratics cancel by about one digit in ps (the root is taken of nearly equal parts, then
    // raised to the fourth power) and not at all in Ts.
    constexpr double tolerance_p = 1e-13, tolerance_t = 1e-14, tolerance_t_p = 2e-13;
    Random random(4);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        const double t = random.uniform(t_low, t_top), p = any_pressure(random, p_low);
        const Quad ps = psat(t), ts = tsat(p), slope = tsat_p(p);
        deviations.check("PBT", call1<PBT>(t), ps, ps, tolerance_p, {t});
        deviations.check("TBP", call1<TBP>(p), ts, ts, tolerance_t, {p});
        deviations.check("DTBPDP", call1<DTBPDP>(p), slope, slope, tolerance_t_p, {p});
        deviations.check("tsat_p", vaprix::tsat_p(p), slope, slope, tolerance_t_p, {p});
        EXPECT_EQ(call1<POT>(t), call1<PBT>(t)) << digits({t});
        EXPECT_EQ(call1<PSATOT>(t), call1<PBT>(t)) << digits({t});
        EXPECT_EQ(vaprix::psat(t), call1<PBT>(t)) << digits({t});
        EXPECT_EQ(vaprix::tsat(p), call1<TBP>(p)) << digits({p});
        EXPECT_EQ(call1<TSATOP>(p), call1<TOP>(p)) << digits({p});
        EXPECT_EQ(vaprix::tsat_exact(p), call1<TOP>(p)) << digits({p});
    }
}

// TOP inverts PSATOT as far as doubles go: it stops at a residual of 1e-15 MPa or at a bracket of
// 1e-15 T, worth up to 8e-15 of ps, and Eq. (30) itself is rounded by up to 1e-14.
TEST(SaturationLine, TopInvertsPsatot) {
    constexpr double residual = 1e-15, resolution = 2e-14;
    Random random(41);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        const double p = any_pressure(random, 0.000611213);
        const double back = call1<PSATOT>(call1<TOP>(p));
        deviations.check("PSATOT(TOP)", back, p, p, resolution + residual / p, {p});
    }
    // close to the upper end, where the bracket is cut at the critical temperature
    for (int k = 0; k < states() / 10; ++k) {
        const double p = p_top - random.log_uniform(1e-14, 1e-2);
        const double back = call1<PSATOT>(call1<TOP>(p));
        deviations.check("PSATOT(TOP) near pc", back, p, p, resolution, {p});
    }
    // Below the line's lower end the secant steps run on; the figure is the root of Eq. (30).
    EXPECT_NEAR(call1<TOP>(1e-6), 207.8634, 5e-5);
}

TEST(SaturationLine, B23LineAndItsInverse) {
    constexpr double tolerance = 1e-14;
    Random random(42);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        const double t = random.uniform(623.15, 863.15), p = random.uniform(16.5292, 100);
        deviations.check("FB23", call1<FB23>(t), p_b23(t), p_b23(t), tolerance, {t});
        deviations.check("t_b23", vaprix::t_b23(p), t_b23(p), t_b23(p), tolerance, {p});
        EXPECT_EQ(vaprix::p_b23(t), call1<FB23>(t)) << digits({t});
    }
    const double outside = 2000;  // no check of the argument
    EXPECT_NEAR(call1<FB23>(outside), static_cast<double>(p_b23(outside)), 1e-10);
}

TEST(SaturationLine, CriticalPointIsExact) {
    EXPECT_EQ(call1<PSATOT>(t_top), p_top);
    EXPECT_EQ(call1<POT>(t_top), p_top);
    EXPECT_EQ(call1<PBT>(t_top), p_top);
    EXPECT_EQ(call1<TOP>(p_top), t_top);
    EXPECT_EQ(call1<TSATOP>(p_top), t_top);
    // The backward equation is not snapped and ends a little short.
    EXPECT_LT(call1<TBP>(p_top), t_top);
    EXPECT_NEAR(call1<TBP>(p_top), 647.0959999988, 1e-10);
}

// A limit belongs to the range, the next double beyond does not. The code, where one is stored,
// tells temperature (-10019) from pressure (-10020); the B kind stores none.
TEST(SaturationLine, Limits) {
    struct Limit {
        const char* name;
        double (*function)(double);
        double inside, outside;
        int code;
    };
    const int none = 0, bad_t = -10019, bad_p = -10020;
    const double zero = 0;
    const std::vector<Limit> limits = {{"PBT", call1<PBT>, t_low, down(t_low), none},
                                       {"PBT", call1<PBT>, t_top, up(t_top), none},
                                       {"POT", call1<POT>, t_low, down(t_low), bad_t},
                                       {"POT", call1<POT>, t_top, up(t_top), bad_t},
                                       {"PSATOT", call1<PSATOT>, t_low, down(t_low), bad_t},
                                       {"PSATOT", call1<PSATOT>, t_top, up(t_top), bad_t},
                                       {"TBP", call1<TBP>, p_low, down(p_low), none},
                                       {"TBP", call1<TBP>, p_top, up(p_top), none},
                                       {"DTBPDP", call1<DTBPDP>, p_low, down(p_low), none},
                                       {"DTBPDP", call1<DTBPDP>, p_top, up(p_top), none},
                                       {"TOP", call1<TOP>, 1e-6, zero, bad_p},
                                       {"TOP", call1<TOP>, p_top, up(p_top), bad_p},
                                       {"TSATOP", call1<TSATOP>, 1e-6, zero, bad_p},
                                       {"TSATOP", call1<TSATOP>, p_top, up(p_top), bad_p}};
    for (const Limit& limit : limits) {
        EXPECT_GT(limit.function(limit.inside), 0) << limit.name << " " << digits({limit.inside});
        // A known code first, so that "stores none" shows as well.
        const double other = limit.code == bad_t ? -1 : 0;
        EXPECT_EQ(limit.code == bad_t ? call1<TOP>(other) : call1<POT>(other), sentinel);
        const int before = ECODETUL();
        EXPECT_EQ(limit.function(limit.outside), sentinel)
            << limit.name << " " << digits({limit.outside});
        EXPECT_EQ(ECODETUL(), limit.code == none ? before : limit.code) << limit.name;
    }
}

}  // namespace
