// SPDX-License-Identifier: MIT
// The region of (p, h) and of (p, s): against a decision in quadruple precision, every line and
// limit exactly with its neighbouring doubles, the two ways to tell wet steam near the critical
// point, and what the temperature functions do at the seams on purpose.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "reference/backward12.hpp"
#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/region3_density.hpp"
#include "reference/sampling.hpp"
#include "regions/b23.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3.hpp"
#include "regions/region3_backward.hpp"
#include "regions/saturated_densities.hpp"

namespace {

using namespace reference;
using Function = double (*)(double, double);
using Given = double (*)(const double*, const double*, int*);

constexpr double t_low = 273.15, t_13 = 623.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_13 = 16.52916425260452, pc = 22.064, p_high_5 = 50,
                 p_high = 100;
constexpr double sentinel = -99999;
constexpr double infinite = std::numeric_limits<double>::infinity();

struct Pair {
    const char* name;
    Function region;
    Given t_given;
    Function t1, t2, y1, y2, y5, y3;  // natives; y3 is of (v, T)
    double (*p3sat)(double);
    Sum (*p3sat_exact)(Quad);
    Function t_o, other_o, cp_o, w_o, x_o;
    Quad State::*y;
    double low, high;  // range of y
    // Above the pressure of 623.15 K region 5 begins at this y at the latest and ends at the next
    // one; below that pressure it ends at this temperature: (p, s) is given 0.05 K more.
    double first_5, last_5, t_last_5;
};

// clang-format off
const Pair pairs[] = {
    {"(p, h)", call<REGIONPH>, TPH, call<TPH1N>, call<TPH2N>,
     call<HPT1N>, call<HPT2N>, call<HPT5N>, call<HVT3N>, vaprix::region3::p3sat_h, p3sat_h,
     call<TOPH>, call<SOPH>, call<CPOPH>, call<WOPH>, call<XOPH>,
     &State::h, -0.04158782623017032, 7376.98028, 4084.04905441735, infinite, 2273.15},
    {"(p, s)", call<REGIONPS>, TPS, call<TPS1N>, call<TPS2N>,
     call<SPT1N>, call<SPT2N>, call<SPT5N>, call<SVT3N>, vaprix::region3::p3sat_s, p3sat_s,
     call<TOPS>, call<HOPS>, call<CPOPS>, call<WOPS>, call<XOPS>,
     &State::s, -0.008582287092621963, 13.9049560904359, 7.15370696228142, 9.2, 2273.2}};
// clang-format on

int region(const Pair& pair, double p, double y) { return static_cast<int>(pair.region(p, y)); }

Quad of1(const Pair& pair, Quad p, Quad t) { return region1(p, t).*pair.y; }
Quad of2(const Pair& pair, Quad p, Quad t) { return region2(p, t).*pair.y; }
Quad of5(const Pair& pair, Quad p, Quad t) { return region5(p, t).*pair.y; }

// Decision by the exact lines.
int expected_region(const Pair& pair, double p, double y) {
    if (!(p_low <= p && p <= p_high && pair.low <= y && y <= pair.high)) return 0;
    const bool dense = p > p_13;
    if (y <= of1(pair, p, dense ? Quad(t_13) : tsat(p))) return y >= of1(pair, p, t_low) ? 1 : 0;
    if (y < of2(pair, p, dense ? t_b23(p) : tsat(p)))
        return !dense || (p < pc && p < pair.p3sat_exact(y).value) ? 4 : 3;
    if (y <= of2(pair, p, t_25) && !(dense && p <= p_high_5 && y > pair.first_5)) return 2;
    if (p > p_high_5) return 0;
    return dense ? (y <= pair.last_5 ? 5 : 0) : (y <= of5(pair, p, pair.t_last_5) ? 5 : 0);
}

// The lines between regions, in quadruple precision.
struct Line {
    double p_from, p_to;
    Quad (*y)(const Pair&, Quad p);
};
const Line lines[] = {
    {p_low, p_13, [](const Pair& pair, Quad p) { return of1(pair, p, tsat(p)); }},
    {p_low, p_13, [](const Pair& pair, Quad p) { return of2(pair, p, tsat(p)); }},
    {p_low, p_high, [](const Pair& pair, Quad p) { return of1(pair, p, t_low); }},
    {p_low, p_high, [](const Pair& pair, Quad p) { return of2(pair, p, t_25); }},
    {p_13, p_high, [](const Pair& pair, Quad p) { return of1(pair, p, t_13); }},
    {p_13, p_high, [](const Pair& pair, Quad p) { return of2(pair, p, t_b23(p)); }}};

TEST(InverseRegion, RandomStates) {
    Random random(50);
    for (const Pair& pair : pairs)
        for (int k = 0; k < states() / 2; ++k) {
            const double p =
                random.coin() ? random.uniform(-1, 101) : random.log_uniform(1e-4, 200);
            const double y = random.uniform(pair.low, pair.high) * 1.02;
            // The search of region 5 settles the last temperature to a relative 1e-6 only.
            if (p_low < p && p < p_13) {
                const Quad end = of5(pair, p, pair.t_last_5);
                if (magnitude(y - end) < 1e-5 * end) continue;
            }
            ASSERT_EQ(region(pair, p, y), expected_region(pair, p, y))
                << pair.name << digits({p, y});
        }
}

TEST(InverseRegion, BesideTheLines) {
    constexpr double closest = 1e-9, farthest = 1e-2;
    Random random(51);
    for (const Pair& pair : pairs) {
        for (const Line& line : lines)
            for (int k = 0; k < states() / 20; ++k) {
                const double p = random.coin() ? random.uniform(line.p_from, line.p_to)
                                               : random.log_uniform(line.p_from, line.p_to);
                const Quad on = line.y(pair, p);
                const auto y = static_cast<double>(on + random.offset(closest, farthest) *
                                                            (magnitude(on) + pair.high / 100));
                ASSERT_EQ(region(pair, p, y), expected_region(pair, p, y))
                    << pair.name << digits({p, y});
            }
        for (int k = 0; k < states() / 2; ++k) {
            const double y = random.uniform(pair.low, pair.high) / 2;
            const auto p = static_cast<double>(pair.p3sat_exact(y).value) *
                           (1 + random.offset(closest, farthest));
            if (!(p > p_13)) continue;
            ASSERT_EQ(region(pair, p, y), expected_region(pair, p, y))
                << pair.name << digits({p, y});
        }
    }
}

// Every line belongs to one side, to the last digit.
TEST(InverseRegion, OwnersOfTheLines) {
    struct Owner {
        double p_from, p_to;
        double (*y)(const Pair&, double p);
        int below, owner, above;
    };
    // Where regions 1, 2, 3 and wet steam meet, the equations do not: begin a little above.
    constexpr double p_3 = 16.55;
    const Owner owners[] = {
        {p_low, p_13, [](const Pair& a, double p) { return a.y1(p, call1<TBP>(p)); }, 1, 1, 4},
        {p_low, p_13, [](const Pair& a, double p) { return a.y2(p, call1<TBP>(p)); }, 4, 2, 2},
        {0.001, p_high, [](const Pair& a, double p) { return a.y1(p, t_low); }, 0, 1, 1},
        {p_low, p_13, [](const Pair& a, double p) { return a.y2(p, t_25); }, 2, 2, 5},
        {p_3, p_high_5, [](const Pair& a, double p) { return a.y2(p, t_25); }, 2, 2, 5},
        {up(p_high_5), p_high, [](const Pair& a, double p) { return a.y2(p, t_25); }, 2, 2, 0},
        {p_3, p_high, [](const Pair& a, double p) { return a.y1(p, t_13); }, 1, 1, 3},
        {p_3, p_high, [](const Pair& a, double p) { return a.y2(p, vaprix::t_b23(p)); }, 3, 2, 2}};
    Random random(52);
    for (const Pair& pair : pairs) {
        for (const Owner& line : owners)
            for (int k = 0; k < states() / 10; ++k) {
                const double p = random.coin() ? random.uniform(line.p_from, line.p_to)
                                               : random.log_uniform(line.p_from, line.p_to);
                const double y = line.y(pair, p);
                ASSERT_EQ(region(pair, p, down(y)), line.below) << pair.name << digits({p, y});
                ASSERT_EQ(region(pair, p, y), line.owner) << pair.name << digits({p, y});
                ASSERT_EQ(region(pair, p, up(y)), line.above) << pair.name << digits({p, y});
            }
        const double from = pair.y1(p_13, t_13), to = pair.y2(p_13, t_13);
        for (int k = 0; k < states() / 10; ++k) {
            const double y = random.uniform(from, to), p = pair.p3sat(y);
            if (!(p_13 < p && p < pc)) continue;
            ASSERT_EQ(region(pair, p, y), 3) << pair.name << digits({p, y});
            ASSERT_EQ(region(pair, down(p), y), 4) << pair.name << digits({p, y});
        }
    }
}

TEST(InverseRegion, FixedLimits) {
    struct Case {
        double p, y;
        int region;
    };
    const auto check = [](const Pair& pair, const std::vector<Case>& cases) {
        for (const Case& c : cases)
            EXPECT_EQ(region(pair, c.p, c.y), c.region) << pair.name << digits({c.p, c.y});
    };
    const auto& [h, s] = pairs;
    // clang-format off
    check(h, {{p_low, 100, 4}, {down(p_low), 100, 0}, {p_high, 1000, 1}, {up(p_high), 1000, 0},
              {p_low, down(h.low), 0}, {1, down(h.low), 0}, {30, h.high, 5}, {30, up(h.high), 0},
              {1, h.high, 0},  // hotter than 2273.15 K, which above 16.5 MPa is not asked
              // region 2 reaches 4084.12 there, its last 0.07 are given to region 5
{p_13, 4084.1, 2}, {up(p_13), 4084.1, 5}, {up(p_13), h.first_5, 2},
{p_high_5, 5000, 5}, {up(p_high_5), 5000, 0}, {pc, 2084, 3}, {pc, 2090, 3}});
    check(s, {{p_low, 4, 4}, {down(p_low), 4, 0}, {p_high, 3, 1}, {up(p_high), 3, 0},
              {p_high, down(s.low), 0}, {p_low, s.high, 5}, {p_low, up(s.high), 0}, {1, 13.905, 0},
              {30, 9.2, 5}, {30, up(9.2), 0}, {up(p_13), 9.2, 5}, {p_13, 9.2, 0},
              {p_high_5, 8, 5}, {up(p_high_5), 8, 0}, {pc, 4.41, 3}, {pc, 4.42, 3}});
    // clang-format on
    for (const double p : {0.01, 1., 10., 16.}) {
        check(h, {{p, h.y5(p, t_high - 0.01), 5}});
        if (p > 1) check(h, {{p, h.y5(p, t_high + 0.01), 0}});  // at 1 MPa beyond the range of h
        check(s, {{p, s.y5(p, t_high + 0.03), 5}, {p, s.y5(p, t_high + 0.07), 0}});
    }
}

// The temperature functions determine region 0 and write it back, 9 for wet steam; they take
// any other region at its word and give 0 where it has no equation.
TEST(InverseRegion, RegionGiven) {
    constexpr int unusable[] = {-1, 4, 6, 7, 8, 10, 2147483647, -2147483647 - 1};
    Random random(53);
    for (const Pair& pair : pairs)
        for (int k = 0; k < states() / 10; ++k) {
            const double p = random.log_uniform(p_low / 2, 2 * p_high);
            const double y = random.uniform(pair.low, pair.high);
            const int found = region(pair, p, y);
            int written = 0;
            const double t = pair.t_given(&p, &y, &written);
            ASSERT_EQ(written, found == 4 ? 9 : found) << pair.name << digits({p, y});
            if (found != 0) {
                ASSERT_EQ(pair.t_given(&p, &y, &written), t) << pair.name << digits({p, y});
            }
            if (found == 0 || found == 4) {
                ASSERT_EQ(t, found == 0 ? 0 : call1<TBP>(p)) << pair.name << digits({p, y});
            }
            for (const int code : unusable) {
                int given = code;
                ASSERT_EQ(pair.t_given(&p, &y, &given), 0) << pair.name << digits({p, y});
                ASSERT_EQ(given, code);
            }
        }
}

// A backward temperature up to 25 mK, the permitted error, beyond 273.15 or 1073.15 K is put back
// onto the limit; one farther off stays as it is.
TEST(InverseRegion, TemperaturesPutBackOntoTheLimits) {
    constexpr double reach = 0.025;
    Random random(54);
    for (const Pair& pair : pairs) {
        int moved = 0, beyond = 0;
        for (int k = 0; k < states() / 10; ++k) {
            const double p = random.uniform(0.1, p_high);
            const bool cold = random.coin();
            const double limit = cold ? t_low : t_25;
            const double y = (cold ? pair.y1 : pair.y2)(p, limit + random.uniform(-0.1, 0.1));
            const double t = (cold ? pair.t1 : pair.t2)(p, y);
            const double past = cold ? limit - t : t - limit;
            int given = cold ? 1 : 2;
            const double got = pair.t_given(&p, &y, &given);
            EXPECT_EQ(got, past > 0 && past <= reach ? limit : t) << pair.name << digits({p, y});
            moved += got != t;
            beyond += past > reach;
        }
        EXPECT_GT(moved, states() / 100) << pair.name;
        EXPECT_GT(beyond, states() / 100) << pair.name;
    }
}

// Where two subregions of region 2 meet their equations differ by some mK, which shows the owner.
TEST(InverseRegion, OwnersOfTheSubregions) {
    const auto expect_nearer = [](double got, const Sum& owner, const Sum& other, double p,
                                  double y) {
        EXPECT_LT(magnitude(got - owner.value), magnitude(got - other.value) / 100)
            << digits({p, y, got});
    };
    constexpr double p = 4, s_2bc = 5.85;
    for (const double h : {2900., 3300., 3700.}) {
        expect_nearer(call<TPH2N>(p, h), t2_ph('a', p, h), t2_ph('b', p, h), p, h);
        expect_nearer(call<TPH2N>(up(p), h), t2_ph('b', p, h), t2_ph('a', p, h), p, h);
    }
    for (const double s : {6.3, 6.9, 7.5}) {
        expect_nearer(call<TPS2N>(p, s), t2_ps('a', p, s), t2_ps('b', p, s), p, s);
        expect_nearer(call<TPS2N>(up(p), s), t2_ps('b', p, s), t2_ps('a', p, s), p, s);
    }
    for (const double h : {3000., 3200., 3500.}) {
        const double line = vaprix::region2::p_b2bc(h);
        for (const double side : {line, up(line)}) {
            const char owner = side > line ? 'c' : 'b', other = side > line ? 'b' : 'c';
            expect_nearer(call<TPH2N>(side, h), t2_ph(owner, side, h), t2_ph(other, side, h), side,
                          h);
        }
    }
    for (const double q : {5., 20., 60.}) {
        const double below = down(s_2bc);
        expect_nearer(call<TPS2N>(q, s_2bc), t2_ps('b', q, s_2bc), t2_ps('c', q, s_2bc), q, s_2bc);
        expect_nearer(call<TPS2N>(q, below), t2_ps('c', q, below), t2_ps('b', q, below), q, below);
    }
}

// Above 16.5 MPa the O-family of (p, h) tells wet steam by the enthalpies of the coexisting
// densities, all others by the line p3sat: between the two, functions that need both answers agree
// to fail. (p, s) has one answer, that of p3sat.
TEST(InverseRegion, WetSteamOfTheOFamily) {
    Random random(55);
    const auto& [h, s] = pairs;
    for (const Pair& pair : pairs) {
        int disagree[2] = {};
        for (int k = 0; k < states() / 10; ++k) {
            const double p = random.uniform(16.54, 22.06);
            const double ts = call1<TBP>(p);
            const auto start = vaprix::dsat3(ts, p);
            const auto [vapour, liquid] = coexistence3(ts, start.vapour, start.liquid);
            const Quad y_liquid = region3(liquid, ts).*pair.y,
                       y_vapour = region3(vapour, ts).*pair.y;
            const auto y = static_cast<double>((random.coin() ? y_liquid : y_vapour) *
                                               (1 + random.offset(1e-8, 1e-2)));
            const bool wet_b = region(pair, p, y) == 4;
            if (!wet_b && region(pair, p, y) != 3) continue;
            const bool wet = &pair == &h ? y_liquid < y && y < y_vapour : wet_b;
            ASSERT_EQ(pair.t_o(p, y) == call1<TOP>(p), wet) << pair.name << digits({p, y});
            EXPECT_GT(pair.other_o(p, y), 0) << pair.name << digits({p, y});
            const bool has_x = pair.x_o(p, y) != sentinel;
            EXPECT_EQ(has_x, wet && wet_b) << pair.name << digits({p, y});
            if (wet == wet_b) continue;
            ++disagree[wet];
            EXPECT_EQ(pair.cp_o(p, y), sentinel) << pair.name << digits({p, y});
            EXPECT_EQ(pair.w_o(p, y), sentinel) << pair.name << digits({p, y});
        }
        std::printf("%s: wet by p3sat alone %d, by densities alone %d\n", pair.name, disagree[0],
                    disagree[1]);
        EXPECT_EQ(disagree[0] > 0 && disagree[1] > 0, &pair == &h);
    }
    // The saturated states themselves are not wet.
    for (int k = 0; k < states() / 100; ++k) {
        const double p = random.uniform(16.54, 22.06), ts = call1<TBP>(p), top = call1<TOP>(p);
        const auto edges = vaprix::dsat3(ts, p);
        const double h_liquid = vaprix::region3::h(edges.liquid, ts);
        const double h_vapour = vaprix::region3::h(edges.vapour, ts);
        EXPECT_NE(call<TOPH>(p, h_liquid), top) << digits({p, h_liquid});
        EXPECT_EQ(call<TOPH>(p, up(h_liquid)), top) << digits({p, h_liquid});
        EXPECT_EQ(call<TOPH>(p, down(h_vapour)), top) << digits({p, h_vapour});
        EXPECT_NE(call<TOPH>(p, h_vapour), top) << digits({p, h_vapour});
    }
    // No state at the critical pressure is wet; the neighbour below has a tie line still, between
    // the estimates of the saturated densities.
    EXPECT_NE(call<TOPH>(pc, 2087.5), call1<TOP>(pc));
    const double p = down(pc), ts = call1<TBP>(p);
    const auto d = vaprix::dsat3(ts, p);
    const double middle = (h.y3(1 / d.liquid, ts) + h.y3(1 / d.vapour, ts)) / 2;
    EXPECT_EQ(call<TOPH>(p, middle), call1<TOP>(p));
}

// cp and w of wet steam: those of a saturated phase within 1e-6 of its end of the tie line.
TEST(InverseRegion, EndsOfTheTieLine) {
    constexpr double tolerance = 1e-12;
    Random random(56);
    for (const Pair& pair : pairs) {
        int inside[2] = {};
        for (int k = 0; k < states() / 20; ++k) {
            const double p =
                random.coin() ? random.log_uniform(p_low, p_13) : random.uniform(p_13, 22);
            const double t = call1<TOP>(p);
            const bool dense = t > t_13;
            const auto d = vaprix::dsat3(t, p);
            const double y_liquid = dense ? pair.y3(1 / d.liquid, t) : pair.y1(p, t);
            const double y_vapour = dense ? pair.y3(1 / d.vapour, t) : pair.y2(p, t);
            const bool from_liquid = random.coin();
            const double share = random.uniform(0, 2e-6);
            const double y = from_liquid ? y_liquid + share * (y_vapour - y_liquid)
                                         : y_vapour - share * (y_vapour - y_liquid);
            if (std::abs(share - 1e-6) < 1e-8 || region(pair, p, y) != 4 || pair.t_o(p, y) != t)
                continue;
            const double cp = pair.cp_o(p, y), w = pair.w_o(p, y);
            if (share > 1e-6) {
                EXPECT_EQ(cp, sentinel) << pair.name << digits({p, y});
                EXPECT_EQ(w, sentinel) << pair.name << digits({p, y});
                continue;
            }
            ++inside[dense];
            const State x = dense         ? region3(from_liquid ? d.liquid : d.vapour, t)
                            : from_liquid ? region1(p, t)
                                          : region2(p, t);
            const auto want_cp = static_cast<double>(x.cp), want_w = static_cast<double>(x.w);
            EXPECT_NEAR(cp / want_cp, 1, std::max(tolerance, rounding_tolerance(&State::cp, x)))
                << pair.name << digits({p, y});
            EXPECT_NEAR(w / want_w, 1, std::max(tolerance, rounding_tolerance(&State::w, x)))
                << pair.name << digits({p, y});
        }
        EXPECT_TRUE(inside[0] > 0 && inside[1] > 0) << pair.name;
    }
}

}  // namespace
