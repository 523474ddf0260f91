// SPDX-License-Identifier: MIT
//
// Saturated liquid and vapour at one point of the saturation line, resolved once, so that every
// property of either phase is one evaluation: regions 1 and 2 up to 623.15 K, region 3 at the
// coexisting densities above.
#pragma once

#include "frame/constants.hpp"
#include "pt/properties.hpp"
#include "regions/saturated_densities.hpp"

namespace vaprix::pt {

class SaturatedState {
    double p, t;
    bool dense;  // above 623.15 K
    SaturatedDensities d{};

public:
    // (p, t) is on the saturation line; nothing is checked.
    SaturatedState(double pressure, double temperature) noexcept
        : p(pressure), t(temperature), dense(t > T_13) {
        if (dense) d = dsat3(t, p);
    }

    template <const Property& property>
    [[nodiscard]] double liquid() const noexcept {
        return dense ? property.region3(d.liquid, t) : property.region1(p, t);
    }

    template <const Property& property>
    [[nodiscard]] double vapour() const noexcept {
        return dense ? property.region3(d.vapour, t) : property.region2(p, t);
    }

    // Property of wet steam of quality x, kg of vapour per kg.
    template <const Property& property>
    [[nodiscard]] double mixture(double x) const noexcept {
        const double of_liquid = liquid<property>();
        return of_liquid + x * (vapour<property>() - of_liquid);
    }

    // Quality at which the mixture has the given value of the property.
    template <const Property& property>
    [[nodiscard]] double quality(double value) const noexcept {
        const double of_liquid = liquid<property>();
        return (value - of_liquid) / (vapour<property>() - of_liquid);
    }
};

}  // namespace vaprix::pt
