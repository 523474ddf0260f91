// SPDX-License-Identifier: MIT
// The bounds that settle a region without its equations change no region: against the order of the
// equations, over random states, next to every limit of a region and next to the bounds themselves.
#include <gtest/gtest.h>

#include "inverse/region_by_pressure.hpp"
#include "pt/region_pt.hpp"
#include "reference/sampling.hpp"

namespace {

using namespace vaprix;
using reference::Random;

// Either side of x, up to 64 units in the last place away.
template <class Check>
void around(double x, Check check) {
    double low = x;
    double high = x;
    for (int k = 0; k <= 64; ++k) {
        check(low);
        check(high);
        low = reference::down(low);
        high = reference::up(high);
    }
}

template <class Y>
void bounds_change_no_region(double y_low, double y_high) {
    Random random(70);
    int differences = 0;
    const auto compare = [&](double p, double y) {
        const int plain = p >= p_min && p <= p_max ? inverse::region_by_equations<Y>(p, y) : 0;
        if (inverse::region_but_phase<Y>(p, y) == plain) return;
        if (++differences < 5) ADD_FAILURE() << reference::digits({p, y});
    };
    const auto any_p = [&] {
        return random.coin() ? random.uniform(p_min, p_max) : random.log_uniform(p_min, p_max);
    };
    for (int k = 0; k < 10 * reference::states(); ++k)
        compare(any_p(), random.uniform(y_low, y_high));
    for (int k = 0; k < reference::states() / 100; ++k) {
        const double p = any_p();
        const double ts = tsat(p);
        const IsobarLimits& at = Y::limits[isobar_band(p)];
        for (const LimitBounds bounds : {at.cold, at.liquid, at.vapour, at.t25, at.t_max}) {
            compare(p, reference::down(static_cast<double>(bounds.low)));
            compare(p, reference::up(static_cast<double>(bounds.high)));
        }
        const auto at_limit = [&](double limit) {
            around(limit, [&](double y) { compare(p, y); });
        };
        at_limit(Y::y.region1(p, T_min));
        at_limit(Y::y.region1(p, p <= psat_13 ? ts : T_13));
        at_limit(Y::y.region2(p, p <= psat_13 ? ts : t_b23(p)));
        at_limit(Y::y.region2(p, T_25));
        at_limit(Y::y.region5(p, T_max));
    }
    for (const double y : {Y::beyond_region1, Y::dense_region5, Y::dense_outside, Y::surely_region2,
                           Y::surely_region5, Y::outside_from, Y::lowest, Y::highest}) {
        for (int k = 0; k < reference::states() / 100; ++k) {
            const double p = any_p();
            around(y, [&](double near) { compare(p, near); });
        }
    }
    for (const double p : {p_min, psat_13, p_crit, p_max_5, p_max, 16.52916, 16.54528}) {
        for (int k = 0; k < reference::states() / 100; ++k) {
            const double y = random.uniform(y_low, y_high);
            around(p, [&](double near) { compare(near, y); });
        }
    }
    EXPECT_EQ(differences, 0);
}

TEST(RegionShortcuts, OfEnthalpyChangeNoRegion) {
    bounds_change_no_region<inverse::Enthalpy>(-10, 7500);
}

TEST(RegionShortcuts, OfEntropyChangeNoRegion) {
    bounds_change_no_region<inverse::Entropy>(-0.1, 14.2);
}

TEST(RegionShortcuts, OfTheSaturationPressureChangeNoRegion) {
    Random random(71);
    const auto compare = [](double p, double t) {
        if (p < p_min) return;
        const double ps = psat(t);
        const int plain = p <= ps - pt::tolerance   ? 2
                          : p >= ps + pt::tolerance ? 1
                                                    : pt::saturation_line;
        ASSERT_EQ(pt::region_pt(p, t), plain) << reference::digits({p, t});
    };
    for (int k = 0; k < 10 * reference::states(); ++k) {
        const double t = k % 1000 == 0 ? T_13 : random.uniform(T_min, T_13);
        compare(random.log_uniform(p_min, p_max), t);
        const double near = psat(t) * (1 + random.offset(1e-16, 0.1));
        compare(near, t);
    }
    for (int k = 0; k < reference::states() / 100; ++k) {
        const double t = random.uniform(273.2, T_13);
        around(psat_bounds(t).low, [&](double p) { compare(p, t); });
        around(psat_bounds(t).high, [&](double p) { compare(p, t); });
        around(psat(t), [&](double p) { compare(p, t); });
    }
}

}  // namespace
