// SPDX-License-Identifier: MIT
//
// Region 3 for the start fits: its boundaries, the start subregions 1..7 and the exact density.
#pragma once

#include <algorithm>
#include <cmath>

#include "regions/tables/b23.hpp"
#include "regions/tables/region3.hpp"
#include "regions/tables/saturation.hpp"

namespace start_fits {

using Real = long double;
namespace tables = vaprix::tables;

constexpr Real R = 0.461526L;   // kJ/(kg K)
constexpr Real p_c = 22.064L;   // MPa
constexpr Real T_c = 647.096L;  // K
constexpr Real rho_c = 322.0L;  // kg/m3
constexpr Real T_min = 623.15L, T_max = 863.15L, p_max = 100.0L;

// IAPWS R7-97(2012) Eq. (5) and (6): boundary between regions 2 and 3
inline Real p_b23(Real T) {
    return Real(tables::b23[0]) + Real(tables::b23[1]) * T + Real(tables::b23[2]) * T * T;
}
inline Real T_b23(Real p) {
    return Real(tables::b23[3]) + std::sqrt((p - Real(tables::b23[4])) / Real(tables::b23[2]));
}

// IAPWS R7-97(2012) Eq. (31): saturation temperature
inline Real T_saturation(Real p) {
    const auto n = [](int i) { return Real(tables::saturation[i - 1]); };
    const Real beta = std::sqrt(std::sqrt(p));
    const Real E = beta * beta + n(3) * beta + n(6);
    const Real F = n(1) * beta * beta + n(4) * beta + n(7);
    const Real G = n(2) * beta * beta + n(5) * beta + n(8);
    const Real D = 2 * G / (-F - std::sqrt(F * F - 4 * E * G));
    return (n(10) + D - std::sqrt((n(10) + D) * (n(10) + D) - 4 * (n(9) + n(10) * D))) / 2;
}

// Line from the critical point that follows the critical isochore: dense states above, thin ones
// below.
inline Real T_divide(Real p) { return T_c + (p - p_c) * 3.727888L; }

// IAPWS R7-97(2012) Eq. (28) on one isotherm: p3(rho) and its slope
class Isotherm {
public:
    explicit Isotherm(Real T) : RT_(R * T / 1000) {
        for (const auto& t : tables::region3) {
            c_[t.I] +=
                Real(t.n) * std::pow(T_c / T, static_cast<Real>(t.J)) * static_cast<Real>(t.I);
        }
    }
    struct Value {
        Real p, slope;
    };
    Value at(Real rho) const {
        const Real delta = rho / rho_c;
        Real a = Real(tables::region3_log_coefficient), b = a, power = 1;
        for (int I = 1; I <= 11; ++I) {
            power *= delta;
            a += c_[I] * power;
            b += c_[I] * power * static_cast<Real>(I + 1);
        }
        return {rho * RT_ * a, RT_ * b};
    }

private:
    Real RT_;
    Real c_[12] = {};
};

// Stable density. Below T_c Newton's method comes from outside the two-phase range, where p3(rho)
// has no inflection on the way to the root; above T_c p3(rho) is monotonic and is bisected.
inline Real density(Real p, Real T, bool liquid) {
    const Isotherm isotherm(T);
    const Real rarest = 40, densest = 780;
    if (T < T_c) {
        Real rho = liquid ? densest : rarest;
        for (int i = 0; i < 200; ++i) {
            const auto [p_rho, slope] = isotherm.at(rho);
            const Real step = (p - p_rho) / slope;
            rho += step;
            if (std::fabs(step) < 1e-15L * rho) break;
        }
        return rho;
    }
    const bool dense = p >= isotherm.at(rho_c).p;
    Real low = dense ? rho_c : rarest, high = dense ? densest : rho_c;
    for (int i = 0; i < 70; ++i) {
        const Real middle = (low + high) / 2;
        (isotherm.at(middle).p < p ? low : high) = middle;
    }
    return (low + high) / 2;
}

inline int subregion(Real p, Real T) {
    if (p > 40) return 7;
    if (p <= p_c) return T_saturation(p) > T ? 1 : 4;
    const bool dense = T < T_divide(p);
    if (p > 24) return dense ? 5 : 6;
    return T <= T_c ? 1 : dense ? 2 : 3;
}

struct Interval {
    Real low, high;
};
inline Interval pressures(int k) {
    const Interval interval[7] = {{p_b23(T_min), 24}, {p_c, 24}, {p_c, 24},  {p_b23(T_min), p_c},
                                  {24, 40},           {24, 40},  {40, p_max}};
    return interval[k - 1];
}
inline Interval temperatures(int k, Real p) {
    switch (k) {
        case 1: return {T_min, p < p_c ? T_saturation(p) : T_c};
        case 2: return {T_c, T_divide(p)};
        case 4: return {T_saturation(p), T_b23(p)};
        case 5: return {T_min, T_divide(p)};
        case 7: return {T_min, std::min(T_b23(p), T_max)};
        default: return {T_divide(p), T_b23(p)};
    }
}

}  // namespace start_fits
