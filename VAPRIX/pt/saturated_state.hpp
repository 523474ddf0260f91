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
    double p_, t_;
    bool dense;  // above 623.15 K
    SaturatedDensities<double> d{};

public:
    // (p, t) is on the saturation line; nothing is checked.
    SaturatedState(double p, double t) noexcept : p_(p), t_(t), dense(t > T_13) {
        if (dense) d = dsat3(t, p);
    }

    // Both phases at the same density, next to the critical point.
    SaturatedState(double p, double t, double density) noexcept
        : p_(p), t_(t), dense(true), d{density, density, t} {}

    [[nodiscard]] double p() const noexcept { return p_; }
    [[nodiscard]] double t() const noexcept { return t_; }

    template <const auto& property>
    [[nodiscard]] double liquid() const noexcept {
        return dense ? property.dense(p_, d.liquid, t_) : property.region1(p_, t_);
    }

    template <const auto& property>
    [[nodiscard]] double vapour() const noexcept {
        return dense ? property.dense(p_, d.vapour, t_) : property.region2(p_, t_);
    }

    // Density, kg/m3.
    [[nodiscard]] double liquid_density() const noexcept {
        return dense ? d.liquid : 1 / region1::v(p_, t_);
    }
    [[nodiscard]] double vapour_density() const noexcept {
        return dense ? d.vapour : 1 / region2::v(p_, t_);
    }

    // Property of wet steam of quality x, kg of vapour per kg: the lever rule, at 0 and 1 the
    // phases to the last digit.
    template <const auto& property>
    [[nodiscard]] double mixture(double x) const noexcept {
        if (x == 0) return liquid<property>();
        const double of_vapour = vapour<property>();
        if (x == 1) return of_vapour;
        const double of_liquid = liquid<property>();
        return of_liquid + x * (of_vapour - of_liquid);
    }

    // Quality at which the mixture has the given value of the property.
    template <const auto& property>
    [[nodiscard]] double quality(double value) const noexcept {
        const double of_liquid = liquid<property>();
        return (value - of_liquid) / (vapour<property>() - of_liquid);
    }
};

}  // namespace vaprix::pt
