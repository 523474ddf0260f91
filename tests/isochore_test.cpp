// SPDX-License-Identifier: MIT
// (v, h), (v, s) and their likes: from (p, T) or (T, x) along the isochore and back, in the easy bulk,
// in cold liquid and where regions meet. Ranges and codes of arguments that no state has: tests/host.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <iterator>
#include <string>
#include <utility>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;
using Function = double (*)(double, double);

constexpr double t_low = 273.15, t_13 = 623.15, t_23 = 863.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_high_5 = 50, p_high = 100, pc = 22.064, tc = 647.096;
constexpr double sentinel = -99999;

struct Pair {
    const char* name;
    Function region, p_b, p_o, t_b, t_d, of_pt, of_vt3, of_td, of_tx;
    Quad State::*y;
};
const Pair pairs[] = {{"h", call<REGIONHV>, call<PBVH>, call<POVH>, call<TBVH>, call<TODH>,
                       call<HBPT>, call<HVT3N>, call<HOTD>, call<HBTX>, &State::h},
                      {"s", call<REGIONSV>, call<PBVS>, call<POVS>, call<TBVS>, call<TODS>,
                       call<SBPT>, call<SVT3N>, call<SOTD>, call<SBTX>, &State::s}};

struct Given {
    double p, t, v, y;
    int region;  // 0: the sample has none
};

Given of_pt(const Pair& pair, double p, double t) {
    const int region = static_cast<int>(call<REGIONPT>(p, t));
    if (region == 0 || region == 4) return {p, t, 0, 0, 0};
    const double v = region == 3 ? 1 / call<DOPT>(p, t) : call<VBPT>(p, t);
    return {p, t, v, region == 3 ? pair.of_vt3(v, t) : pair.of_pt(p, t), region};
}

Given of_tx(const Pair& pair, double t, double x) {
    return {call1<PBT>(t), t, call<VBTX>(t, x), pair.of_tx(t, x), 4};
}

// Both variables must come back from the state found, in quadruple precision for a single phase.
// Within 10 mK of the critical temperature coexisting densities are good to 1e-10 only.
void check(Deviations& deviations, const Pair& pair, const std::string& group, const Given& at) {
    const auto& [p_given, t_given, v, y, region_given] = at;
    const double t = pair.t_b(v, y), p = pair.p_b(v, y);
    const int region = static_cast<int>(pair.region(y, v));
    const double tolerance = std::abs(t - tc) < 0.01 ? 1e-10 : 1e-12;
    const auto report = digits({v, y, p_given, t_given});
    ASSERT_GT(t, 0) << pair.name << ' ' << group << ' ' << report;
    EXPECT_EQ(pair.p_o(v, y), p) << report;
    if (tolerance < 1e-10) {
        EXPECT_NEAR((pair.t_d(1 / v, y)), t, 1e-4 * t) << report;
        EXPECT_NEAR(t, t_given, 1e-4 * t) << report;
    }
    const std::string name = std::string(pair.name) + ' ' + group + ' ' + std::to_string(region);
    if (region == 4) {
        const double scale = std::abs(y) + (pair.y == &State::h ? 126 : 0.46);
        deviations.check(name, pair.of_td(t, 1 / v), y, scale, tolerance, {v, y});
        EXPECT_EQ(p, call1<PBT>(t));
        return;
    }
    const State x = region == 1   ? region1(p, t)
                    : region == 2 ? region2(p, t)
                    : region == 3 ? region3(1 / v, t)
                                  : region5(p, t);
    deviations.check(name, y, x.*pair.y, natural_scale(pair.y, x), tolerance, {v, y});
    deviations.check("v " + name, v, x.v, x.v, tolerance, {v, y});
    if (region == 3) deviations.check("p " + name, p, x.p, x.p, 1e-10, {v, y});
}

TEST(Isochore, ThereAndBack) {
    const std::pair<const char*, std::function<Given(const Pair&, Random&)>> groups[] = {
        {"bulk",
         [](const Pair& pair, Random& random) {
             const bool hot = random.coin();
             const double t = random.uniform(t_low, hot ? t_high : t_25);
             const double p =
                 random.coin() ? random.uniform(p_low, p_high) : random.log_uniform(p_low, p_high);
             return of_pt(pair, p, t);
         }},
        {"wet",
         [](const Pair& pair, Random& random) {
             const double t = random.uniform(t_low, 647.09), x = random.uniform(0, 1);
             return of_tx(pair, t, random.coin() ? x : x * x * x * x);
         }},
        {"cold",
         [](const Pair& pair, Random& random) {
             const double t = random.uniform(t_low, 280);
             if (random.coin()) return of_tx(pair, t, random.log_uniform(1e-12, 1e-3));
             return of_pt(pair, call1<PBT>(t) + random.log_uniform(1e-9, 100), t);
         }},
        {"seams", [](const Pair& pair, Random& random) {
             const double temperatures[] = {t_low, t_13, t_23, t_25, t_high, tc};
             const auto pick = [&random](const auto& of) {
                 const auto k = static_cast<std::size_t>(
                     random.uniform(0, static_cast<double>(std::size(of))));
                 return of[k] * (1 + (random.coin() ? 0 : random.offset(1e-16, 1e-3)));
             };
             const double t = random.coin() ? pick(temperatures) : random.uniform(t_low, t_25);
             const double line = t < t_13 ? call1<PBT>(t) : call1<FB23>(t);
             const double pressures[] = {p_low, line, line, p_high_5, p_high, pc};
             return of_pt(pair, pick(pressures), t);
         }}};
    for (const Pair& pair : pairs) {
        Random random(71);
        Deviations deviations;
        for (const auto& [group, sample] : groups) {
            for (int k = 0; k < states() / 4; ++k) {
                const Given at = sample(pair, random);
                if (at.region != 0) check(deviations, pair, group, at);
            }
        }
    }
}

// A step beyond the range there is no state: above 100 MPa, below 273.15 K, above 2273.15 K.
TEST(Isochore, EndsWithTheRange) {
    for (const Pair& pair : pairs) {
        const auto expect_outside = [&pair](double v, double y) {
            EXPECT_EQ(pair.t_b(v, y), sentinel) << digits({v, y});
            EXPECT_EQ(pair.p_o(v, y), sentinel) << digits({v, y});
            EXPECT_EQ(pair.region(y, v), 0) << digits({v, y});
        };
        for (const double t : {274.0, 400.0, 622.0, 700.0, 860.0, 1000.0}) {
            const Given at = of_pt(pair, p_high, t);
            expect_outside(at.v * (1 - 1e-6), at.y);
        }
        for (const double p : {0.01, 10.0, 50.0}) {
            const Given at = of_pt(pair, p, t_high);
            expect_outside(at.v, at.y * (1 + 1e-9));
        }
        for (const double p : {1.0, 99.0}) {
            const Given at = of_pt(pair, p, t_low);
            expect_outside(at.v, at.y - 1e-6);
        }
    }
}

TEST(Isochore, PressureOfTvIsThatOfTheDensity) {
    Random random(72);
    for (int k = 0; k < states() / 10; ++k) {
        const double t = random.uniform(t_low, t_high), v = random.log_uniform(9e-4, 1e3);
        const double p = call<PBTV>(t, v);
        EXPECT_EQ((call<POTV>(t, v)), p);
        if (p > 0) {
            EXPECT_NEAR((call<POTD>(t, 1 / v)), p, 1e-9 * p) << digits({t, v});
        } else {
            EXPECT_EQ((call<REGIONTV>(t, v)), 0) << digits({t, v});
        }
    }
}

}  // namespace
