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

}  // namespace
