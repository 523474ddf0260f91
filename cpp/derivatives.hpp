// SPDX-License-Identifier: MIT
//
// Partial derivatives of a state: slopes of every property by two coordinates, from which (dz/dx)_y follows as a
// quotient of Jacobians, {z, y}/{x, y}; and second derivatives.
// Source: IAPWS AN3-07(2018), Eqs. (1) to (9) with Tables 1 and 2: of all properties by (p, T) from v, s, cp, v_T and
//         v_p, in region 3 by (v, T) from p, s, cv, p_v and p_T, which stay finite at the critical point.
#pragma once

#include <array>
#include <cstddef>

#include "regions/saturation_line.hpp"
#include "state/properties.hpp"
#include "vaprix/bridge.hpp"

namespace vaprix::derivatives {

using bridge::Property;

inline constexpr double kJ = 1000;  // per MPa m3

template <class Number>
using Row = std::array<Number, 2>;
template <class Number>
class Rows : public std::array<Row<Number>, bridge::properties> {
public:
    using std::array<Row<Number>, bridge::properties>::operator[];
    Row<Number>& operator[](Property z) noexcept { return (*this)[static_cast<std::size_t>(z)]; }
    const Row<Number>& operator[](Property z) const noexcept {
        return (*this)[static_cast<std::size_t>(z)];
    }
};

// Slopes with what they are of, in region 3 the pressure of its equation.
template <class Number>
struct Point {
    Number p, v, s;
    Rows<Number> slopes{};
};

// d = 1/v; df = -p dv - s dT, du = T ds - p dv, dg = v dp - s dT from the slopes of p, T, v and s.
template <class Number>
void complete(Point<Number>& at, Number t) noexcept {
    Rows<Number>& of = at.slopes;
    for (std::size_t k = 0; k < 2; ++k) {
        const Number work = kJ * at.p * of[Property::v][k];
        of[Property::d][k] = -of[Property::v][k] / (at.v * at.v);
        of[Property::u][k] = t * of[Property::s][k] - work;
        of[Property::f][k] = -work - at.s * of[Property::T][k];
        of[Property::g][k] = kJ * at.v * of[Property::p][k] - at.s * of[Property::T][k];
    }
}

// Of regions 1, 2 and 5, by T and p.
template <class Equation, class Number>
[[nodiscard]] Point<Number> gibbs(Number p, Number t) noexcept {
    const auto [x, s] = Equation::derivatives_and_s(p, t);
    Point<Number> point{.p = p, .v = x.v, .s = s};
    Rows<Number>& of = point.slopes;
    of[Property::p] = {0, 1};
    of[Property::T] = {1, 0};
    of[Property::v] = {x.v_t, x.v_p};
    of[Property::h] = {x.cp, x.h_p};
    of[Property::s] = {x.cp / t, -kJ * x.v_t};
    complete(point, t);
    return point;
}

// Of region 3, by v and T.
template <class Number>
[[nodiscard]] Point<Number> dense(Number d, Number t) noexcept {
    using Equation = Region3<Number>;
    const auto [x, s] = Equation::derivatives_and_s(d, t);
    const Number p_v = 1 / x.v_p;
    const Number p_t = -x.v_t / x.v_p;
    Point<Number> point{.p = Equation::p(d, t), .v = x.v, .s = s};
    Rows<Number>& of = point.slopes;
    of[Property::p] = {p_v, p_t};
    of[Property::T] = {0, 1};
    of[Property::v] = {1, 0};
    of[Property::s] = {kJ * p_t, x.cv / t};
    of[Property::h] = {kJ * (t * p_t + x.v * p_v), x.cv + kJ * x.v * p_t};
    complete(point, t);
    return point;
}

template <class Number>
[[nodiscard]] Point<Number> single(const StateOf<Number>& at) noexcept {
    switch (at.region) {
        case Region::one: return gibbs<Region1<Number>>(at.p, at.t);
        case Region::two: return gibbs<Region2<Number>>(at.p, at.t);
        case Region::five: return gibbs<Region5<Number>>(at.p, at.t);
        default: return dense(at.d, at.t);
    }
}

// What the lever rule mixes, v and s from the sums that the slopes have.
inline constexpr Property mixed_properties[] = {Property::v, Property::s, Property::h,
                                                Property::u, Property::f, Property::g};

template <class Number>
[[nodiscard]] std::array<Number, std::size(mixed_properties)> values(
    const StateOf<Number>& phase, const Point<Number>& at) noexcept {
    const Number h = vaprix::single<property::h>(phase);
    const Number work = kJ * at.p * at.v, heat = phase.t * at.s;
    return {at.v, at.s, h, h - work, h - work - heat, h - heat};
}

// Of wet steam, by p along the saturation line at constant quality, and by the quality at constant p. The line is that
// of Eq. (31), which solves the same equation as Eq. (30). Above 623.15 K the volumes v' and v'' move as phase
// equilibrium has it in region 3: its pressure has the slope (s'' - s')/(v'' - v') by T, so that the phase's volume has
// ((s'' - s')/(v'' - v') - p_T)/p_v.
template <class Number>
[[nodiscard]] Rows<Number> mixed(const StateOf<Number>& at) noexcept {
    const StateOf<Number> ends[] = {liquid_end(at), vapour_end(at)};
    const Point<Number> points[] = {single(ends[0]), single(ends[1])};
    const std::array of_ends{values(ends[0], points[0]), values(ends[1], points[1])};
    const auto difference = [&](std::size_t k) { return of_ends[1][k] - of_ends[0][k]; };
    const Number t_p = tsat_p(at.p);
    const Number equilibrium_p_t = difference(1) / (kJ * difference(0));
    const auto along = [&](const Rows<Number>& of, Property z) {
        if (!(at.t > T_13)) return of[z][0] * t_p + of[z][1];
        const auto& p = of[Property::p];
        return (of[z][0] * ((equilibrium_p_t - p[1]) / p[0]) + of[z][1]) * t_p;
    };
    Rows<Number> of;
    of[Property::p] = {1, 0};
    of[Property::T] = {t_p, 0};
    for (std::size_t k = 0; k < std::size(mixed_properties); ++k) {
        const Property z = mixed_properties[k];
        const Number of_liquid = along(points[0].slopes, z);
        of[z] = {of_liquid + at.x * (along(points[1].slopes, z) - of_liquid), difference(k)};
    }
    const Number v = of_ends[0][0] + at.x * difference(0);
    for (std::size_t k = 0; k < 2; ++k) of[Property::d][k] = -of[Property::v][k] / (v * v);
    return of;
}

// A property by (p, T): slopes and second derivatives.
template <class Number>
struct Curved {
    Number p, t, pp, pt, tt;
};

// T, v, h and s of a single phase: h_pt = -T v_tt, h_tt = cp_t; s_pp = -v_pt, s_pt = -v_tt,
// s_tt = (cp_t - cp/T)/T.
template <class Number>
[[nodiscard]] std::array<Curved<Number>, 4> curvatures(const StateOf<Number>& at) noexcept {
    const auto of = [&](const Derivatives<Number>& x, const Curvatures<Number>& c) {
        return std::array<Curved<Number>, 4>{{{0, 1, 0, 0, 0},
                                              {x.v_p, x.v_t, c.v_pp, c.v_pt, c.v_tt},
                                              {x.h_p, x.cp, c.h_pp, -kJ * at.t * c.v_tt, c.cp_t},
                                              {-kJ * x.v_t, x.cp / at.t, -kJ * c.v_pt, -kJ * c.v_tt,
                                               (c.cp_t - x.cp / at.t) / at.t}}};
    };
    switch (at.region) {
        case Region::one:
            return of(Region1<Number>::derivatives(at.p, at.t),
                      Region1<Number>::curvatures(at.p, at.t));
        case Region::two:
            return of(Region2<Number>::derivatives(at.p, at.t),
                      Region2<Number>::curvatures(at.p, at.t));
        case Region::five:
            return of(Region5<Number>::derivatives(at.p, at.t),
                      Region5<Number>::curvatures(at.p, at.t));
        default:
            return of(Region3<Number>::derivatives(at.d, at.t),
                      Region3<Number>::curvatures(at.d, at.t));
    }
}

// Second derivatives of z by (p, y): with q = z_ij - z_y y_ij and T_p = -y_p/y_T along constant y, z_yy = q_TT/y_T^2,
// z_py = (q_pT + T_p q_TT)/y_T, z_pp = q_pp + 2 T_p q_pT + T_p^2 q_TT.
template <class Number>
struct Along {
    Number pp, py, yy;
};
template <class Number>
[[nodiscard]] Along<Number> along(const Curved<Number>& z, const Curved<Number>& y) noexcept {
    const Number z_y = z.t / y.t;
    const Number t_p = -y.p / y.t;
    const Number pp = z.pp - z_y * y.pp, pt = z.pt - z_y * y.pt, tt = z.tt - z_y * y.tt;
    return {pp + t_p * (2 * pt + t_p * tt), (pt + t_p * tt) / y.t, tt / (y.t * y.t)};
}

}  // namespace vaprix::derivatives
