// SPDX-License-Identifier: MIT
// Coexisting densities of region 3: equal pressure and Gibbs energy on both sides from 623.15 K
// until 1e-5 MPa below the critical pressure, the auxiliary equations from there on.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "reference/basic_equations.hpp"
#include "reference/csv.hpp"
#include "reference/region3_density.hpp"
#include "reference/sampling.hpp"
#include "regions/saturated_densities.hpp"
#include "regions/saturation_line.hpp"

namespace {

using namespace reference;

constexpr double t_low = 623.15, tc = 647.096, pc = 22.064, dc = 322;
constexpr double auxiliary_zone = 1e-5;  // MPa below pc

// Temperatures of the solved part, rising: even steps, then ever smaller distances from Tc.
std::vector<double> temperatures() {
    std::vector<double> all;
    const int steps = std::max(100, states() / 50);
    for (int k = 0; k < steps; ++k) all.push_back(t_low + (646.0 - t_low) * k / steps);
    for (double distance = tc - 646; vaprix::psat(tc - distance) < pc - auxiliary_zone;
         distance *= 0.99)
        all.push_back(tc - distance);
    return all;
}

TEST(SaturatedDensities, PhasesAreInEquilibrium) {
    constexpr double tolerance = 1e-10;  // of p, and of g, which is some 700 to 900 kJ/kg here
    // The densities themselves: the pair is refined until its step falls below 1e-8. Beyond 647.09
    // K rounding wins: a few 1e-14 of g are worth 1e-12 of p, divided by the vanishing slope of the
    // isotherm, while p and g of the pair agree all the better.
    constexpr double step = 1e-8, rounding = 1e-12;
    Deviations deviations;
    for (const double t : temperatures()) {
        const auto d = vaprix::dsat3(t, vaprix::psat(t));
        EXPECT_EQ(d.t, t);
        const State gas = region3(d.vapour, t), drop = region3(d.liquid, t);
        deviations.check("p", static_cast<double>(drop.p), gas.p, gas.p, tolerance, {t});
        deviations.check("g", static_cast<double>(drop.g), gas.g, gas.g, tolerance, {t});
        const Coexistence exact = coexistence3(t, d.vapour, d.liquid);
        const auto density_tolerance = [&](const State& x) {
            return step + rounding * static_cast<double>(x.p / (x.p_d * x.d));
        };
        deviations.check("vapour", d.vapour, exact.vapour, exact.vapour, density_tolerance(gas),
                         {t});
        deviations.check("liquid", d.liquid, exact.liquid, exact.liquid, density_tolerance(drop),
                         {t});
    }
}

TEST(SaturatedDensities, ApproachEachOther) {
    double vapour = 0, liquid = 1000;
    for (const double t : temperatures()) {
        const auto d = vaprix::dsat3(t, vaprix::psat(t));
        EXPECT_GT(d.vapour, vapour) << digits({t});
        EXPECT_LT(d.liquid, liquid) << digits({t});
        EXPECT_LT(d.vapour, dc) << digits({t});
        EXPECT_GT(d.liquid, dc) << digits({t});
        vapour = d.vapour;
        liquid = d.liquid;
    }
}

// IAPWS SR1-86(1992), Eqs. (2) and (3): d' = 322 (1 + sum b tau^e), d'' = 322 exp(sum c tau^e).
struct Auxiliary {
    const char* set;   // of the table
    int root;          // the base of the powers is tau^(1/root)
    double floors[6];  // a term counts only while its base lies above
};
const Auxiliary liquid_sum = {"b", 3, {0, 1e-8, 0.0001, 0.1, 0.424528622, 0.715394265}};
const Auxiliary vapour_sum = {"c", 6, {1e-8, 0.0001, 0.01, 0.129154966, 0.36946012, 0.595179394}};

Quad evaluate(const Auxiliary& sum, Quad tau) {
    static const Table table = read_table("transport/saturation_1992.csv");
    const Quad base = powq(tau, Quad(1) / sum.root);
    Quad result = 0;
    std::size_t term = 0;
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        if (table.cell(row, "set") != sum.set) continue;
        const Quad exponent = sum.root * table.quad(row, "exp_num") / table.quad(row, "exp_den");
        if (base > sum.floors[term++]) result += table.quad(row, "value") * powq(base, exponent);
    }
    return result;
}

// 1 - T/Tc keeps few digits in doubles; both series start with about 2 tau^(1/3). Far from Tc
// powers up to 110 and the exponential, of -11 at the cold end, magnify the rounding.
double auxiliary_tolerance(Quad tau) {
    constexpr double u = 0x1p-53;
    return 300 * u + 2 * u / static_cast<double>(powq(tau, Quad(2) / 3));
}

void check_auxiliary(Deviations& deviations, double vapour, double liquid, double t) {
    const Quad tau = 1 - t / t_crit;
    const Quad want_liquid = dc * (1 + evaluate(liquid_sum, tau));
    const Quad want_vapour = dc * expq(evaluate(vapour_sum, tau));
    const double tolerance = auxiliary_tolerance(tau);
    deviations.check("auxiliary liquid", liquid, want_liquid, want_liquid, tolerance, {t});
    deviations.check("auxiliary vapour", vapour, want_vapour, want_vapour, tolerance, {t});
}

// The estimates of the whole line, with the terms that the thresholds leave out.
TEST(SaturatedDensities, AuxiliaryEquations) {
    Random random(27);
    Deviations deviations;
    for (int k = 0; k < states() / 10; ++k) {
        const double t =
            random.coin() ? random.uniform(273.15, tc) : tc - random.log_uniform(1e-9, 100);
        check_auxiliary(deviations, vaprix::d_vapour_estimate(t), vaprix::d_liquid_estimate(t), t);
    }
}

TEST(SaturatedDensities, AuxiliaryEquationsServeAtTheCriticalPoint) {
    Random random(26);
    Deviations deviations;
    for (int k = 0; k < states() / 100; ++k) {
        const double p = pc - random.log_uniform(2e-15, 0.999 * auxiliary_zone);
        const double ignored_t = 640;  // the temperature follows from p
        const auto d = vaprix::dsat3(ignored_t, p);
        EXPECT_EQ(d.t, vaprix::tsat(p)) << digits({p});
        check_auxiliary(deviations, d.vapour, d.liquid, d.t);
    }
}

TEST(SaturatedDensities, SwitchAndCriticalPoint) {
    // On either side of the switch the two sources differ by about 2 kg/m3.
    const double inside = pc - 0.99 * auxiliary_zone, outside = pc - 1.01 * auxiliary_zone;
    const double t = vaprix::tsat_exact(outside);
    const auto solved = vaprix::dsat3(t, outside), auxiliary = vaprix::dsat3(t, inside);
    EXPECT_GT(auxiliary.liquid - solved.liquid, 1);
    EXPECT_GT(solved.vapour - auxiliary.vapour, 1);
    for (int k = 3; k <= 12; ++k) {
        const double below = tc - std::pow(10, -k);
        const auto d = vaprix::dsat3(below, vaprix::psat(below));
        EXPECT_GT(d.liquid, dc) << digits({below});
        EXPECT_LT(d.vapour, dc) << digits({below});
    }
    const auto critical = vaprix::dsat3(tc, vaprix::psat(tc));
    EXPECT_EQ(critical.liquid, dc);
    EXPECT_EQ(critical.vapour, dc);
    EXPECT_EQ(critical.t, tc);
}

}  // namespace
