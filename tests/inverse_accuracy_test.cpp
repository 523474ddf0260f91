// SPDX-License-Identifier: MIT
// Functions of (p, h) and (p, s): the backward equations against quadruple precision and against
// the basic equations, the properties that both families make of the temperature, and wet steam.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "reference/backward12.hpp"
#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/region3_density.hpp"
#include "reference/sampling.hpp"
#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3.hpp"
#include "regions/region3_backward.hpp"
#include "regions/region3_volume.hpp"
#include "regions/region5.hpp"
#include "regions/saturated_densities.hpp"

namespace {

using namespace reference;
using Function = double (*)(double, double);
using Given = double (*)(const double*, const double*, int*);

constexpr double t_low = 273.15, t_13 = 623.15, t_25 = 1073.15;
constexpr double p_low = 0.0006112127, p_13 = 16.52916425260452, p_crit = 22.064, p_high = 100;
constexpr double sentinel = -99999;
constexpr double u = 0x1p-53;  // one rounding

double low_temperature_2(double p) { return static_cast<double>(p < p_13 ? tsat(p) : t_b23(p)); }

State random_state1(Random& random) {
    const double t = random.uniform(t_low, t_13), ps = static_cast<double>(psat(t));
    return region1(random.coin() ? random.uniform(ps, p_high) : random.log_uniform(ps, p_high), t);
}

// Evenly among low pressures, the whole region above 4 MPa, and its cold side.
State random_state2(Random& random) {
    const double kind = random.uniform(0, 3);
    const double p = kind < 1 ? random.log_uniform(p_low, 4) : random.uniform(4, p_high);
    const double from = low_temperature_2(p), to = kind < 2 ? t_25 : std::min(from + 150, t_25);
    return region2(p, random.uniform(from, to));
}

// One state in four near the critical point.
State random_state3(Random& random) {
    for (;;) {
        const bool critical = random.uniform(0, 4) < 1;
        const double p = critical ? random.uniform(20, 25) : random.uniform(16.53, p_high);
        const double t = critical ? random.uniform(640, 660) : random.uniform(t_13, 863.15);
        if (call<REGIONPT>(p, t) != 3) continue;
        State x = region3(polished_density3(p, t, call<DOTP>(t, p)), t);
        x.p = p;
        return x;
    }
}

// Roundings of a sum of the backward equations, its terms counted with their powers: twice the
// worst seen, which is T2c(p,s), whose reciprocal of s* = 2.9251 is held to 14 digits.
constexpr double roundings = 16 * u;

void check_temperature(Deviations& deviations, const std::string& name, double got, const Sum& want,
                       const State& x, double permitted, double p, double y) {
    deviations.check(name, got, want.value, want.value * want.condition, roundings, {p, y});
    deviations.check(name + " - T, K", got, x.t, 1, permitted, {p, y});
}

// Permitted difference of the backward equations from the basic equations (IAPWS R7-97(2012),
// Tables 23 and 28, Eqs. (12) and (14); IAPWS SR3-03(2014)).
constexpr double coarse = 0.025, fine = 0.010;  // K
constexpr double permitted_volume = 1e-4;       // relative

TEST(InverseAccuracy, BackwardEquationsOfRegions1And2) {
    Random random(40);
    Deviations deviations;
    for (int k = 0; k < states(); ++k) {
        const State x = random_state1(random);
        const double p = static_cast<double>(x.p);
        const double h = static_cast<double>(x.h), s = static_cast<double>(x.s);
        check_temperature(deviations, "T1(p,h)", call<TPH1N>(p, h), t1_ph(p, h), x, coarse, p, h);
        check_temperature(deviations, "T1(p,s)", call<TPS1N>(p, s), t1_ps(p, s), x, coarse, p, s);
    }
    for (int k = 0; k < 3 * states(); ++k) {
        const State x = random_state2(random);
        const double p = static_cast<double>(x.p);
        const double h = static_cast<double>(x.h), s = static_cast<double>(x.s);
        const char by_h = subregion2_ph(p, h), by_s = subregion2_ps(p, s);
        const auto permitted = [](char subregion) { return subregion == 'c' ? coarse : fine; };
        check_temperature(deviations, std::string("T2") + by_h + "(p,h)", call<TPH2N>(p, h),
                          t2_ph(by_h, p, h), x, permitted(by_h), p, h);
        check_temperature(deviations, std::string("T2") + by_s + "(p,s)", call<TPS2N>(p, s),
                          t2_ps(by_s, p, s), x, permitted(by_s), p, s);
        const Quad boundary = p_b2bc(h);
        deviations.check("B2bc", vaprix::region2::p_b2bc(h), boundary, magnitude(boundary) + 2000,
                         4 * u, {h});
    }
}

// Rounding of these is the matter of the tests of region 3.
TEST(InverseAccuracy, BackwardEquationsOfRegion3) {
    Random random(41);
    Deviations deviations;
    for (int k = 0; k < 2 * states(); ++k) {
        const State x = random_state3(random);
        const double p = static_cast<double>(x.p);
        const double h = static_cast<double>(x.h), s = static_cast<double>(x.s);
        const std::string by_h = h > vaprix::region3::h3ab(p) ? "3b(p,h)" : "3a(p,h)";
        const std::string by_s = s > vaprix::region3::s_crit ? "3b(p,s)" : "3a(p,s)";
        deviations.check("T" + by_h + " - T, K", call<TPH3N>(p, h), x.t, 1, coarse, {p, h});
        deviations.check("T" + by_s + " - T, K", call<TPS3N>(p, s), x.t, 1, coarse, {p, s});
        deviations.check("v" + by_h + " / v - 1", vaprix::region3::v_ph(p, h), x.v, x.v,
                         permitted_volume, {p, h});
        deviations.check("v" + by_s + " / v - 1", call<VPS3N>(p, s), x.v, x.v, permitted_volume,
                         {p, s});
    }
}

// The functions of (p, h) or of (p, s), in one order; `other` is the entropy or the enthalpy.
struct Family {
    const char* name;
    Function t, v, d, other, cp, w, x;
};

struct Pair {
    Function region, t3, t5;
    Given t_given, other_given;
    Function v3;  // backward volume of region 3
    Quad State::*y;
    Quad State::*other;
    double low, high;  // range of y
    Family b, o;
};

// clang-format off
const Pair pairs[] = {
    {call<REGIONPH>, call<TPH3N>, call<TPH5N>, TPH, SPT, vaprix::region3::v_ph,
     &State::h, &State::s, -0.04158782623017032, 7376.98028,
     {"BPH", call<TBPH>, call<VBPH>, call<DBPH>, call<SBPH>, call<CPBPH>, call<WBPH>, call<XBPH>},
     {"OPH", call<TOPH>, call<VOPH>, call<DOPH>, call<SOPH>, call<CPOPH>, call<WOPH>, call<XOPH>}},
    {call<REGIONPS>, call<TPS3N>, call<TPS5N>, TPS, HPT, vaprix::region3::v_ps,
     &State::s, &State::h, -0.008582287092621963, 13.9049560904359,
     {"BPS", call<TBPS>, call<VBPS>, call<DBPS>, call<HBPS>, call<CPBPS>, call<WBPS>, call<XBPS>},
     {"OPS", call<TOPS>, call<VOPS>, call<DOPS>, call<HOPS>, call<CPOPS>, call<WOPS>, call<XOPS>}}};
// clang-format on

// A state by pressure and y: anywhere in the rectangle of the range, or found from a temperature,
// which fills the narrow regions of dense fluid.
struct Point {
    double p, y;
};
Point random_point(Random& random, const Pair& pair) {
    const double p =
        random.coin() ? random.uniform(p_low, p_high) : random.log_uniform(p_low, p_high);
    if (random.coin()) return {p, random.uniform(pair.low, pair.high)};
    const double t = random.uniform(t_low, 900);
    return {p, pair.y == &State::h ? call<HBPT>(p, t) : call<SBPT>(p, t)};
}

double speed_of_sound(int region, double p, double t) {
    switch (region) {
        case 1: return vaprix::region1::w(p, t);
        case 2: return vaprix::region2::w(p, t);
        case 3: return vaprix::region3::w(1 / vaprix::region3::v_pt(p, t), t);
        default: return vaprix::region5::w(p, t);
    }
}

// The B-family evaluates (p, T) in the region found, at the backward temperature: the same digits.
// Only the density of region 3 is a backward equation itself.
TEST(InverseAccuracy, BFamilyIsThatOfTheTemperature) {
    Random random(42);
    for (const Pair& pair : pairs) {
        int seen[6] = {};
        for (int k = 0; k < states(); ++k) {
            const auto [p, y] = random_point(random, pair);
            const Family& b = pair.b;
            int region = static_cast<int>(pair.region(p, y));
            ++seen[region];
            const double t = b.t(p, y);
            const auto expect = [&, p = p, y = y](const char* what, double got, double want) {
                EXPECT_EQ(got, want) << what << b.name << " " << digits({p, y, t});
            };
            if (region == 0 || region == 4) {
                expect("T", t, region == 0 ? sentinel : call1<TBP>(p));
                expect("CP", b.cp(p, y), sentinel);
                expect("W", b.w(p, y), sentinel);
                if (region == 4) continue;
                for (const Function f : {b.v, b.d, b.other, b.x}) expect("", f(p, y), sentinel);
                continue;
            }
            const double v = VPT(&p, &t, &region);
            expect("T", t, pair.t_given(&p, &y, &region));
            if (region == 3) expect("T", t, pair.t3(p, y));
            if (region == 5) expect("T", t, pair.t5(p, y));
            expect("V", b.v(p, y), v);
            expect("D", b.d(p, y), 1 / (region == 3 ? pair.v3(p, y) : v));
            expect("H or S", b.other(p, y), pair.other_given(&p, &t, &region));
            expect("CP", b.cp(p, y), CPPT(&p, &t, &region));
            expect("W", b.w(p, y), speed_of_sound(region, p, t));
            expect("X", b.x(p, y), sentinel);
        }
        for (const int region : {0, 1, 2, 3, 4, 5})
            EXPECT_GT(seen[region], states() / 200) << pair.b.name << region;
    }
}

// Wet steam as the O-family of (p, h) measures it, or a state that lies beyond the saturation line
// of region 3, from which the O-family keeps a distance of 1e-12 K.
bool wet_or_at_the_line(double p, double t) {
    return p < p_crit && std::abs(t - call1<TOP>(p)) < 2e-12;
}

// The O-family finds the state that has the h or s asked for by the basic equation, and evaluates
// that equation there.
TEST(InverseAccuracy, OFamilyIsThatOfTheState) {
    Random random(43);
    Deviations deviations;
    for (const Pair& pair : pairs)
        for (int k = 0; k < states(); ++k) {
            const auto [p, y] = random_point(random, pair);
            const Family& o = pair.o;
            const int region = static_cast<int>(pair.region(p, y));
            const double t = o.t(p, y), d = o.d(p, y);
            if (region == 0 || region == 4 || wet_or_at_the_line(p, t)) continue;
            const State x = region == 1   ? region1(p, t)
                            : region == 2 ? region2(p, t)
                            : region == 3 ? region3(d, t)
                                          : region5(p, t);
            const auto check = [&, p = p, y = y](const char* what, double got,
                                                 Quad State::*quantity) {
                deviations.check(what + std::string(o.name) + " region " + std::to_string(region),
                                 got, x.*quantity, natural_scale(quantity, x),
                                 rounding_tolerance(quantity, x), {p, y});
            };
            deviations.check(o.name + std::string(" asked, region ") + std::to_string(region), y,
                             x.*pair.y, natural_scale(pair.y, x),
                             std::max(1e-12, rounding_tolerance(pair.y, x)), {p, y});
            if (region != 3) check("D", d, &State::d);
            check("V", o.v(p, y), &State::v);
            check("H or S", o.other(p, y), pair.other);
            check("CP", o.cp(p, y), &State::cp);
            check("W", o.w(p, y), &State::w);
            EXPECT_EQ(o.x(p, y), sentinel) << o.name << " " << digits({p, y});
        }
}

struct SaturatedStates {
    State liquid, vapour;
};
SaturatedStates saturated_states(double p, double ts) {
    if (ts <= t_13) return {region1(p, ts), region2(p, ts)};
    const auto d = vaprix::dsat3(ts, p);
    return {region3(d.liquid, ts), region3(d.vapour, ts)};
}

// Wet steam mixes the saturated states at the family's own saturation temperature in proportion to
// the quality. Near the critical point the states differ little and the quality magnifies their
// rounding.
TEST(InverseAccuracy, WetSteam) {
    constexpr double tolerance = 2e-13;
    Random random(44);
    Deviations deviations;
    for (const Pair& pair : pairs)
        for (const Family* family : {&pair.b, &pair.o}) {
            const Family& f = *family;
            int tried = 0;
            for (int k = 0; k < states() / 4; ++k) {
                const double p = random.coin() ? random.uniform(p_13, p_crit)
                                               : random.log_uniform(p_low, p_crit);
                const double ts = family == &pair.b ? call1<TBP>(p) : call1<TOP>(p);
                const SaturatedStates ends = saturated_states(p, ts);
                const State &liquid = ends.liquid, &vapour = ends.vapour;
                const Quad width = vapour.*pair.y - liquid.*pair.y;
                const auto y = static_cast<double>(liquid.*pair.y + random.uniform(0, 1) * width);
                // Beside the line the phase is the matter of the tests of the region.
                if (pair.region(p, y) != 4 || f.t(p, y) != ts) continue;
                ++tried;
                const Quad x = (y - liquid.*pair.y) / width;
                const Quad x_scale = 1 + natural_scale(pair.y, liquid) / magnitude(width);
                const auto check = [&](const char* what, double got, Quad State::*quantity) {
                    const Quad rise = vapour.*quantity - liquid.*quantity;
                    const Quad want = liquid.*quantity + x * rise;
                    deviations.check(what + std::string(f.name) + " wet", got, want,
                                     natural_scale(quantity, liquid) + magnitude(want) +
                                         x_scale * magnitude(rise),
                                     tolerance, {p, y});
                };
                deviations.check(std::string("X") + f.name + " wet", f.x(p, y), x, x_scale,
                                 tolerance, {p, y});
                check("V", f.v(p, y), &State::v);
                check("H or S", f.other(p, y), pair.other);
                EXPECT_NEAR(f.d(p, y) * f.v(p, y), 1, 2 * u) << f.name << " " << digits({p, y});
            }
            EXPECT_GT(tried, states() / 5) << f.name;
        }
}

}  // namespace
