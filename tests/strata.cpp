// SPDX-License-Identifier: MIT
#include "strata.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace strata {

namespace {

using bound::call;

double psat(double of_T) { return call<PBT>(of_T); }
double Tsat(double of_p) { return call<TBP>(of_p); }

// Quality at either end of a tie line.
double near_end(Random& r) {
    const double small = r.log_uniform(1e-15, 1e-3);
    const int kind = r.integer(0, 3);
    return kind == 0 ? 0 : kind == 1 ? 1 : kind == 2 ? small : 1 - small;
}

// Beside the line: 1e-12 is the half width within which (p, T) counts as saturated.
double beside_line(Random& r, double line) {
    if (r.coin()) return line * (1 + r.offset(1e-13, 1e-2));
    return steps(line + r.one_of({-1e-12, 1e-12}), r.integer(-3, 3));
}

}  // namespace

// clang-format off
const std::vector<Stratum> strata = {
    {"region 1", Place::inside, [](Random& r) { const double t = r.uniform(280, 620);
        return Point{r.pressure(psat(t) * 1.001, p_high), t}; }},
    {"region 2", Place::inside, [](Random& r) { const double t = r.uniform(274, 1073);
        return Point{r.pressure(p_low, 0.999 * (t < T_13 ? psat(t) : t < T_23 ? call<FB23>(t) : p_high)), t}; }},
    {"region 3", Place::inside, [](Random& r) { const double t = r.uniform(624, 862);
        return Point{r.uniform(std::max(t < T_crit ? psat(t) * 1.001 : 0, call<FB23>(t) * 1.001), p_high), t}; }},
    {"region 5", Place::inside, [](Random& r) { return Point{r.pressure(p_low, p_high_5), r.uniform(1074, T_high)}; }},
    {"thin vapour", Place::boundary, [](Random& r) { return Point{r.log_uniform(p_low, 0.01), r.uniform(T_low, T_high)}; }},
    {"wet steam", Place::inside, [](Random& r) {
        const double t = r.coin() ? r.uniform(274, 620) : r.uniform(624, 646), x = r.uniform(0.01, 0.99);
        return Point{psat(t), t, x}; }},
    {"cold liquid", Place::boundary, [](Random& r) { const double t = r.uniform(T_low, 280);
        return Point{psat(t) + r.log_uniform(1e-9, p_high), t}; }},
    {"saturation line of T", Place::boundary, [](Random& r) { const double t = r.uniform(T_low, T_13);
        return Point{beside_line(r, psat(t)), t}; }},
    {"saturation line of p", Place::boundary, [](Random& r) { const double p = r.uniform(p_13, p_crit);
        return Point{p, beside_line(r, Tsat(p))}; }},
    {"limits of T", Place::boundary, [](Random& r) {
        return Point{r.pressure(), r.beside(r.one_of({T_low, T_13, T_crit, T_23, T_25, T_high}))}; }},
    {"limits of p", Place::boundary, [](Random& r) {
        return Point{r.beside(r.one_of({p_low, p_13, p_crit, p_high_5, p_high})), r.uniform(T_low, r.coin() ? T_high : T_25)}; }},
    {"B23 line", Place::boundary, [](Random& r) { const double t = r.uniform(T_13, T_23);
        return Point{r.beside(call<FB23>(t)), t}; }},
    {"corners", Place::boundary, [](Random& r) {
        return Point{steps(r.one_of({p_low, p_13, p_crit, p_high_5, p_high}), r.integer(-1, 1)),
                     steps(r.one_of({T_low, T_13, T_crit, T_23, T_25, T_high}), r.integer(-1, 1))}; }},
    {"critical shell", Place::boundary, [](Random& r) { const double p = p_crit + r.offset(1e-7, 1);
        return Point{p, T_crit + r.offset(1e-7, 1)}; }},
    {"critical direction", Place::boundary, [](Random& r) { const double dt = r.offset(1e-6, 1);
        return Point{p_crit + dt / 3.727888 * (1 + r.offset(1e-6, 1)), T_crit + dt}; }},
    {"ends of tie lines", Place::boundary, [](Random& r) { const double t = r.uniform(T_low, 646.9);
        return Point{psat(t), t, near_end(r)}; }},
    {"coldest wet steam", Place::boundary, [](Random& r) { const double t = T_low + (r.coin() ? 0 : r.log_uniform(1e-9, 7));
        return Point{psat(t), t, r.coin() ? near_end(r) : r.uniform(0, 1)}; }},
    {"wet steam at 623.15 K", Place::boundary, [](Random& r) { const double t = r.beside(T_13);
        return Point{psat(t), t, r.coin() ? near_end(r) : r.uniform(0, 1)}; }},
    {"wet steam near the critical point", Place::boundary, [](Random& r) { const double t = T_crit - r.log_uniform(1e-7, 1);
        return Point{psat(t), t, r.uniform(0, 1)}; }},
    {"critical point", Place::boundary, [](Random& r) { return Point{r.beside(p_crit), r.beside(T_crit)}; }},
    {"critical isobar", Place::boundary, [](Random& r) { return Point{r.beside(p_crit), r.uniform(T_13, T_23)}; }},
    {"critical isotherm", Place::boundary, [](Random& r) { return Point{r.uniform(p_13, p_high), r.beside(T_crit)}; }},
    {"critical isochore", Place::boundary, [](Random& r) { const double t = T_crit + r.log_uniform(1e-12, 150);
        return Point{r.beside(call<POTD>(t, 322.0)), t}; }},
    {"bands of the volume equations", Place::boundary, [](Random& r) {
        return Point{r.beside(r.one_of({19.00881189173929, 20.5, 21.0433673189753, 22.5, 23, 25, 40})), r.uniform(T_13, 720)}; }},
    {"error of the equation of B23", Place::boundary, [](Random& r) { const double t = r.uniform(T_13, T_23);
        return Point{call<FB23>(t) * (1 + r.offset(1e-7, 5e-5)), t}; }}};
// clang-format on

State state(const Point& point) {
    State at;
    at.fill(bound::not_a_number);
    const auto [of_p, of_T, of_x] = point;
    at[bound::wavelength] = 0.5;
    at[bound::tolerance] = 1e-6;
    at[bound::p] = of_p;
    at[bound::T] = of_T;
    at[bound::x] = of_x < 0 ? 0.5 : of_x;
    const bool wet = of_x >= 0;
    const int found = static_cast<int>(wet ? (of_p > 0 ? 4 : 0) : call<REGIONPT>(of_p, of_T));
    if (found == 0 || (found == 4 && !wet)) return at;
    at.region = found;
    at[bound::v] = wet ? call<VOTX>(of_T, of_x) : call<VOPT>(of_p, of_T);
    at[bound::d] = at[bound::d_start] = 1 / at[bound::v];
    at[bound::h] = wet ? call<HOTX>(of_T, of_x) : call<HOPT>(of_p, of_T);
    at[bound::s] = wet ? call<SOTX>(of_T, of_x) : call<SOPT>(of_p, of_T);
    return at;
}

bound::Values no_state(Random& random) {
    bound::Values at{};
    for (double& value : at)
        value = random.one_of({bound::infinity, -bound::infinity, 0, -0.0, -1, 1e308, -1e308, 1e-6,
                               0.5, 3, 25, 300, 650, 1500, 2800, random.uniform(0, 14),
                               random.uniform(0, 7400), random.log_uniform(1e-3, 1e3)});
    return at;
}

int states(double share) {
    const char* text = std::getenv("VAPRIX_TEST_STATES");
    return static_cast<int>(share * (text != nullptr && *text != '\0' ? std::stod(text) : 100000)) +
           1;
}

}  // namespace strata
