// SPDX-License-Identifier: MIT
//
// Specific volume of region 3 from pressure and temperature by the published backward equations.
// Given:    p  pressure, MPa;  t  temperature, K, in region 3; nothing is checked.
// Returned: m3/kg.
// Source:   IAPWS SR5-05(2016).
#pragma once

#include "frame/constants.hpp"
#include "frame/guarded_math.hpp"
#include "frame/polynomial.hpp"
#include "regions/region3.hpp"
#include "regions/region3_boundaries.hpp"
#include "regions/region3_density.hpp"
#include "regions/saturation_line.hpp"
#include "regions/tables/region3_volume.hpp"

namespace vaprix {

namespace detail {

// x^(quarters/4), for the exponents 1/4, 1/2, 1 and 4, the only ones that occur
template <int quarters, class Number>
VAPRIX_INLINE Number quarter_power(Number x) noexcept {
    static_assert(quarters == 1 || quarters == 2 || quarters == 4 || quarters == 16);
    if constexpr (quarters == 1) {
        return signed_sqrt(signed_sqrt(x));
    } else if constexpr (quarters == 2) {
        return signed_sqrt(x);
    } else if constexpr (quarters == 4) {
        return x;
    } else {
        return (x * x) * (x * x);
    }
}

constexpr int quarters(double exponent) { return static_cast<int>(4 * exponent); }

// Ends of the pressure bands of Table 2, MPa
inline constexpr double p_3cd = 19.00881189173929;    // where Tsat(p) = T3cd(p)
inline constexpr double psat_643 = 21.0433673189753;  // saturation pressure at 643.15 K

}  // namespace detail

// Eq. (4): v/v* = (sum n ((p/p* - a)^c)^I ((T/T* - b)^d)^J)^e
template <class Number>
template <auto const& Terms, auto const& form>
Number Region3<Number>::volume(Number p, Number t) noexcept {
    static constexpr auto sum = polynomial(Terms);
    const Number x = detail::quarter_power<detail::quarters(form.c)>(p / form.p_star - form.a);
    const Number y = detail::quarter_power<detail::quarters(form.d)>(t / form.T_star - form.b);
    return form.v_star * detail::quarter_power<detail::quarters(form.e)>(evaluate<sum>(x, y));
}

// Eq. (5): v/v* = exp(sum n (p/p* - a)^I (T/T* - b)^J)
template <class Number>
Number Region3<Number>::volume_3n(Number p, Number t) noexcept {
    constexpr const auto& form = tables::form_3n;
    static constexpr auto sum = polynomial(tables::v3n);
    return form.v_star *
           clamped_exp(evaluate<sum>(p / form.p_star - form.a, t / form.T_star - form.b));
}

// Table 10, T3qu(p) < t <= T3rx(p), psat_643 < p <= 22.5
template <class Number>
Subregion Region3<Number>::near_critical_subregion(Number p, Number t) noexcept {
    constexpr double psat_v264 = 21.93161551;  // saturation pressure of v' = 0.00264 m3/kg
    constexpr double psat_v385 = 21.90096265;  // saturation pressure of v'' = 0.00385 m3/kg
    if (p > 22.11) {
        if (t <= t3uv(p)) return Subregion::u;
        if (t <= t3ef(p)) return Subregion::v;
        return t <= t3wx(p) ? Subregion::w : Subregion::x;
    }
    if (p > p_crit) {
        if (t <= t3uv(p)) return Subregion::u;
        if (t <= t3ef(p)) return Subregion::y;
        return t <= t3wx(p) ? Subregion::z : Subregion::x;
    }
    if (t <= tsat(p)) return p <= psat_v264 || t <= t3uv(p) ? Subregion::u : Subregion::y;
    return p <= psat_v385 || t > t3wx(p) ? Subregion::x : Subregion::z;
}

// Table 2. The subregions 3u to 3z of Table 10 are told apart only where that matters: here any of
// them is Subregion::u.
template <class Number>
Subregion Region3<Number>::subregion_table2(Number p, Number t) noexcept {
    if (p > 40) return t <= t3ab(p) ? Subregion::a : Subregion::b;
    if (p <= detail::p_3cd) return t <= tsat(p) ? Subregion::c : Subregion::t;
    if (t <= t3cd(p)) return Subregion::c;
    if (p > 25) {
        if (t <= t3ab(p)) return Subregion::d;
        return t <= t3ef(p) ? Subregion::e : Subregion::f;
    }
    if (p > 23.0) {
        if (t <= t3gh(p)) return p > 23.5 ? Subregion::g : Subregion::l;
        if (t <= t3ef(p)) return Subregion::h;
        if (t <= t3ij(p)) return Subregion::i;
        return t <= t3jk(p) ? Subregion::j : Subregion::k;
    }
    if (p > 22.5) {
        if (t <= t3gh(p)) return Subregion::l;
        if (t <= t3mn(p)) return Subregion::m;
        if (t <= t3ef(p)) return Subregion::n;
        if (t <= t3op(p)) return Subregion::o;
        if (t <= t3ij(p)) return Subregion::p;
        return t <= t3jk(p) ? Subregion::j : Subregion::k;
    }
    if (p > detail::psat_643) {
        if (t <= t3qu(p)) return Subregion::q;
        if (t <= t3rx(p)) return Subregion::u;
        return t <= t3jk(p) ? Subregion::r : Subregion::k;
    }
    if (t <= tsat(p)) return Subregion::s;
    if (p <= 20.5) return Subregion::t;
    return t <= t3jk(p) ? Subregion::r : Subregion::k;
}

template <class Number>
Subregion Region3<Number>::subregion_pt(Number p, Number t) noexcept {
    const Subregion subregion = subregion_table2(p, t);
    return subregion == Subregion::u ? near_critical_subregion(p, t) : subregion;
}

template <class Number>
Number Region3<Number>::v_subregion(Subregion subregion, Number p, Number t) noexcept {
    using namespace tables;
    switch (subregion) {
        case Subregion::a: return volume<v3a, form_3a>(p, t);
        case Subregion::b: return volume<v3b, form_3b>(p, t);
        case Subregion::c: return volume<v3c, form_3c>(p, t);
        case Subregion::d: return volume<v3d, form_3d>(p, t);
        case Subregion::e: return volume<v3e, form_3e>(p, t);
        case Subregion::f: return volume<v3f, form_3f>(p, t);
        case Subregion::g: return volume<v3g, form_3g>(p, t);
        case Subregion::h: return volume<v3h, form_3h>(p, t);
        case Subregion::i: return volume<v3i, form_3i>(p, t);
        case Subregion::j: return volume<v3j, form_3j>(p, t);
        case Subregion::k: return volume<v3k, form_3k>(p, t);
        case Subregion::l: return volume<v3l, form_3l>(p, t);
        case Subregion::m: return volume<v3m, form_3m>(p, t);
        case Subregion::n: return volume_3n(p, t);
        case Subregion::o: return volume<v3o, form_3o>(p, t);
        case Subregion::p: return volume<v3p, form_3p>(p, t);
        case Subregion::q: return volume<v3q, form_3q>(p, t);
        case Subregion::r: return volume<v3r, form_3r>(p, t);
        case Subregion::s: return volume<v3s, form_3s>(p, t);
        case Subregion::t: return volume<v3t, form_3t>(p, t);
        case Subregion::u: return volume<v3u, form_3u>(p, t);
        case Subregion::v: return volume<v3v, form_3v>(p, t);
        case Subregion::w: return volume<v3w, form_3w>(p, t);
        case Subregion::x: return volume<v3x, form_3x>(p, t);
        case Subregion::y: return volume<v3y, form_3y>(p, t);
        case Subregion::z: break;
    }
    return volume<v3z, form_3z>(p, t);
}

template <class Number>
Number Region3<Number>::v_pt(Number p, Number t) noexcept {
    const Subregion subregion = subregion_table2(p, t);
    const bool iterated = subregion == Subregion::u;
    const Number v = v_subregion(iterated ? near_critical_subregion(p, t) : subregion, p, t);
    return iterated ? Number(region3_density::v_iterated(double(p), double(t), double(1 / v))) : v;
}

}  // namespace vaprix
