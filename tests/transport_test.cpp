// SPDX-License-Identifier: MIT
// The correlations of transport and of the other physical properties against quadruple precision,
// at densities given exactly. Their exports are in properties_test.cpp.
#include <gtest/gtest.h>

#include <string>

#include "reference/basic_equations.hpp"
#include "reference/sampling.hpp"
#include "transport/conductivity.hpp"
#include "transport/dielectric.hpp"
#include "transport/refractive_index.hpp"
#include "transport/viscosity.hpp"

namespace {

using namespace reference;
using bound::call;
namespace lib = vaprix::transport;

template <auto Export>
double written(double v, double t) {
    double out = 0;
    Export(&v, &t, &out);
    return out;
}

TEST(Transport, CorrelationsAgree) {
    // The exponent of the viscosity cancels in the cold liquid. Beside 647.26 K an ulp of the
    // temperature is worth 4e-14 of the conductivity. The molecular factors of the dielectric
    // constant are stored with fewer digits than a double has.
    constexpr double viscosity = 4e-14, conductivity = 5e-14, derivative = 1e-13,
                     dielectric = 2e-13, refractive = 1e-15, u = 0x1p-53;
    const Quad h = 1e-9;  // central differences: off by 1e-18 of the value at most
    Random random(61);
    Deviations deviations;
    for (int k = strata::states(0.05); k > 0; --k) {
        const double t =
            random.coin() ? random.uniform(273.15, 1173.15) : 647.26 + random.offset(1e-6, 10.0);
        const double d = random.coin() ? random.uniform(1, 1060) : random.log_uniform(1e-3, 400);
        const double v = 1 / d, l = random.uniform(0.2, 1.1);
        const auto mu_at = [](Quad at_t, Quad at_d) { return published::viscosity(at_t, at_d); };
        const Quad mu = mu_at(t, d), lambda = published::conductivity<Quad>(t, d);
        const Quad by_t = (mu_at(t * (1 + h), d) - mu_at(t * (1 - h), d)) / (2 * t * h);
        const Quad by_v = (mu_at(t, d / (1 + h)) - mu_at(t, d / (1 - h))) * d / (2 * h);
        const Quad eps = published::dielectric_constant<Quad>(t, d);
        const Quad n = published::refractive_index<Quad>(t, d, l);
        deviations.check("viscosity", lib::viscosity(t, d), mu, mu, viscosity, {t, d});
        deviations.check("conductivity", lib::conductivity(t, d), lambda, lambda, conductivity,
                         {t, d});
        deviations.check("DVISCDT", written<DVISCDT>(v, t), by_t, magnitude(by_t) + mu / t,
                         derivative, {t, d});
        deviations.check("DVISCDV", written<DVISCDV>(v, t), by_v, magnitude(by_v) + mu * d,
                         derivative, {t, d});
        deviations.check("dielectric", lib::dielectric_constant(t, d), eps, eps, dielectric,
                         {t, d});
        deviations.check("refractive", lib::refractive_index(t, d, l), n, n, refractive, {t, d, l});
        // 1 - T/Tc keeps few digits in doubles
        const double ts = random.uniform(273.15, 647.096);
        const Quad sigma = published::surface_tension<Quad>(ts) / 1000;
        for (const double got : {call<SIGBT>(ts), call<SIGOT>(ts)})
            deviations.check("surface tension", got, sigma, sigma,
                             8 * u / static_cast<double>(1 - ts / t_crit), {ts});
    }
}

// Region 0 is determined and written back, and no viscosity is written where there is none; any
// other region is taken as it is.
TEST(Transport, ViscosityOfGivenRegion) {
    const double t_line = 400, p_line = call<PBT>(t_line), v = 0.01;
    const struct {
        double p, t;
        int given, determined;
        bool answered;
    } cases[] = {{0.1, 300, 0, 1, true},  {0.1, 1173.15, 0, 5, true},    {0.1, 1173.2, 0, 5, false},
                 {200, 300, 0, 0, false}, {p_line, t_line, 0, 9, false}, {200, 2000, 3, 3, true}};
    for (const auto& c : cases) {
        int region = c.given;
        double eta = -1;
        VISCVT(&c.p, &v, &c.t, &region, &eta);
        EXPECT_EQ(region, c.determined) << digits({c.p, c.t});
        EXPECT_EQ(eta, c.answered ? lib::viscosity(c.t, 1 / v) : -1) << digits({c.p, c.t});
    }
}

}  // namespace
