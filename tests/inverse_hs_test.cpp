// SPDX-License-Identifier: MIT
// Functions of (h, s): states of every region and on every limit, there and back; the B-family with
// the errors that the releases permit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "inverse/hs_exact.hpp"
#include "pt/saturated_state.hpp"
#include "reference/basic_equations.hpp"
#include "reference/call.hpp"
#include "reference/sampling.hpp"
#include "regions/b23.hpp"
#include "regions/saturation_line.hpp"

namespace {

using namespace reference;
namespace pt = vaprix::pt;

constexpr double t_low = 273.15, t_13 = 623.15, t_23 = 863.15, t_25 = 1073.15, t_high = 2273.15;
constexpr double p_low = 0.0006112127, p_high_5 = 50, p_high = 100, pc = 22.064, tc = 647.096;

struct Sample {
    int region;  // 4: wet steam; 0: none
    double p, t, d, h, s;
};

Sample single(double p, double t) {
    const int region = static_cast<int>(call<REGIONPT>(p, t));
    if (region == 0 || region == 4) return {0, p, t, 0, 0, 0};
    return {region, p, t, call<DOTP>(t, p), call<HOPT>(p, t), call<SOPT>(p, t)};
}

Sample wet(double t, double x) {
    const double p = vaprix::psat(t);
    const pt::SaturatedState at(p, t);
    return {4, p, t, 1 / at.mixture<pt::v>(x), at.mixture<pt::h>(x), at.mixture<pt::s>(x)};
}

double any_p(Random& random, double from, double to) {
    return random.coin() ? random.uniform(from, to) : random.log_uniform(from, to);
}
double beside(Random& random, double x) {
    return random.uniform(0, 3) < 1 ? x : x * (1 + random.offset(1e-15, 1e-3));
}
double near_end(Random& random) {
    const double x = random.coin() ? 0 : random.log_uniform(1e-12, 1);
    return random.coin() ? x : 1 - x;
}
template <std::size_t N>
double one_of(Random& random, const double (&values)[N]) {
    return values[static_cast<std::size_t>(random.uniform(0, N))];
}

constexpr double limits_p[] = {p_low, 16.52916425260452, pc, p_high_5, p_high};
constexpr double limits_t[] = {t_low, t_13, tc, t_23, t_25, t_high};

struct Sweep {
    const char* name;
    std::function<Sample(Random&)> sample;
    bool interior;
};

// clang-format off
const Sweep sweeps[] = {
    {"region 1", [](Random& r) { const double t = r.uniform(t_low, t_13);
        return single(any_p(r, vaprix::psat(t), p_high), t); }, true},
    {"regions 1 to 3", [](Random& r) {
        return single(any_p(r, p_low, p_high), r.uniform(t_low, t_25)); }, true},
    {"region 3", [](Random& r) {
        return single(r.uniform(16.53, p_high), r.uniform(t_13, t_23)); }, true},
    {"region 5", [](Random& r) {
        return single(any_p(r, p_low, p_high_5), r.uniform(t_25, t_high)); }, true},
    {"wet steam", [](Random& r) {
        return wet(r.uniform(t_low, r.coin() ? t_13 : tc), r.uniform(0, 1)); }, true},
    {"saturation line", [](Random& r) { const double t = r.uniform(t_low, tc);
        return single(vaprix::psat(t) * (1 + r.offset(1e-9, 1e-2)), t); }, false},
    {"ends of the tie lines", [](Random& r) {
        return wet(r.uniform(t_low, tc), near_end(r)); }, false},
    {"coldest wet steam", [](Random& r) {
        return wet(t_low + (r.coin() ? 0 : r.log_uniform(1e-9, 1)), near_end(r)); }, false},
    {"wet steam at 623.15 K", [](Random& r) {
        return wet(beside(r, t_13), r.uniform(0, 1)); }, false},
    {"critical point", [](Random& r) { const double dt = r.offset(1e-7, 1);
        return r.coin() ? single(pc + r.offset(1e-7, 1), tc + dt)
                        : wet(tc - std::abs(dt), r.uniform(0, 1)); }, false},
    {"limits of T", [](Random& r) { const double t = beside(r, one_of(r, limits_t));
        return single(any_p(r, p_low, p_high), std::clamp(t, t_low, t_high)); }, false},
    {"limits of p", [](Random& r) {
        return single(one_of(r, limits_p), r.uniform(t_low, r.coin() ? t_high : t_25)); }, false},
    {"B23 line", [](Random& r) { const double t = r.uniform(t_13, t_23);
        return single(beside(r, vaprix::p_b23(t)), t); }, false},
    {"corners", [](Random& r) {
        return single(one_of(r, limits_p), one_of(r, limits_t)); }, false}};
// clang-format on

// h and s of the state that the O-family found, by the equation that it used.
TEST(InverseHs, OFamilyReproducesHAndS) {
    constexpr double residual = 1e-12;
    std::uint64_t seed = 200;
    for (const Sweep& sweep : sweeps) {
        Random random(seed++);
        Deviations deviations;
        for (int k = 0; k < states() / 5; ++k) {
            const auto [region, p0, t0, d0, h, s] = sweep.sample(random);
            if (region == 0) continue;
            const double p = call<POHS>(h, s), t = call<TOHS>(h, s), d = call<DOHS>(h, s);
            ASSERT_TRUE(t >= t_low && t <= t_high && d > 0 && call<REGIONHS>(h, s) > 0)
                << sweep.name << ' ' << digits({p0, t0, h, s, p, t, d});
            EXPECT_TRUE(p >= p_low * (1 - 1e-7) && p <= (t > t_25 ? p_high_5 : p_high) * 1.000001);
            EXPECT_NEAR(call<VOHS>(h, s) * d, 1, 1e-15) << sweep.name << digits({h, s});
            const auto check = [&, h = h, s = s](double h_found, double s_found) {
                const double h_scale = std::max(std::abs(h), 0.461526 * t);
                const double s_scale = std::max(std::abs(s), 0.461526);
                const std::string name = sweep.name;
                deviations.check(name + ", h", h_found, h, h_scale, residual, {h, s});
                deviations.check(name + ", s", s_found, s, s_scale, residual, {h, s});
            };
            switch (vaprix::hs::solve(h, s).region) {
                case 1: check(call<HPT1N>(p, t), call<SPT1N>(p, t)); break;
                case 2: check(call<HPT2N>(p, t), call<SPT2N>(p, t)); break;
                case 3: check(call<HVT3N>(1 / d, t), call<SVT3N>(1 / d, t)); break;
                case 5: check(call<HPT5N>(p, t), call<SPT5N>(p, t)); break;
                default: {
                    const pt::SaturatedState at(p, t);
                    const double x = at.quality<pt::h>(h);
                    EXPECT_NEAR(x, std::clamp(x, 0.0, 1.0), 1e-11) << digits({h, s});
                    const double x_of_density = at.quality<pt::v>(1 / d);
                    check(at.mixture<pt::h>(x_of_density), at.mixture<pt::s>(x_of_density));
                }
            }
        }
    }
}

// Errors that the releases permit and, for the density, what follows from them; where the region
// found is that of the state, which near a boundary its own error may prevent.
TEST(InverseHs, BFamilyWithinThePermittedErrors) {
    Random random(220);
    Deviations deviations;
    int tried = 0, elsewhere = 0;
    for (const Sweep& sweep : sweeps) {
        for (int k = 0; k < states() / 5 && sweep.interior; ++k) {
            const auto [region, p, t, d, h, s] = sweep.sample(random);
            if (region == 0) continue;
            ++tried;
            const double found = call<REGIONHS>(h, s);
            ASSERT_GT(found, 0) << digits({h, s});
            if (found != region && ++elsewhere != 0) continue;

            const bool fine = s >= 5.85;
            double p_error = 1e-8, t_error = 1e-6, d_error = 1e-5;  // relative, K, relative
            if (region == 1) p_error = p <= 2.5 ? 0.006 : 0.015 / p;
            if (region == 2 || (region == 4 && s >= 5.210887825)) p_error = fine ? 3.5e-5 : 8.8e-5;
            if (region == 3) p_error = d_error = 1e-4;
            if (region <= 3) t_error = region == 2 && fine ? 0.010 : 0.025;
            if (region <= 2) d_error = 5e-4;
            if (region == 4 && s >= 5.210887825) t_error = 0.00086, d_error = 1e-4;
            const std::string name = "region " + std::to_string(region);
            deviations.check(name + ", p", call<PBHS>(h, s), p, p, p_error, {h, s});
            deviations.check(name + ", T", call<TBHS>(h, s), t, 1, t_error, {h, s});
            deviations.check(name + ", d", call<DBHS>(h, s), d, d, d_error, {h, s});
        }
    }
    std::printf("region not that of the state: %d of %d\n", elsewhere, tried);
    EXPECT_LT(elsewhere, tried / 1000);
}

}  // namespace
