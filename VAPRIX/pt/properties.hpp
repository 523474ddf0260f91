// SPDX-License-Identifier: MIT
//
// The basic properties of a single-phase state, each as the functions that evaluate it in the
// regions.
#pragma once

#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"
#include "regions/region5.hpp"

namespace vaprix::pt {

struct Property {
    using Function = double (*)(double, double) noexcept;
    Function region1, region2;  // of (p, T)
    Function region3;           // of (density, T)
    Function region5;           // of (p, T)

    // Of a state of region 3 whose pressure is at hand too, as derived properties want it.
    [[nodiscard]] constexpr double dense(double /* p */, double d, double t) const noexcept {
        return region3(d, t);
    }
};

inline double reciprocal(double d, double /* t */) noexcept { return 1 / d; }

inline constexpr Property v{region1::v, region2::v, reciprocal, region5::v};
inline constexpr Property h{region1::h, region2::h, region3::h, region5::h};
inline constexpr Property s{region1::s, region2::s, region3::s, region5::s};
inline constexpr Property u{region1::u, region2::u, region3::u, region5::u};
inline constexpr Property g{region1::g, region2::g, region3::g, region5::g};
inline constexpr Property cp{region1::cp, region2::cp, region3::cp, region5::cp};
inline constexpr Property cv{region1::cv, region2::cv, region3::cv, region5::cv};
inline constexpr Property w{region1::w, region2::w, region3::w, region5::w};

// f = u - T s
template <Property::Function u_of, Property::Function s_of>
double helmholtz(double x, double t) noexcept {
    return u_of(x, t) - t * s_of(x, t);
}
inline constexpr Property f{helmholtz<region1::u, region1::s>, helmholtz<region2::u, region2::s>,
                            region3::f, helmholtz<region5::u, region5::s>};

}  // namespace vaprix::pt
