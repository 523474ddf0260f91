// SPDX-License-Identifier: MIT
// The region of (p, T), (p, h) and (p, s), to the last digit beside every line: against the order in
// which the equations of the lines decide it, evaluated by the native exports.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "bound.hpp"
#include "reference/published.hpp"
#include "strata.hpp"

namespace {

using namespace bound;
using namespace strata;

int region_pt(double of_p, double of_T) {
    constexpr double width = 1e-12;
    if (!(of_T >= T_low - width && of_T <= T_high && of_p >= p_low && of_p <= p_high)) return 0;
    if (of_T > T_25 + width) return of_p <= p_high_5 ? 5 : 0;
    if (of_T > T_23) return 2;
    if (of_T <= T_13) {
        const double ps = call<PBT>(std::max(of_T, T_low));
        return of_p >= ps + width ? 1 : of_p <= ps - width ? 2 : 4;
    }
    if (of_p <= call<FB23>(of_T)) return 2;
    const double ts = of_p <= p_crit ? call<TBP>(of_p) : 0;
    return of_T > ts - width && of_T <= ts + width ? 4 : 3;
}

TEST(Regions, OfPressureAndTemperature) {
    std::uint64_t seed = 300;
    for (const Stratum& stratum : strata::strata) {
        Random random(seed++);
        for (int k = states(0.2); k > 0; --k) {
            const Point at = stratum.sample(random);
            ASSERT_EQ(static_cast<int>(call<REGIONPT>(at.p, at.T)), region_pt(at.p, at.T))
                << stratum.name << ' ' << digits(find("HOPT"), {at.p, at.T});
        }
    }
}

struct Pair {
    Name y;
    double (*region)(const double*, const double*);
    double (*y1)(const double*, const double*);
    double (*y2)(const double*, const double*);
    double (*y5)(const double*, const double*);
    const char* p3sat;  // its equation
    double low, high;
    // Above p(623.15 K) region 5 begins at this y at the latest and ends at the next; below, it ends
    // at this temperature.
    double first_5, last_5, T_last_5;
};
const Pair pairs[] = {{h, REGIONPH, HPT1N, HPT2N, HPT5N, "p3sat_h", -0.04158782623017032,
                       7376.98028, 4084.04905441735, infinity, T_high},
                      {s, REGIONPS, SPT1N, SPT2N, SPT5N, "p3sat_s", -0.008582287092621963,
                       13.9049560904359, 7.15370696228142, 9.2, 2273.2}};

double p3sat(const Pair& pair, double y) { return published::equation<double>(pair.p3sat)(y); }

// The lines of an isobar in the order they are met, and the regions between them.
struct Isobar {
    double cold, liquid, vapour, T25, hot;
    bool dense;
    Isobar(const Pair& pair, double of_p) : dense(of_p > p_13) {
        const double ts = call<TBP>(of_p), t1 = dense ? T_13 : ts,
                     t2 = dense ? published::t_b23(of_p) : ts;
        cold = pair.y1(&of_p, &T_low), liquid = pair.y1(&of_p, &t1), vapour = pair.y2(&of_p, &t2);
        T25 = pair.y2(&of_p, &T_25), hot = pair.y5(&of_p, &pair.T_last_5);
        if (dense && of_p <= p_high_5) T25 = std::min(T25, pair.first_5);
        if (dense) hot = of_p <= p_high_5 ? pair.last_5 : T25;
    }
};
int region_py(const Pair& pair, double of_p, double y, const Isobar& at) {
    if (!(of_p >= p_low && of_p <= p_high && y >= pair.low && y <= pair.high)) return 0;
    if (y <= at.liquid) return y >= at.cold ? 1 : 0;
    if (y < at.vapour) return !at.dense || (of_p < p_crit && of_p < p3sat(pair, y)) ? 4 : 3;
    return y <= at.T25 ? 2 : y <= at.hot && of_p <= p_high_5 ? 5 : 0;
}

// Lines that are not known to the last digit: B23 in T, p3sat, the corner of four regions, where the
// printed limits are rounded, and the end of region 5, which a search settles.
bool unsure(const Pair& pair, double of_p, double y, const Isobar& at) {
    const auto within = [y](double line, double relative) {
        return std::fabs(y - line) <= relative * std::fabs(line);
    };
    return (at.dense && within(at.vapour, 1e-14)) ||
           (at.dense && of_p < 16.53 && within(at.liquid, 1e-9)) ||
           (!at.dense && within(at.hot, 1e-5)) ||
           (at.dense && of_p < p_crit && y > at.liquid && y < at.vapour &&
            std::fabs(of_p / p3sat(pair, y) - 1) < 1e-11);
}

Values values(const Pair& pair, double of_p, double y) {
    Values at{};
    at[p] = of_p;
    at[pair.y] = y;
    return at;
}

TEST(Regions, OfPressureAndEnthalpyOrEntropy) {
    for (const Pair& pair : pairs) {
        Random random(350);
        int unknown = 0;
        const auto check = [&](double of_p, double y, const Isobar& at) {
            if (unsure(pair, of_p, y, at)) return ++unknown, void();
            ASSERT_EQ(static_cast<int>(pair.region(&of_p, &y)), region_py(pair, of_p, y, at))
                << digits(find(pair.y == h ? "TOPH" : "TOPS"), values(pair, of_p, y));
        };
        for (int k = states(0.4); k > 0; --k) {
            // round numbers too, decimal and binary
            const double round =
                k % 8 < 4 ? random.one_of({p_low, p_13, p_crit, p_high_5, p_high})
                          : std::ldexp(128 + random.integer(0, 127), random.integer(-17, -1));
            const double of_p =
                k % 4 != 0 ? random.pressure() : steps(round, random.integer(-2, 2));
            const Isobar at(pair, of_p);
            for (const double line : {at.cold, at.liquid, at.vapour, at.T25, at.hot, pair.low,
                                      pair.high, pair.first_5}) {
                check(of_p, steps(line, random.integer(-3, 3)), at);
                check(of_p, line * (1 + random.offset(1e-14, 1e-2)), at);
            }
            check(of_p, random.uniform(pair.low, pair.high), at);
            check(of_p, random.uniform(at.liquid, at.vapour), at);
        }
        for (int k = states(0.4); k > 0; --k) {  // beside the line of wet steam in region 3
            const double y = random.uniform(pair.y1(&p_13, &T_13), pair.y2(&p_13, &T_13));
            const double of_p = p3sat(pair, y) * (1 + random.offset(1e-11, 1e-2));
            if (of_p > p_13 && of_p < p_high) check(of_p, y, Isobar(pair, of_p));
        }
        EXPECT_LT(unknown, states(1.2));
    }
}

}  // namespace
