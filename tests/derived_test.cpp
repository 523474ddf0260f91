// SPDX-License-Identifier: MIT
// Derived properties against the derivatives of the basic equations in quadruple precision: of
// (p, T), of (T, density) and of the saturated states.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace reference;

// Ideal gas: the limit of low pressure, whose residual part is below the last digit.
Quad g_ideal(Quad p, Quad t) {
    const Quad low = 1e-30;
    const State limit = t <= 1073.15 ? region2(low, t) : region5(low, t);
    return limit.g + gas_constant * t * logq(p / low);
}

// A state with the pressure that was given, which in region 3 is not quite that of the density.
struct Given : State {
    Quad h_p;
    Given(const State& x, Quad pressure) : State(x), h_p(1000 * (v - t * v_t)) { p = pressure; }
};

using OfOne = double (*)(const double*);
using OfTwo = double (*)(const double*, const double*);
using OfRegion = double (*)(const double*, const double*, int*);
template <OfRegion function>
double given(const double* p, const double* t) {
    int region = 0;
    return function(p, t, &region);
}

struct Row {
    const char* name;
    Quad (*want)(const Given&);
    OfTwo b, o, td;
    OfOne liquid, vapour;
};
#define ALL(m) m##BPT, m##OPT, m##OTD, m##1BT, m##2BT
#define NOT_TD(m) m##BPT, m##OPT, nullptr, m##1BT, m##2BT
#define ONLY(b, o, td) b, o, td, nullptr, nullptr
#define IS(formula) [](const Given& x) -> Quad { return formula; }
const std::vector<Row> rows = {
    {"ALV", IS(x.v_t / x.v), ALL(ALV)},
    {"ALP", IS(-x.v_t / x.v_p / x.p), ALL(ALP)},
    {"BET", IS(-1 / x.v_p / x.p), ALL(BET)},
    {"CAPT", IS(-x.v_p / x.v), ALL(CAPT)},
    {"CAP", IS(x.w* x.w / (1e6 * x.p * x.v)), ALL(CAP)},
    {"FUG", IS(x.p* expq((x.g - g_ideal(x.p, x.t)) / gas_constant / x.t)), ALL(FUG)},
    {"DDDH", IS(-x.v_t / x.cp / x.v / x.v), NOT_TD(DDDH)},
    {"DDDP", IS(-x.v_p / x.v / x.v), NOT_TD(DDDP)},
    {"DHDP", IS(x.h_p), NOT_TD(DHDP)},
    {"DVDH", IS(x.v_t / x.cp), NOT_TD(DVDH)},
    {"DVDP", IS(x.v_p), NOT_TD(DVDP)},
    {"DVDPPT", IS(x.v_p), ONLY(given<DVDPPT>, nullptr, nullptr)},
    {"DVDTPT", IS(x.v_t), ONLY(given<DVDTPT>, nullptr, nullptr)},
    {"G0PT", IS(g_ideal(x.p, x.t)), ONLY(given<G0PT>, nullptr, nullptr)},
    {"GAM", IS(x.cp / x.cv), ONLY(GAMBPT, GAMOPT, nullptr)},
    {"RJT", IS(-x.h_p / x.cp), ONLY(nullptr, RJTOPT, RJTOTD)},
    {"Z", IS(1000 * x.p * x.v / gas_constant / x.t), ONLY(nullptr, ZOPT, ZOTD)}};

// Deviations count against the value itself, but (dv/dT)_p and (dh/dp)_T change sign, and the Gibbs
// energy has an arbitrary zero: v/T, 1 kJ/(kg MPa) and R T are added to their sizes.
Quad scale_of(const Row& row, const Given& x) {
    Given larger = x;
    larger.v_t = magnitude(x.v_t) + x.v / x.t;
    larger.h_p = magnitude(x.h_p) + 1;
    const Quad size = magnitude(row.want(larger));
    return row.b == given<G0PT> ? size + gas_constant * x.t : size;
}

// Up to three sums of second derivatives meet in a formula.
double tolerance_of(const State& x) { return 3 * rounding_tolerance(&State::cp, x); }

State state_in(int region, Quad p, Quad d, Quad t) {
    return region == 1   ? region1(p, t)
           : region == 2 ? region2(p, t)
           : region == 3 ? region3(d, t)
                         : region5(p, t);
}

TEST(Derived, SinglePhase) {
    Random random(50);
    Deviations deviations;
    for (int k = 0; k < states() / 4; ++k) {
        // One state in three in region 5, one in region 3, the rest in regions 1 and 2.
        const double t = k % 3 == 0   ? random.uniform(1073.16, 2273.15)
                         : k % 3 == 1 ? random.uniform(623.15, 863.15)
                                      : random.uniform(273.15, 1073.15);
        const double p = k % 3 == 0      ? random.log_uniform(7e-4, 50)
                         : k % 3 == 1    ? random.uniform(16.53, 100)
                         : random.coin() ? random.log_uniform(7e-4, 100)
                                         : random.uniform(1, 100);
        const int region = static_cast<int>(call<REGIONPT>(p, t));
        const std::string in = " in region " + std::to_string(region);
        const double d = call<DOTP>(t, p);
        const Given of_b(state_in(region, p, 1 / Quad(call<VBPT>(p, t)), t), p);
        const Given of_o(state_in(region, p, d, t), p);
        const Given of_td(of_o, region == 3 ? region3(d, t).p : Quad(p));
        // What a rounding of the density makes of a pressure that is solved for: much, in a liquid.
        const double solved = 4e-16 * static_cast<double>(1 / (p * magnitude(of_o.v_p) / of_o.v));
        for (const Row& row : rows) {
            const auto check = [&](const char* family, OfTwo function, double x, double y,
                                   const Given& at, double extra) {
                if (function == nullptr) return;
                deviations.check(row.name + std::string(family) + in, function(&x, &y),
                                 row.want(at), scale_of(row, at), tolerance_of(at) + extra, {p, t});
            };
            check(" B", row.b, p, t, of_b, 0);
            check(" O", row.o, p, t, of_o, 0);
            check(" TD", row.td, t, d, of_td, solved);
        }
        // Identities between the exports: cp - cv = T v alpha^2/kappa and (dh/dp)_T = v - T v_t.
        const Quad v = call<VBPT>(p, t), alpha = call<ALVBPT>(p, t);
        deviations.check("CP - CV" + in, call<CPBPT>(p, t) - call<CVBPT>(p, t),
                         1000 * t * v * alpha * alpha / call<CAPTBPT>(p, t), of_b.cp,
                         2 * tolerance_of(of_b), {p, t});
        deviations.check("DHDP from V" + in, call<DHDPBPT>(p, t),
                         1000 * (v - t * call<given<DVDTPT>>(p, t)),
                         1000 * v * (1 + t * magnitude(alpha)), tolerance_of(of_b), {p, t});
    }
}

TEST(Derived, SaturatedPhases) {
    Random random(51);
    Deviations deviations;
    for (int k = 0; k < states() / 10; ++k) {
        const double t =
            random.coin() ? random.uniform(273.15, 647.096) : random.uniform(623.15, 647);
        const double p = call1<POT>(t);
        const bool dense = t > 623.15;
        const Given liquid(state_in(dense ? 3 : 1, p, call1<DLOT>(t), t), p);
        const Given vapour(state_in(dense ? 3 : 2, p, call1<DVOT>(t), t), p);
        for (const Row& row : rows) {
            if (row.liquid == nullptr) continue;
            const auto check = [&](const char* phase, OfOne function, const Given& x) {
                deviations.check(row.name + std::string(phase) + (dense ? " in region 3" : ""),
                                 function(&t), row.want(x), scale_of(row, x), tolerance_of(x), {t});
            };
            check(" liquid", row.liquid, liquid);
            check(" vapour", row.vapour, vapour);
        }
        // Both phases have one fugacity, in regions 1 and 2 to the consistency of their equations.
        EXPECT_NEAR(call1<FUG1BT>(t) / call1<FUG2BT>(t), 1, dense ? 1e-12 : 7e-5) << t;
        EXPECT_EQ(call<FUGOTX>(t, 0.5), call1<FUG1BT>(t)) << t;
    }
}

}  // namespace
