// SPDX-License-Identifier: MIT
// Densities of region 3 by iteration: DOTP, VTP3N and DITER3 must solve p3(d, T) = p on the right
// side of the saturation line, wherever the isotherm is steep, flat, cut or started anew.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/region3_density.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;

constexpr double t_low = 623.15, t_high = 863.15, tc = 647.096;
constexpr double p_low = 16.53, p_high = 100, pc = 22.064, dc = 322;
constexpr double slope = 3.727888;  // K/MPa, of the line that divides the start values above pc

struct Point {
    double p, t;
};

double any_temperature(Random& random) { return random.uniform(t_low, t_high); }
double any_pressure(Random& random) { return random.uniform(p_low, p_high); }

// x or its neighbour a few spacings away.
double around(Random& random, double x) {
    for (double steps = std::floor(random.uniform(0, 5)); steps > 2; --steps) x = up(x);
    for (double steps = std::floor(random.uniform(0, 5)); steps > 2; --steps) x = down(x);
    return x;
}

struct Sweep {
    const char* name;
    std::function<Point(Random&)> sample;
};

// The easy bulk and the hard places, a few thousand states each.
const std::vector<Sweep>& sweeps() {
    static const std::vector<Sweep> all = {
        {"region 3",
         [](Random& random) {
             return Point{any_pressure(random), any_temperature(random)};
         }},
        {"saturation line",
         [](Random& random) {
             const double p = random.uniform(p_low, pc);
             return Point{p, call1<TBP>(p) * (1 + random.offset(1e-9, 1e-2))};
         }},
        {"saturation line, by p",
         [](Random& random) {
             const double t = random.uniform(t_low, tc);
             return Point{call1<PBT>(t) * (1 + random.offset(1e-9, 1e-2)), t};
         }},
        {"B23 line",
         [](Random& random) {
             const double t = any_temperature(random);
             return Point{call1<FB23>(t) * (1 + random.log_uniform(1e-15, 1e-2)), t};
         }},
        {"623.15 K",
         [](Random& random) {
             return Point{any_pressure(random), t_low + random.log_uniform(1e-13, 1)};
         }},
        {"critical point",
         [](Random& random) {
             return Point{pc + random.offset(1e-7, 1), tc + random.offset(1e-6, 1)};
         }},
        {"critical point, ridge",
         [](Random& random) {
             const double dt = random.offset(1e-6, 1);
             return Point{pc + dt / slope * (1 + random.offset(1e-6, 1)), tc + dt};
         }},
        {"critical isochore",
         [](Random& random) {
             const double t = tc + random.log_uniform(1e-6, 150);
             const double p = static_cast<double>(region3(dc, t).p);
             return Point{p * (1 + random.offset(1e-15, 1e-3)), t};
         }},
        {"limits of the start values",
         [](Random& random) {
             const double limits[] = {pc, 24, 40};
             const double p = limits[static_cast<int>(random.uniform(0, 3))];
             return Point{around(random, p), any_temperature(random)};
         }},
        {"critical isotherm",
         [](Random& random) {
             return Point{any_pressure(random), around(random, tc)};
         }},
        {"dividing line of the start values", [](Random& random) {
             const double t = random.uniform(tc, 720);
             return Point{around(random, pc + (t - tc) / slope), t};
         }}};
    return all;
}

bool close_to_critical_point(Point at) {
    constexpr double distance = 1e-3;  // K or MPa
    return std::abs(at.t - tc) < distance && std::abs(at.p - pc) < distance;
}

// Relative pressure error of an iterated density; within 1e-3 of the critical point the isotherm is
// so flat that a step of 1e-6 in density no longer says much about the pressure.
double pressure_tolerance(Point at) { return close_to_critical_point(at) ? 1e-6 : 1e-9; }

// The phase by the saturation line of Eq. (31). The basic equation has a saturation line of its
// own, and within some 1e-5 K of the critical point the two are farther apart than metastable
// states reach: where the basic equation has no root of that phase, any root will do.
Phase phase(Point at) {
    if (at.t >= tc) return Phase::only;
    if (at.p > pc) return Phase::liquid;
    const Phase wanted = at.t < call1<TBP>(at.p) ? Phase::liquid : Phase::vapour;
    if (!close_to_critical_point(at)) return wanted;
    const Quad root = density3(at.p, at.t, wanted);
    const bool exists = root > 0 && (root > dc) == (wanted == Phase::liquid);
    return exists ? wanted : Phase::only;
}

void check_density(Deviations& deviations, const std::string& name, double d, Point at) {
    const Quad p = region3(d, at.t).p;
    deviations.check(name, static_cast<double>(p), at.p, at.p, pressure_tolerance(at),
                     {at.p, at.t, d});
    const Phase wanted = phase(at);
    EXPECT_FALSE(wanted == Phase::liquid && !(d > dc)) << name << " " << digits({at.p, at.t, d});
    EXPECT_FALSE(wanted == Phase::vapour && !(d < dc)) << name << " " << digits({at.p, at.t, d});
}

TEST(Density, SolvesTheBasicEquation) {
    std::uint64_t seed = 100;
    for (const Sweep& sweep : sweeps()) {
        Random random(seed++);
        Deviations deviations;
        int tried = 0;
        for (int k = 0; k < states() / 5; ++k) {
            const Point at = sweep.sample(random);
            if (call<REGIONPT>(at.p, at.t) != 3) continue;
            ++tried;
            const double d = call<DOTP>(at.t, at.p);
            check_density(deviations, std::string("DOTP ") + sweep.name, d, at);
            EXPECT_EQ(call<DOPT>(at.p, at.t), d);
            EXPECT_EQ(call<VOPT>(at.p, at.t), 1 / d);
            check_density(deviations, std::string("VTP3N ") + sweep.name,
                          1 / call<VTP3N>(at.t, at.p), at);
        }
        EXPECT_GT(tried, states() / 100) << sweep.name;
    }
}

// DITER3 starts where the caller says and stops at the caller's relative step.
TEST(Density, Diter3HonoursStartAndTolerance) {
    Random random(200);
    double worst_loose = 0, worst_tight = 0;
    for (int k = 0; k < states() / 5; ++k) {
        const Point at = sweeps().front().sample(random);
        if (call<REGIONPT>(at.p, at.t) != 3 || std::abs(at.t - tc) < 1) continue;
        const double exact = call<DOTP>(at.t, at.p);
        // The bracket is 0.1 % to either side of the start and ends at 322.
        const double start = exact * (1 + random.uniform(-9e-4, 9e-4));
        if ((start > dc) != (exact > dc)) continue;
        for (const double tolerance : {1e-3, 1e-6, 1e-9, 1e-12}) {
            const double d = DITER3(&at.p, &at.t, &start, &tolerance);
            const State x = region3(d, at.t);
            const double error = std::abs(static_cast<double>((x.p - at.p) / (x.p_d * x.d)));
            // Rounding of the pressure is all that is left below 1e-12.
            EXPECT_LT(error, std::max(tolerance, 1e-11))
                << digits({at.p, at.t, start, tolerance, d});
            if (tolerance == 1e-3) worst_loose = std::max(worst_loose, error);
            if (tolerance == 1e-12) worst_tight = std::max(worst_tight, error);
        }
    }
    std::printf("DITER3 worst error of density: %.2e at 1e-3, %.2e at 1e-12\n", worst_loose,
                worst_tight);
    EXPECT_GT(worst_loose, 1e3 * worst_tight);
}

// A start beyond the bracket's 0.1 % leads to the root on its own side of the critical density all
// the same, below the critical temperature as well, where the other side may have another one.
TEST(Density, Diter3FromAPoorStart) {
    constexpr double step = 1e-9;
    Random random(201);
    Deviations deviations;
    for (int k = 0; k < states() / 10; ++k) {
        const Point at = sweeps()[static_cast<std::size_t>(k % 2)].sample(random);
        if (call<REGIONPT>(at.p, at.t) != 3 || std::abs(at.t - tc) < 1) continue;
        const double exact = call<DOTP>(at.t, at.p);
        const double start = exact * (1 + random.uniform(-0.05, 0.05));
        if ((start > dc) != (exact > dc)) continue;
        check_density(deviations, "DITER3, poor start", DITER3(&at.p, &at.t, &start, &step), at);
    }
}

TEST(Density, CriticalPointAndSaturationLine) {
    EXPECT_EQ(call<DOTP>(tc, pc), dc);
    EXPECT_EQ(call<DOPT>(pc + 9e-10, tc - 9e-10), dc);
    constexpr double sentinel = -99999;
    for (const Point at :
         {Point{call1<PBT>(500), 500}, Point{20, call1<TBP>(20)}, Point{200, 700}}) {
        EXPECT_EQ(call<DOTP>(at.t, at.p), sentinel) << digits({at.p, at.t});
        EXPECT_EQ(call<VOPT>(at.p, at.t), sentinel) << digits({at.p, at.t});
    }
}

}  // namespace
