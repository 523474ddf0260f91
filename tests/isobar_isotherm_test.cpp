// SPDX-License-Identifier: MIT
// (p, v), (T, h) and (T, s): there and back from states of the whole range, wet steam and both
// branches among them, and where the branches end.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;
using Function = double (*)(double, double);

constexpr double t_low = 273.15, t_13 = 623.15, t_25 = 1073.15, t_high = 2273.15, tc = 647.096;
constexpr double p_low = 0.0006112127, p_high_5 = 50, p_high = 100;

double t_densest(double p) { return 277.1333942 - 0.2007841919 * p - 0.0005037450669 * p * p; }

// Each for the plain and for the Z export.
const Function region_pv[] = {call<REGIONPV>, call<REGIONPVZ>}, t_pv[] = {call<TOPV>, call<TOPVZ>},
               t_b_pv[] = {call<TBPV>, call<TBPVZ>}, t_dp[] = {call<TODP>, call<TODPZ>};
struct Isotherm {
    const char* name;
    Quad State::*y;
    Function of_pt, of_tx, region[2], p[2], p_b[2], d[2];
};
// clang-format off
const Isotherm isotherms[] = {
    {"(T,h)", &State::h, call<HOPT>, call<HOTX>, {call<REGIONTH>, call<REGIONTHZ>},
     {call<POTH>, call<POTHZ>}, {call<PBTH>, call<PBTHZ>}, {call<DOTH>, call<DOTHZ>}},
    {"(T,s)", &State::s, call<SOPT>, call<SOTX>, {call<REGIONTS>, call<REGIONTSZ>},
     {call<POTS>, call<POTSZ>}, {call<PBTS>, call<PBTSZ>}, {call<DOTS>, call<DOTSZ>}}};
// clang-format on

struct Sample {
    double p, t, x;  // x: quality, below 0 for a single phase
};
Sample sample(Random& random, int kind) {
    if (kind == 0) {
        const double t = random.uniform(random.coin() ? t_low : t_13, tc);
        return {call1<PBT>(t), t, random.uniform(0, 1)};
    }
    const double p =
        random.coin() ? random.uniform(p_low, p_high) : random.log_uniform(p_low, p_high);
    return {p, random.uniform(t_low, kind == 1 ? t_high : kind == 2 ? 900 : 280), -1};
}

// The given variable at the state found, in quadruple precision: to a relative 1e-12 (of R T or R,
// where that is more), or to what the cancellation in dense fluid leaves of a sum.
void check(Deviations& deviations, const std::string& name, int region, double p, double t,
           double d, Quad State::*quantity, double want, Quad floor) {
    const State found = region == 1   ? region1(p, t)
                        : region == 2 ? region2(p, t)
                        : region == 3 ? region3(d, t)
                                      : region5(p, t);
    deviations.check(name, static_cast<double>(found.*quantity), want,
                     std::max(magnitude(want), floor),
                     std::max(1e-12, rounding_tolerance(quantity, found)), {p, t, want});
}

TEST(IsobarIsotherm, RoundTrip) {
    // Beside the saturation line, which is not quite that of the region-3 equation, a state may be
    // found wet, at the pressure of the line.
    constexpr double line_mismatch = 3e-5;
    Random random(110);
    Deviations deviations;
    int next = 0;
    for (int k = 0; k < 2 * states(); ++k) {
        const auto [p, t, x] = sample(random, k % 4);
        const bool wet = x >= 0;
        const int region = wet ? 4 : static_cast<int>(call<REGIONPT>(p, t));
        if (region == 0 || (region == 4 && !wet)) continue;
        const std::string where = digits({p, t, x});
        const double d = wet ? call<DOTX>(t, x) : call<DOPT>(p, t), v = 1 / d;

        const int z = region == 1 && t < t_densest(p) ? 1 : 0;
        const double found_t = t_pv[z](p, v);
        const int r_pv = static_cast<int>(region_pv[z](p, v));
        EXPECT_EQ(r_pv == 0, z == 1 && t_densest(p) > 277.13) << where;
        EXPECT_EQ(found_t, t_b_pv[z](p, v)) << where;
        EXPECT_EQ(found_t, t_dp[z](d, p)) << where;
        if (r_pv == 4) {
            EXPECT_NEAR(call<VOPX>(p, call<XOPV>(p, v)), v, 1e-12 * v) << where;
        } else if (r_pv != 0) {
            check(deviations, "(p,v)", r_pv, p, found_t, d, r_pv == 3 ? &State::p : &State::v,
                  r_pv == 3 ? p : v, 0);
        }

        for (const Isotherm& of : isotherms) {
            const double y = wet ? of.of_tx(t, x) : of.of_pt(p, t);
            bool found = of.y == &State::s && t < 277.14 && region == 1;  // may be the third
            for (const int second : {0, 1}) {
                const int r = static_cast<int>(of.region[second](t, y));
                const double at_p = of.p[second](t, y), at_d = of.d[second](t, y);
                EXPECT_EQ(at_p, of.p_b[second](t, y)) << of.name << where;
                next += r * second;
                if (r == 0) continue;
                found = found || std::abs(at_p / p - 1) < std::max(line_mismatch, 1e-7 / p);
                if (r == 4) {
                    EXPECT_EQ(at_p, call1<PBT>(t)) << of.name << where;
                    const double back = of.of_tx(t, call<XOTD>(t, at_d));
                    EXPECT_NEAR(back, y, 1e-11 * std::max(std::abs(y), 1.)) << of.name << where;
                    continue;
                }
                check(deviations, of.name, r, at_p, t, at_d, of.y, y,
                      of.y == &State::h ? gas_constant * t : gas_constant);
            }
            EXPECT_TRUE(found) << of.name << where;
        }
    }
    EXPECT_GT(next, states() / 100);
}

TEST(IsobarIsotherm, EndsOfTheIsobar) {
    constexpr double hair = 1e-15;  // relative, more than the rounding of a reciprocal
    Random random(111);
    for (int k = 0; k < states() / 100; ++k) {
        const double p = random.log_uniform(p_low, p_high), densest = t_densest(p);
        const int z = densest >= t_low ? 1 : 0;
        const double exists = z == 1 && densest > 277.13 ? 0 : 1;
        const double cold = call<VPT1N>(p, t_low), least = call<VPT1N>(p, z ? densest : t_low);
        const double hot = p > p_high_5 ? call<VPT2N>(p, t_25) : call<VPT5N>(p, t_high);
        EXPECT_EQ(region_pv[z](p, cold), exists) << digits({p});
        EXPECT_EQ(region_pv[z](p, least), exists) << digits({p});
        EXPECT_EQ(region_pv[z](p, least * (1 - (z ? 1e-12 : hair))), 0) << digits({p});
        EXPECT_EQ(region_pv[1](p, cold * (1 + hair)), 0) << digits({p});
        EXPECT_EQ(region_pv[0](p, hot), p > p_high_5 ? 2 : 5) << digits({p});
        EXPECT_EQ(region_pv[0](p, hot * (1 + hair)), 0) << digits({p});
    }
}

TEST(IsobarIsotherm, EndsOfTheIsotherm) {
    Random random(112);
    for (int k = 0; k < states() / 100; ++k) {
        const double t = random.uniform(278, random.coin() ? t_high : 900);
        if (t > 612 && t < 614) continue;  // here the turn of h leaves region 1
        for (const Isotherm& of : isotherms) {
            const double top = t > t_25 ? p_high_5 : p_high;
            const double thin = of.of_pt(p_low, t), dense = of.of_pt(top, t);
            const int second = of.y == &State::h && t < 612 ? 1 : 0;  // h rises to 100 MPa
            const double beyond = dense + (second ? 1e-9 : -1e-9) * std::abs(dense);
            EXPECT_NEAR(of.p[0](t, thin), p_low, 1e-4 * p_low) << of.name << digits({t});
            EXPECT_EQ(of.region[0](t, thin * (1 + 1e-13)), 0) << of.name << digits({t});
            EXPECT_NEAR(of.p[second](t, dense), top, 1e-6 * top) << of.name << digits({t});
            EXPECT_EQ(of.region[second](t, beyond), 0) << of.name << digits({t});
            if (t > t_13) continue;
            const double liquid = of.of_tx(t, 0), vapour = of.of_tx(t, 1);
            EXPECT_EQ(of.p[0](t, liquid), call1<PBT>(t)) << of.name << digits({t});
            EXPECT_EQ(of.region[0](t, liquid), 1) << of.name << digits({t});
            EXPECT_EQ(of.region[0](t, up(liquid)), 4) << of.name << digits({t});
            EXPECT_EQ(of.region[0](t, down(vapour)), 4) << of.name << digits({t});
            EXPECT_EQ(of.region[0](t, vapour), 2) << of.name << digits({t});
        }
    }
}

// Both states beside the pressure at which h or s of the liquid turns, found here by the slope in
// quadruple precision; beyond the turn there is none.
TEST(IsobarIsotherm, WhereTheLiquidTurns) {
    for (const double t : {274.0, 275.5, 277.0, 525.0, 560.0, 600.0, 612.0}) {
        const bool cold = t < 300;  // s turns, and wet steam comes first
        const Isotherm& of = isotherms[cold ? 1 : 0];
        double low = call1<PBT>(t), high = p_high;
        for (int k = 0; k < 60; ++k) {
            const double p = (low + high) / 2;
            const State at = region1(p, t);
            ((cold ? at.v_t : at.v - t * at.v_t) < 0 ? low : high) = p;
        }
        const double at = of.of_pt(low, t), dp = 1e-2, y = of.of_pt(low + dp, t);
        EXPECT_NE(of.region[0](t, at), 0) << t;
        EXPECT_EQ(of.region[cold ? 1 : 0](t, at + (cold ? 1e-10 : -1e-10)), 0) << t;
        EXPECT_NEAR(of.p[1](t, y), cold ? low - dp : low + dp, dp / 10) << t;
        EXPECT_NEAR(of.p[0](t, y), cold ? call1<PBT>(t) : low - dp, dp / 10) << t;
    }
}

}  // namespace
