// SPDX-License-Identifier: MIT
// There and back: (p, T) to (p, h) or (p, s) and to the state that the O-family finds for them; and
// the temperature of both families across the lines where the equations change.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/region3_density.hpp"
#include "reference/sampling.hpp"
#include "regions/b23.hpp"
#include "regions/region3.hpp"
#include "regions/region3_backward.hpp"
#include "regions/saturated_densities.hpp"

namespace {

using namespace reference;
using Function = double (*)(double, double);

constexpr double t_low = 273.15, t_13 = 623.15, t_23 = 863.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_13 = 16.52916425260452, pc = 22.064, p_high_5 = 50,
                 p_high = 100;
constexpr double tc = 647.096;

struct Pair {
    const char* name;
    Function region, t_b, t_o, v_o, d_o, of_pt;
    Function y3;  // of (d, T)
    double (*line_3ab)(double);
    double (*p3sat)(double);
    Quad State::*y;
    double jump_3ab;    // K, of the backward temperature, as published
    double jump_p3sat;  // K, of Ts, from the published error of p3sat
};

double entropy_3ab(double) { return vaprix::region3::s_crit; }

// clang-format off
const Pair pairs[] = {
    {"(p,h)", call<REGIONPH>, call<TBPH>, call<TOPH>, call<VOPH>, call<DOPH>, call<HOPT>,
     vaprix::region3::h, vaprix::region3::h3ab, vaprix::region3::p3sat_h,
     &State::h, 0.37e-3, 0.4e-3},
    {"(p,s)", call<REGIONPS>, call<TBPS>, call<TOPS>, call<VOPS>, call<DOPS>, call<SOPT>,
     vaprix::region3::s, entropy_3ab, vaprix::region3::p3sat_s,
     &State::s, 0.093e-3, 2.7e-3}};
// clang-format on

// The region as the O-family of the pair decides it: (p, h) tells wet steam above 16.5 MPa by the
// coexisting densities.
int o_region(const Pair& pair, double p, double y) {
    const int region = static_cast<int>(pair.region(p, y));
    if (pair.y != &State::h || p <= p_13 || p >= pc || (region != 3 && region != 4)) return region;
    const double ts = call1<TBP>(p);
    const auto d = vaprix::dsat3(ts, p);
    return pair.y3(d.liquid, ts) < y && y < pair.y3(d.vapour, ts) ? 4 : 3;
}

State state(int region, double p, double t, double d) {
    switch (region) {
        case 1: return region1(p, t);
        case 2: return region2(p, t);
        case 3: return region3(d, t);
        default: return region5(p, t);
    }
}

// How far h or s (and, in region 3, p) of the state found may be from the one asked for, relative
// to R T or R where that is more: this, or what the cancellation in dense fluid leaves of a sum.
constexpr double residual = 1e-12;

void check_state(Deviations& deviations, const Pair& pair, const std::string& where, int region,
                 double p, double y, double t, double d) {
    const State x = state(region, p, t, d);
    const auto check = [&](const std::string& name, Quad State::*quantity, double want,
                           Quad floor) {
        const Quad scale = std::max(magnitude(want), floor);
        deviations.check(name, static_cast<double>(x.*quantity), want, scale,
                         std::max(residual, rounding_tolerance(quantity, x)), {p, y});
    };
    const std::string name = std::string(pair.name) + " " + where;
    check(name, pair.y, y, pair.y == &State::h ? gas_constant * t : gas_constant);
    if (region == 3) check(name + ", p", &State::p, p, 0);
}

struct Point {
    double p, t;
};
struct Sweep {
    const char* name;
    std::function<Point(Random&)> sample;
};

double any_pressure(Random& random) {
    return random.coin() ? random.uniform(p_low, p_high) : random.log_uniform(p_low, p_high);
}
double beside(Random& random, double x) {
    return random.uniform(0, 3) < 1 ? x : x * (1 + random.offset(1e-15, 1e-3));
}

const std::vector<Sweep>& sweeps() {
    static const std::vector<Sweep> all = {
        {"all regions",
         [](Random& random) {
             const double end = random.coin() ? t_high : 900;
             return Point{any_pressure(random), random.uniform(t_low, end)};
         }},
        {"region 3",
         [](Random& random) {
             return Point{random.uniform(p_13, p_high), random.uniform(t_13, t_23)};
         }},
        {"saturation line",
         [](Random& random) {
             const double t = random.uniform(t_low, tc);
             return Point{call1<PBT>(t) * (1 + random.offset(1e-9, 1e-2)), t};
         }},
        {"saturation line above 623 K",
         [](Random& random) {
             const double p = random.uniform(p_13, pc);
             return Point{p, call1<TBP>(p) * (1 + random.offset(1e-9, 1e-3))};
         }},
        {"critical isobar",
         [](Random& random) {
             return Point{beside(random, pc), random.uniform(600, 900)};
         }},
        {"critical isotherm",
         [](Random& random) {
             return Point{random.uniform(p_13, p_high), beside(random, tc)};
         }},
        {"critical point",
         [](Random& random) {
             return Point{pc + random.offset(1e-6, 1), tc + random.offset(1e-6, 1)};
         }},
        {"critical point, along the line",
         [](Random& random) {
             const double dt = random.offset(1e-6, 1);
             return Point{pc + dt / 3.727888 * (1 + random.offset(1e-6, 1)), tc + dt};
         }},
        {"region boundaries in T",
         [](Random& random) {
             const double limits[] = {t_low, t_13, t_23, t_25};
             const double t = beside(random, limits[static_cast<int>(random.uniform(0, 4))]);
             return Point{any_pressure(random), std::max(t, t_low)};
         }},
        {"B23 line",
         [](Random& random) {
             const double t = random.uniform(t_13, t_23);
             return Point{beside(random, call1<FB23>(t)), t};
         }},
        {"corners", [](Random& random) {
             const double p[] = {p_low, p_13, pc, p_high_5, p_high};
             const double t[] = {t_low, t_13, t_23, t_25, t_high};
             return Point{p[static_cast<int>(random.uniform(0, 5))],
                          t[static_cast<int>(random.uniform(0, 5))]};
         }}};
    return all;
}

// The search of region 5 that ends the range of (p, h) below 16.5 MPa knows its last temperature to
// a relative 1e-6 only, and the range of h ends before the last enthalpies of the thinnest steam.
bool beyond_the_search(Point at) { return at.p <= p_13 && at.t > t_high - 0.003; }

// The saturation lines of Eq. (31) and of the basic equation of region 3 differ by 0.0026 % of p
// (Table 44): single-phase states this close to the line, in K, may be found wet.
constexpr double line_mismatch = 3e-3;

// Next to the critical point, where even the two critical temperatures differ, and in the corner of
// regions 2 and 3 at 623.15 K the state asked for may lie on the other side of the line, which the
// search does not cross. It ends 1e-12 K before it.
bool stopped_at_the_line(double p, double found) {
    return p < pc && std::abs(found - call1<TOP>(p)) < 2e-12;
}

TEST(InverseRoundTrip, OFamily) {
    std::uint64_t seed = 60;
    for (const Sweep& sweep : sweeps())
        for (const Pair& pair : pairs) {
            Random random(seed++);
            Deviations deviations;
            int tried = 0, wet = 0, stopped = 0;
            for (int k = 0; k < states() / 5; ++k) {
                const auto [p, t] = sweep.sample(random);
                const int region_pt = static_cast<int>(call<REGIONPT>(p, t));
                if (region_pt == 0 || region_pt == 4 || beyond_the_search({p, t})) continue;
                ++tried;
                const double y = pair.of_pt(p, t);
                const int region = o_region(pair, p, y);
                const double found = pair.t_o(p, y), d = pair.d_o(p, y);
                const auto where = [&, p = p, t = t] {
                    return std::string(pair.name) + " of " + digits({p, t}) + ": " +
                           digits({y, found, d});
                };
                ASSERT_NE(region, 0) << where();
                ASSERT_TRUE(found > 0 && d > 0 && std::isfinite(found + d)) << where();
                EXPECT_DOUBLE_EQ(pair.v_o(p, y), 1 / d) << where();
                if (region == 4) {
                    ++wet;
                    EXPECT_EQ(found, call1<TOP>(p)) << where();
                    EXPECT_GT(p, p_13) << where();
                    EXPECT_NEAR(found, t, line_mismatch + pair.jump_p3sat) << where();
                    continue;
                }
                const bool in_2 = region_pt == 2;
                if ((in_2 || p > pc - 1e-5) && stopped_at_the_line(p, found)) {
                    ++stopped;
                    EXPECT_NEAR(found, t, in_2 ? line_mismatch : 1e-8) << where();
                    continue;
                }
                check_state(deviations, pair, sweep.name, region, p, y, found, d);
                if (p < pc && region == region_pt && region != 5) {
                    const double ts = call1<TOP>(p);
                    EXPECT_TRUE(t < ts ? found < ts : found > ts) << where() << digits({ts});
                }
            }
            EXPECT_GT(tried, states() / 100) << sweep.name;
            if (wet + stopped != 0)
                std::printf("%s %s: of %d states %d found wet, %d stopped at the line\n", pair.name,
                            sweep.name, tried, wet, stopped);
        }
}

// Pairs that no (p, T) may have, in the gaps between the equations of two regions.
TEST(InverseRoundTrip, PairsBetweenTheEquations) {
    Random random(90);
    for (const Pair& pair : pairs) {
        Deviations deviations;
        for (int k = 0; k < states() / 3; ++k) {
            const int place = k % 3;
            const bool thin = place == 2 && random.coin();
            const double p = thin ? random.log_uniform(p_low, p_13)
                                  : random.uniform(p_13, place == 2 ? p_high_5 : p_high);
            const State on = place == 0   ? region1(p, t_13)
                             : place == 1 ? region2(p, t_b23(p))
                                          : region2(p, t_25);
            const double y = static_cast<double>(on.*pair.y) * (1 + random.offset(1e-9, 1e-3));
            const int region = o_region(pair, p, y);
            if (region == 4) continue;
            check_state(deviations, pair, "between", region, p, y, pair.t_o(p, y), pair.d_o(p, y));
        }
    }
}

// Beside the saturation line above 623 K the state asked for may lie beyond the line, because the
// line and the equation differ. The temperature stays on the side of its h or s all the same: the
// search stops at the line, with a density that has the pressure.
TEST(InverseRoundTrip, PairsBesideTheSaturationLine) {
    constexpr double pressure = 1e-9;  // relative
    Random random(93);
    for (const Pair& pair : pairs) {
        Deviations deviations;
        int tried = 0, stopped = 0;
        for (int k = 0; k < states() / 5; ++k) {
            const double p = random.uniform(p_13, pc), t = call1<TBP>(p), ts = call1<TOP>(p);
            const auto edges = vaprix::dsat3(t, p);
            const bool liquid = random.coin();
            const double y =
                pair.y3(liquid ? edges.liquid : edges.vapour, t) * (1 + random.offset(1e-9, 1e-3));
            if (o_region(pair, p, y) != 3) continue;
            ++tried;
            const double found = pair.t_o(p, y), d = pair.d_o(p, y);
            EXPECT_TRUE(liquid ? found < ts : found > ts) << pair.name << digits({p, y, found, ts});
            if (!stopped_at_the_line(p, found)) {
                check_state(deviations, pair, "beside the line", 3, p, y, found, d);
                continue;
            }
            ++stopped;
            EXPECT_NEAR(pair.t_b(p, y), found, 0.025 + pair.jump_p3sat) << digits({p, y, found});
            deviations.check(std::string(pair.name) + " at the line, p",
                             static_cast<double>(region3(d, found).p), p, p, pressure, {p, y});
        }
        std::printf("%s: %d of %d states stopped at the saturation line\n", pair.name, stopped,
                    tried);
        EXPECT_TRUE(0 < stopped && stopped < tried / 2) << pair.name;
    }
}

TEST(InverseRoundTrip, CriticalPoint) {
    for (const Pair& pair : pairs) {
        const double y = pair.y3(322, tc);
        EXPECT_NEAR(pair.t_o(pc, y), tc, 1e-6) << pair.name;
        EXPECT_NEAR(pair.t_b(pc, y), tc, 0.5e-3) << pair.name;  // the release: 0.49 mK
        EXPECT_NEAR(pair.d_o(pc, y), 322, 1) << pair.name;
    }
}

// Where two equations meet on a line, the temperature of the O-family jumps by their mismatch, that
// of the B-family by the errors of its two backward equations on top.
TEST(InverseRoundTrip, ContinuityAcrossRegions) {
    struct Line {
        const char* name;
        double p_from, p_to;
        double (*t)(double p);
        int below, above;  // regions; 4: wet steam, at the temperature of the line
        double backward;   // K, permitted for the two backward equations together
    };
    const auto saturation = [](double p) { return call1<TBP>(p); };
    constexpr double coarse = 0.025, search = 2.5e-3;  // K
    const Line lines[] = {
        {"1|4", p_low, p_13, saturation, 1, 4, coarse},
        {"4|2", p_low, p_13, saturation, 4, 2, coarse},
        {"1|3", 16.54, p_high, [](double) { return t_13; }, 1, 3, 2 * coarse},
        {"3|2", 16.54, p_high, [](double p) { return vaprix::t_b23(p); }, 3, 2, 2 * coarse},
        {"2|5", p_low, p_high_5, [](double) { return t_25; }, 2, 5, coarse + search}};
    constexpr double hair = 1e-12, rounding = 1e-8;  // relative in y; K
    Random random(91);
    for (const Pair& pair : pairs)
        for (const Line& line : lines) {
            double worst_b = 0, worst_o = 0;
            for (int k = 0; k < states() / 50; ++k) {
                const double p = random.uniform(line.p_from, line.p_to), t = line.t(p);
                const Phase phase = p > pc            ? Phase::only
                                    : line.below == 3 ? Phase::vapour
                                                      : Phase::liquid;
                const bool dense = line.below == 3 || line.above == 3;
                const auto d = dense ? static_cast<double>(density3(p, t, phase)) : 0;
                const int owner = line.below == 3 || line.below == 4 ? line.above : line.below;
                const State on = state(owner, p, t, d);
                const int other = owner == line.above ? line.below : line.above;
                const Quad slope = pair.y == &State::h ? on.cp : on.cp / t;
                const Quad gap = other == 4 ? Quad(0) : state(other, p, t, d).*pair.y - on.*pair.y;
                const double mismatch = static_cast<double>(magnitude(gap / slope));
                const auto y = static_cast<double>(on.*pair.y);
                const double below = y - hair * (std::abs(y) + 1),
                             above = y + hair * (std::abs(y) + 1);
                const double jump_o = std::abs(pair.t_o(p, above) - pair.t_o(p, below));
                const double jump_b = std::abs(pair.t_b(p, above) - pair.t_b(p, below));
                EXPECT_LT(jump_o, 1.1 * mismatch + rounding)
                    << pair.name << line.name << digits({p, y});
                EXPECT_LT(jump_b, 1.1 * mismatch + line.backward)
                    << pair.name << line.name << digits({p, y});
                worst_o = std::max(worst_o, jump_o);
                worst_b = std::max(worst_b, jump_b);
            }
            std::printf("%s %s: jump of T, mK: B %.3f, O %.3g\n", pair.name, line.name,
                        1e3 * worst_b, 1e3 * worst_o);
        }
}

TEST(InverseRoundTrip, ContinuityWithinRegion3) {
    constexpr double coarse = 0.025, margin = 1.02;
    Random random(92);
    for (const Pair& pair : pairs) {
        double worst_ab = 0, worst_b = 0, worst_o = 0;
        for (int k = 0; k < states() / 20; ++k) {
            const double p = random.uniform(pc, p_high), y = pair.line_3ab(p);
            worst_ab = std::max(worst_ab, std::abs(pair.t_b(p, up(y)) - pair.t_b(p, y)));
        }
        for (int k = 0; k < states() / 20; ++k) {
            // Over the line p3sat by pressure; of (p, h), the O-family over its own line by h.
            const double t = random.uniform(623.2, 647.09), ps = call1<PBT>(t);
            const auto d = vaprix::dsat3(t, ps);
            const double y = pair.y3(random.coin() ? d.liquid : d.vapour, t), p = pair.p3sat(y);
            if (!(p_13 < p && p < pc)) continue;
            worst_b = std::max(worst_b, std::abs(pair.t_b(p, y) - pair.t_b(down(p), y)));
            if (pair.y != &State::h) {
                worst_o = std::max(worst_o, std::abs(pair.t_o(p, y) - pair.t_o(down(p), y)));
                continue;
            }
            const double ts = call1<TBP>(ps);
            const auto edges = vaprix::dsat3(ts, ps);
            for (const double edge : {pair.y3(edges.liquid, ts), pair.y3(edges.vapour, ts)})
                worst_o = std::max(worst_o, std::abs(pair.t_o(ps, edge * (1 + 1e-9)) -
                                                     pair.t_o(ps, edge * (1 - 1e-9))));
        }
        std::printf("%s: jump of T, mK: 3a|3b %.4f, 3|4 B %.3f, O %.3f\n", pair.name,
                    1e3 * worst_ab, 1e3 * worst_b, 1e3 * worst_o);
        EXPECT_LT(worst_ab, margin * pair.jump_3ab) << pair.name;
        EXPECT_LT(worst_b, coarse + pair.jump_p3sat) << pair.name;
        EXPECT_LT(worst_o, line_mismatch + pair.jump_p3sat) << pair.name;
    }
}

}  // namespace
