// SPDX-License-Identifier: MIT
//
// The library's equations as source, so that they inline into the loop that measures their floor:
// to be included by one file of a program.
#pragma once

#include "pt/properties.hpp"
#include "regions/b23.hpp"

// clang-format off
#include "regions/region1.cpp"
#include "regions/region2.cpp"
#include "regions/region3.cpp"
#include "regions/region3_density.cpp"
#include "regions/region5.cpp"
#include "regions/saturation_line.cpp"
// clang-format on

// Combinations of equations, the same for the library's and for the plain ones.
namespace equations {

using vaprix::pt::Property;

// The equation of a property in a region, of (p, T), in region 3 of (density, T).
template <int region, const Property& property>
inline constexpr Property::Function in = region == 1   ? property.region1
                                         : region == 2 ? property.region2
                                         : region == 3 ? property.region3
                                                       : property.region5;

// Region 3 of (p, T) by the published backward volume.
template <const Property& property>
double at_backward_volume(double p, double t) noexcept {
    return property.region3(1 / vaprix::region3::v_pt(p, t), t);
}

// A property of (p, T) at the temperature of (p, y).
template <auto property, auto t_of>
double at_t(double p, double y) {
    return property(p, t_of(p, y));
}

// A property of (p, T) at the saturation pressure of T, or at the saturation temperature of p.
template <auto property, auto psat>
double of_t(double t) {
    return property(psat(t), t);
}
template <auto property, auto tsat>
double of_p(double p) {
    return property(p, tsat(p));
}

// Vapour less liquid at T.
template <auto liquid, auto vapour, auto psat>
double vaporisation(double t) {
    const double p = psat(t);
    return vapour(p, t) - liquid(p, t);
}

// Wet steam of (T, x) and of (p, x), by the lever rule.
template <auto liquid, auto vapour>
double mixture(double p, double t, double x) {
    const double of_liquid = liquid(p, t);
    return of_liquid + x * (vapour(p, t) - of_liquid);
}
template <auto liquid, auto vapour, auto psat>
double of_tx(double t, double x) {
    return mixture<liquid, vapour>(psat(t), t, x);
}
template <auto liquid, auto vapour, auto tsat>
double of_px(double p, double x) {
    return mixture<liquid, vapour>(p, tsat(p), x);
}

// Vapour quality at which a property has the value y: of (p, y) and, for the volume, of (T, v).
template <auto liquid, auto vapour>
double quality(double p, double t, double y) {
    const double of_liquid = liquid(p, t);
    return (y - of_liquid) / (vapour(p, t) - of_liquid);
}
template <auto liquid, auto vapour, auto tsat>
double x_of_py(double p, double y) {
    return quality<liquid, vapour>(p, tsat(p), y);
}
template <auto liquid, auto vapour, auto psat>
double x_of_tv(double t, double v) {
    return quality<liquid, vapour>(psat(t), t, v);
}

}  // namespace equations
