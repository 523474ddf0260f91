// SPDX-License-Identifier: MIT
// The saturation line, the boundary of regions 2 and 3 and the coexisting densities against
// quadruple precision, and what thermodynamics says of both phases.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "reference/basic_equations.hpp"
#include "reference/sampling.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_line.hpp"

namespace {

using namespace reference;
using bound::call;

using strata::T_low, strata::T_13, strata::T_crit, strata::p_crit;

constexpr double d_crit = 322;
constexpr double auxiliary_zone = 1e-5;  // MPa below p_crit

double any_pressure(Random& random, double low) {
    return random.coin() ? random.uniform(low, p_crit) : random.log_uniform(low, p_crit);
}

TEST(SaturationLine, AgreesWithTheEquations) {
    // The quadratics cancel by about one digit in ps (the root is taken of nearly equal parts, then
    // raised to the fourth power) and not at all in Ts.
    constexpr double tolerance_p = 1e-13, tolerance_t = 1e-14, tolerance_t_p = 2e-13;
    Random random(4);
    Deviations deviations;
    for (int k = strata::states(0.1); k > 0; --k) {
        const double t = random.uniform(T_low, T_crit), p = any_pressure(random, 0.0005);
        const Quad ps = published::psat<Quad>(t), ts = published::tsat<Quad>(p);
        const Quad slope = published::tsat_p<Quad>(p);
        deviations.check("PBT", call<PBT>(t), ps, ps, tolerance_p, {t});
        deviations.check("TBP", call<TBP>(p), ts, ts, tolerance_t, {p});
        deviations.check("DTBPDP", call<DTBPDP>(p), slope, slope, tolerance_t_p, {p});
        const auto tangent = vaprix::psat_tangent(t);
        const Quad ps_t = 1 / published::tsat_p<Quad>(ps);
        deviations.check("dps/dT", tangent.y_x, ps_t, ps_t, tolerance_t_p, {t});
        EXPECT_EQ(tangent.y, call<PBT>(t));
    }
}

// TOP inverts PSATOT as far as doubles go: it stops at a residual of 1e-15 MPa or at a bracket of
// 1e-15 T, worth up to 8e-15 of ps, and Eq. (30) itself is rounded by up to 1e-14.
TEST(SaturationLine, TopInvertsPsatot) {
    constexpr double residual = 1e-15, resolution = 2e-14;
    Random random(41);
    Deviations deviations;
    for (int k = strata::states(1); k > 0; --k) {
        // one in ten close to the upper end, where the bracket is cut at the critical temperature
        const double p = k % 10 == 0 ? p_crit - random.log_uniform(1e-14, 1e-2)
                                     : any_pressure(random, 0.000611213);
        deviations.check("PSATOT(TOP)", call<PSATOT>(call<TOP>(p)), p, p, resolution + residual / p,
                         {p});
    }
}

// From 623.15 K until 1e-5 MPa below the critical pressure: even steps, then ever smaller distances
// from Tc.
std::vector<double> temperatures() {
    std::vector<double> all;
    const int steps = strata::states(0.01);
    for (int k = 1; k < steps; ++k) all.push_back(T_13 + (646.0 - T_13) * k / steps);
    for (double distance = T_crit - 646; call<PBT>(T_crit - distance) < p_crit - auxiliary_zone;
         distance *= 0.99)
        all.push_back(T_crit - distance);
    return all;
}

TEST(SaturatedDensities, PhasesAreInEquilibrium) {
    constexpr double tolerance = 1e-12;  // of p, and of g, which is some 700 to 900 kJ/kg here
    constexpr double rounding = 1e-15;   // of the densities themselves, to the very last ones
    Deviations deviations;
    double d2 = 0, d1 = 1000;
    for (const double t : temperatures()) {
        const double vapour = call<DVOT>(t), liquid = call<DLOT>(t);
        const State gas = region3(vapour, t), drop = region3(liquid, t);
        deviations.check("p", static_cast<double>(drop.p()), gas.p(), gas.p(), tolerance, {t});
        deviations.check("g", static_cast<double>(drop.g()), gas.g(), gas.g(), tolerance, {t});
        const Coexistence exact = coexistence3(t, vapour, liquid);
        deviations.check("vapour", vapour, exact.vapour, exact.vapour, rounding, {t});
        deviations.check("liquid", liquid, exact.liquid, exact.liquid, rounding, {t});
        EXPECT_TRUE(d2 < vapour && vapour < d_crit && d_crit < liquid && liquid < d1)
            << digits({t});
        d2 = vapour, d1 = liquid;
    }
}

// IAPWS SR1-86(1992), Eqs. (2) and (3): d' = 322 (1 + sum b tau^e), d'' = 322 exp(sum c tau^e).
struct Auxiliary {
    const char* set;   // of the table
    int root;          // the base of the powers is tau^(1/root)
    double floors[6];  // a term counts only while its base lies above
    Quad sum(Quad tau) const {
        const auto terms = published::saturated_density_terms<Quad>(set);
        const Quad base = published::power(tau, Quad(1) / root);
        Quad total = 0;
        for (std::size_t k = 0; k < terms.size(); ++k)
            if (base > floors[k]) total += published::sum<Quad>({terms[k]}, tau, 1).value;
        return total;
    }
};
const Auxiliary liquid_sum = {"b", 3, {0, 1e-8, 0.0001, 0.1, 0.424528622, 0.715394265}};
const Auxiliary vapour_sum = {"c", 6, {1e-8, 0.0001, 0.01, 0.129154966, 0.36946012, 0.595179394}};

// 1 - T/Tc keeps few digits in doubles; both series start with about 2 tau^(1/3). Far from Tc
// powers up to 110 and the exponential, of -11 at the cold end, magnify the rounding.
void check_auxiliary(Deviations& deviations, double vapour, double liquid, double t) {
    constexpr double u = 0x1p-53;
    const Quad tau = 1 - t / t_crit;
    const Quad want_liquid = d_crit * (1 + liquid_sum.sum(tau));
    const Quad want_vapour = d_crit * published::exponential(vapour_sum.sum(tau));
    const double tolerance =
        300 * u + 2 * u / static_cast<double>(published::power(tau, Quad(2) / 3));
    deviations.check("auxiliary liquid", liquid, want_liquid, want_liquid, tolerance, {t});
    deviations.check("auxiliary vapour", vapour, want_vapour, want_vapour, tolerance, {t});
}

// The estimates of the whole line, with the terms that the thresholds leave out; they stand for the
// densities next to the critical pressure.
TEST(SaturatedDensities, AuxiliaryEquations) {
    Random random(27);
    Deviations deviations;
    for (int k = strata::states(0.02); k > 0; --k) {
        const double t =
            random.coin() ? random.uniform(T_low, T_crit) : T_crit - random.log_uniform(1e-9, 100);
        check_auxiliary(deviations, call<DVEST>(t), call<DLEST>(t), t);
        const double p = p_crit - random.log_uniform(1.1e-9, 0.999 * auxiliary_zone);
        check_auxiliary(deviations, call<DVOP>(p), call<DLOP>(p), call<TBP>(p));
    }
    // On either side of the switch the two sources differ by about 2 kg/m3.
    const double inside = p_crit - 0.99 * auxiliary_zone, outside = p_crit - 1.01 * auxiliary_zone;
    EXPECT_GT(call<DLOP>(inside) - call<DLOP>(outside), 1);
    EXPECT_GT(call<DVOP>(outside) - call<DVOP>(inside), 1);
}

}  // namespace
