// SPDX-License-Identifier: MIT
// The O-family of (T, density): back to the pressure a density came from, every property on the
// way, wet steam, and the region on both sides of each boundary. Ranges and codes: tests/host.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;

constexpr double t_low = 273.15, t_13 = 623.15, t_23 = 863.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_high_5 = 50, p_high = 100, tc = 647.096;
constexpr double sentinel = -99999;

struct Row {
    const char* name;
    double (*function)(double, double);
    Quad State::*quantity;
    double (*saturated[2])(double);  // liquid and vapour of T
    bool wet;                        // has a value for wet steam
};
// clang-format off
#define ROW(y, quantity, wet) {#y "OTD", call<y##OTD>, &State::quantity, {call1<y##1BT>, call1<y##2BT>}, wet}
const Row rows[] = {
    {"POTD", call<POTD>, &State::p, {call1<PBT>, call1<PBT>}, true},
    ROW(H, h, true), ROW(S, s, true), ROW(U, u, true), ROW(F, f, true), ROW(G, g, true),
    ROW(CP, cp, false), ROW(CV, cv, false), ROW(W, w, false)};
// clang-format on

void expect_z(double t, double d) {
    EXPECT_NEAR((call<ZOTD>(t, d)) * d * 0.461526 * t / (1000 * call<POTD>(t, d)), 1, 1e-14)
        << digits({t, d});
}

double region_of(double t, double d) { return call<REGIONTV>(t, 1 / d); }

TEST(Td, GivesBackTheStateOfPt) {
    Random random(61);
    Deviations deviations;
    constexpr double limits[] = {t_low, t_13, t_23, t_25, t_high};
    for (int k = 0; k < states() / 5; ++k) {
        const int group = k % 4;
        const double t = random.uniform(limits[group], limits[group + 1]);
        const double p = random.log_uniform(p_low, group == 3 ? p_high_5 : p_high);
        const int region = static_cast<int>(call<REGIONPT>(p, t));
        // Where two equations meet that do not quite agree, the density tells another region.
        const auto beside = [p](double line) { return std::abs(p / line - 1) < 1e-4; };
        if (region == 4 || beside(call1<PBT>(t)) || beside(call1<FB23>(t))) continue;
        const double d = call<DOPT>(p, t);
        EXPECT_EQ(region_of(t, d), region) << digits({t, d});
        const State x = region == 1   ? region1(p, t)
                        : region == 2 ? region2(p, t)
                        : region == 3 ? region3(d, t)
                                      : region5(p, t);
        // What a rounding of d is worth of p: in cold liquid at low pressure millions of them.
        const double stiff = 0x1p-51 * static_cast<double>(d * x.p_d / x.p);
        for (const Row& row : rows) {
            const double allowed =
                rounding_tolerance(row.quantity, x) + (row.quantity == &State::p ? stiff : 0);
            deviations.check(row.name + std::to_string(region), row.function(t, d), x.*row.quantity,
                             natural_scale(row.quantity, x), std::max(1e-12, allowed), {t, d});
        }
        expect_z(t, d);
    }
}

TEST(Td, SaturatedAndWet) {
    Random random(62);
    Deviations deviations;
    for (int k = 0; k < states() / 20; ++k) {
        const bool dense = random.coin();
        // Until 623.1544 K the vapour of region 3 is thinner than region 2 at the B23 line.
        const double t = dense ? random.uniform(623.155, 647.09) : random.uniform(t_low, t_13);
        const double ps = call1<PBT>(t), d[] = {call1<DLOT>(t), call1<DVOT>(t)};
        // The saturated densities themselves are of one phase, what lies a little inside is wet.
        for (const int phase : {0, 1}) {
            const int region = dense ? 3 : phase + 1;
            EXPECT_EQ(region_of(t, d[phase]), region) << digits({t, d[phase]});
            for (const Row& row : rows) {
                // In region 3 the pressure is that of the equation, not of the saturation line.
                const double want = row.saturated[phase](t);
                const double relative = dense && row.quantity == &State::p ? 1e-4 : 1e-11;
                EXPECT_NEAR(row.function(t, d[phase]), want, relative * (std::abs(want) + 1))
                    << row.name << digits({t, d[phase]});
            }
            const double step = phase == 0 ? -1e-12 : 1e-12;
            EXPECT_EQ(region_of(t, d[phase] * (1 + step)), 4) << digits({t, d[phase]});
            EXPECT_EQ(region_of(t, d[phase] * (1 - step)), region) << digits({t, d[phase]});
        }
        const double x = random.uniform(0.001, 0.999), v = 1 / d[0] + x * (1 / d[1] - 1 / d[0]);
        const double mixed = 1 / v, condition = d[0] / (d[0] - d[1]);
        EXPECT_EQ((call<POTD>(t, mixed)), ps) << digits({t, mixed});
        deviations.check("XOTD", call<XOTD>(t, mixed), x, 1, 1e-14 * condition, {t, mixed});
        expect_z(t, mixed);
        for (const Row& row : rows) {
            const double y[] = {row.saturated[0](t), row.saturated[1](t)};
            const double got = row.function(t, mixed), want = y[0] + x * (y[1] - y[0]);
            EXPECT_NEAR(got, row.wet ? want : sentinel, 1e-12 * (std::abs(want) + 100))
                << row.name << digits({t, mixed});
        }
    }
}

// A limit, and what lies beyond it: `outwards` is the step of d, relative.
TEST(Td, Boundaries) {
    struct Limit {
        double p, t, outwards;
        int region, beyond;
    };
    constexpr double denser = 1e-11, thinner = -1e-11, b23 = 860;
    const Limit limits[] = {
        {p_high, t_low, denser, 1, 0},     {p_high, t_13, denser, 1, 0},
        {p_high, up(t_13), denser, 3, 0},  {p_high, b23, denser, 3, 0},
        {p_high, up(t_23), denser, 2, 0},  {p_high, t_25, denser, 2, 0},
        {p_high_5, 1073.16, denser, 5, 0}, {p_high_5, t_high, denser, 5, 0},
        {p_low, 300, thinner, 2, 0},       {p_low, t_13, thinner, 2, 0},
        {p_low, 700, thinner, 2, 0},       {p_low, t_25, thinner, 2, 0},
        {p_low, t_high, thinner, 5, 0},    {call1<FB23>(b23), b23, denser, 2, 3}};
    for (const Limit& limit : limits) {
        const double d = call<DOPT>(limit.p, limit.t), beyond = d * (1 + limit.outwards);
        EXPECT_EQ(region_of(limit.t, d * (1 - limit.outwards)), limit.region)
            << digits({limit.t, limit.p});
        EXPECT_EQ(region_of(limit.t, beyond), limit.beyond) << digits({limit.t, limit.p});
        EXPECT_EQ((call<HOTD>(limit.t, beyond)) == sentinel, limit.beyond == 0);
    }
    for (const double t : {down(t_low), up(t_high)}) EXPECT_EQ(region_of(t, 1e-3), 0);
    for (const double t : {tc, up(tc)}) EXPECT_EQ(region_of(t, 322), 3);
}

}  // namespace
