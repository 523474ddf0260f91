// SPDX-License-Identifier: MIT
// Every property of a single phase, by every export that answers it, against quadruple precision at
// the state that the export's family finds: the name of an export is its property and its family.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "reference/properties.hpp"
#include "reference/sampling.hpp"
#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"
#include "regions/region5.hpp"

namespace {

using namespace reference;
using bound::call;

double tolerance_of(const Property& property, const Known& x) {
    const bool cancels = x.region == 3;  // region 1 has other sums where the published ones cancel
    switch (property.kind) {
        case first: return rounding_tolerance(false, x);
        case second: return rounding_tolerance(cancels, x);
        case formula: return 3 * rounding_tolerance(cancels, x);
        default: return std::max(1e-12, 3 * rounding_tolerance(cancels, x));
    }
}

// The state of a family at given values, and what is added to the tolerance; none where the family
// has no single phase there.
struct Found {
    Known x;
    double extra = 0;
};
using Resolver = std::optional<Found> (*)(const strata::State&);

Found in_region(int region, double p, double t, Quad d3) {
    return {Known(region, region == 3 ? d3 : Quad(p), t, p)};
}
bool single(const strata::State& at) { return at.region != 4; }

// the volume of the published equation of region 3
double v_of(const double* p, const double* t) {
    int region = 3;
    return VPT(p, t, &region);
}

// (p, T)
template <auto V>
std::optional<Found> of_pt(const strata::State& at) {
    if (!single(at)) return {};
    return in_region(at.region, at[bound::p], at[bound::T],
                     1 / Quad(call<V>(at[bound::p], at[bound::T])));
}
std::optional<Found> of_pt_o(const strata::State& at) {
    if (!single(at)) return {};
    return in_region(at.region, at[bound::p], at[bound::T], call<DOTP>(at[bound::T], at[bound::p]));
}
template <int region>
std::optional<Found> native(const strata::State& at) {
    if (at.region != region) return {};
    return in_region(region, at[bound::p], at[bound::T], 1 / Quad(at[bound::v]));
}
// (T, density): what a rounding of the density makes of a pressure that is solved for is much in a
// liquid. Beside a boundary the density may belong to the neighbour.
std::optional<Found> of_td(const strata::State& at) {
    const double p = at[bound::p], t = at[bound::T], d = at[bound::d];
    if (!single(at) || call<REGIONTV>(t, 1 / d) != at.region || call<XOTD>(t, d) >= 0) return {};
    Found found = in_region(at.region, p, t, d);
    if (at.region == 3) found.x.given = found.x.p();
    found.extra = 4e-16 * static_cast<double>(1 / (p * magnitude(found.x.v_p()) / found.x.v()));
    return found;
}
// p and a second variable: the temperature is the family's, and so is the density of region 3, of p, T
// and the variable
template <auto Region, auto T, bound::Name y, auto density>
std::optional<Found> of_py(const strata::State& at) {
    const double p = at[bound::p], t = call<T>(p, at[y]);
    const int region = static_cast<int>(call<Region>(p, at[y]));
    // at the saturation line of region 3 the O-family keeps a distance of 1e-12 K and may mix
    const bool at_line = p < 22.064 && std::fabs(t - call<TOP>(p)) < 2e-12;
    if (!single(at) || region == 0 || region == 4 || at_line) return {};
    return in_region(region, p, t, region == 3 ? density(p, t, at[y]) : Quad(0));
}
template <auto D>
Quad of_export(double p, double /* t */, double y) {
    return call<D>(p, y);
}
Quad of_volume(double /* p */, double /* t */, double v) { return 1 / Quad(v); }
Quad of_published_volume(double p, double t, double /* y */) { return 1 / Quad(call<v_of>(p, t)); }
template <const auto& choice>
Quad of_backward_volume(double p, double /* t */, double y) {
    return 1 / choice(p, y)(p, y);
}
// Saturated states: T as given or made of p; densities above 623.15 K by temperature or pressure.
enum Phase { liquid, vapour };
enum By { given_t, t_of_p, p_backward, p_exact };
template <By by, Phase phase>
std::optional<Found> saturated(const strata::State& at) {
    constexpr double T_13 = 623.15, T_solved = 647.09;  // closer to Tc it is a matter of rounding
    if (single(at) || at[bound::T] > T_solved) return {};
    const double p = by == given_t || by == t_of_p ? call<POT>(at[bound::T]) : at[bound::p];
    const double t = by == given_t ? at[bound::T] : by == p_backward ? call<TBP>(p) : call<TOP>(p);
    if ((t > T_13) != (at[bound::T] > T_13)) return {};
    const double d = by == given_t      ? (phase == liquid ? call<DLOT>(t) : call<DVOT>(t))
                     : by == p_backward ? 1 / (phase == liquid ? call<V1BP>(p) : call<V2BP>(p))
                                        : (phase == liquid ? call<DLOP>(p) : call<DVOP>(p));
    Found found = in_region(t > T_13 ? 3 : phase == liquid ? 1 : 2, p, t, d);
    // a reciprocal of the density that the export has
    if (by == p_backward && t > T_13)
        found.extra = static_cast<double>(1e-16 * found.x.p() / (found.x.p_d() * found.x.d()));
    return found;
}

struct Family {
    const char* suffix;
    Resolver resolve;
    std::string except;  // stems that are resolved by `other`
    Resolver other = nullptr;
};
const Family families[] = {
    {"PT1N", native<1>, ""},
    {"PT2N", native<2>, ""},
    {"PT5N", native<5>, ""},
    {"VT3N", native<3>, ""},
    {"BPT", of_pt<VBPT>, ""},
    {"OPT", of_pt_o, ""},
    {"OTP", of_pt_o, ""},
    {"OTD", of_td, ""},
    {"BPH", of_py<REGIONPH, TBPH, bound::h, of_published_volume>, " D ",
     of_py<REGIONPH, TBPH, bound::h, of_backward_volume<published::v3_ph<Quad>>>},
    {"BPS", of_py<REGIONPS, TBPS, bound::s, of_published_volume>, " D ",
     of_py<REGIONPS, TBPS, bound::s, of_backward_volume<published::v3_ps<Quad>>>},
    {"OPH", of_py<REGIONPH, TOPH, bound::h, of_export<DOPH>>, ""},
    {"OPS", of_py<REGIONPS, TOPS, bound::s, of_export<DOPS>>, ""},
    {"BPV", of_py<REGIONPV, TBPV, bound::v, of_volume>, ""},
    {"OPV", of_py<REGIONPV, TOPV, bound::v, of_volume>, ""},
    {"1BT", saturated<given_t, liquid>, ""},
    {"2BT", saturated<given_t, vapour>, ""},
    {"LOT", saturated<given_t, liquid>, ""},
    {"VOT", saturated<given_t, vapour>, ""},
    {"1OT", saturated<given_t, liquid>, " H S V CP W ", saturated<t_of_p, liquid>},
    {"2OT", saturated<given_t, vapour>, " H S V CP W ", saturated<t_of_p, vapour>},
    {"1BP", saturated<p_backward, liquid>, ""},
    {"2BP", saturated<p_backward, vapour>, ""},
    {"1OP", saturated<p_exact, liquid>, ""},
    {"2OP", saturated<p_exact, vapour>, ""},
    {"LOP", saturated<p_exact, liquid>, ""},
    {"VOP", saturated<p_exact, vapour>, ""},
    {"PT", of_pt<v_of>, ""},  // region given
};

struct Case {
    const bound::Export* function;
    const Property* property;
    const Family* family;
    bool other;
};
std::vector<Case> cases() {
    std::vector<Case> all;
    for (const bound::Export& function : bound::exports())
        for (const Family& family : families) {
            const std::string& name = function.name;
            const std::string suffix = family.suffix;
            if (name.size() <= suffix.size() ||
                name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
                continue;
            if ((suffix == "PT") != function.region) continue;
            const std::string stem = name.substr(0, name.size() - suffix.size());
            const auto property = properties.find(stem);
            if (property == properties.end()) continue;
            const bool other = family.except.find(" " + stem + " ") != std::string::npos;
            all.push_back({&function, &property->second, &family, other});
        }
    return all;
}

// Where every export of a transport property has an answer.
bool answers(const Case& row, const Known& x) {
    const double hottest = row.function->name.rfind("REF", 0) == 0 ? 773.15 : 1073.15;
    return row.property->kind != transport || (x.t >= 273.15 && x.t <= hottest);
}

TEST(Properties, OfEveryFamily) {
    const std::vector<Case> all = cases();
    EXPECT_EQ(all.size(), 299u);  // of the 439 exports
    Deviations deviations;
    std::map<const bound::Export*, int> visits;
    strata::sweep(0.003, 100, [&](const strata::Stratum&, const strata::State& at) {
        std::map<Resolver, std::optional<Found>> found;
        for (const Case& row : all) {
            const Resolver resolve = row.other ? row.family->other : row.family->resolve;
            if (found.count(resolve) == 0) found.emplace(resolve, resolve(at));
            const auto& of = found.at(resolve);
            if (!of || !answers(row, of->x)) continue;
            const Known& x = of->x;
            const double tolerance = tolerance_of(*row.property, x) + of->extra;
            if (!(tolerance < 1)) continue;  // beside the critical point rounding leaves no digit
            ++visits[row.function];
            deviations.check(row.function->name + " region " + std::to_string(of->x.region),
                             (*row.function)(at, of->x.region), row.property->of(x),
                             scale_of(*row.property, x), tolerance,
                             {at[bound::p], at[bound::T], at[bound::x]});
        }
    });
    for (const Case& row : all) EXPECT_GT(visits[row.function], 0) << row.function->name;
}

// A value with its slopes, as the iterations take them from shared sums.
TEST(Properties, SlopesForTheIterations) {
    using vaprix::region1, vaprix::region2, vaprix::region3, vaprix::region5;
    struct Sized {
        Quad value, size;  // what is expected and what its rounding is measured against
    };
    Deviations deviations;
    strata::sweep(0.001, 200, [&](const strata::Stratum&, const strata::State& at) {
        const double p = at[bound::p], t = at[bound::T], d = at[bound::d];
        const auto found = single(at) ? of_pt_o(at) : std::nullopt;
        if (!found) return;
        const Known& x = found->x;
        const auto check = [&](const std::string& name, double got, const Sized& want) {
            deviations.check(name + " region " + std::to_string(x.region), got, want.value,
                             want.size, 3 * rounding_tolerance(true, x), {p, t});
        };
        const auto tangent = [&](const std::string& name, const vaprix::Tangent<double>& got,
                                 const Sized& y, const Sized& slope) {
            check(name, got.y, y);
            check(name + ", slope", got.y_x, slope);
        };
        const auto pair = [&](const std::string& name, const vaprix::TangentPair<double>& got,
                              const Sized(&want)[6]) {
            const double all[] = {got.a, got.a_x, got.a_y, got.b, got.b_x, got.b_y};
            for (std::size_t k = 0; k < 6; ++k) check(name + std::to_string(k), all[k], want[k]);
        };
        const auto itself = [](Quad value) { return Sized{value, magnitude(value)}; };
        const Quad R = gas_constant, r_ln_p = R * published::logarithm(Quad(p));
        const Sized h = {x.h(), magnitude(x.h()) + R * t}, s = {x.s(), magnitude(x.s()) + R};
        const Sized v = itself(x.v()), v_p = itself(x.v_p()), cp = itself(x.cp());
        const Sized v_t = {x.v_t, magnitude(x.v_t) + x.v() / t}, s_t = itself(x.cp() / t);
        const Sized h_p = {x.h_p, magnitude(x.h_p) + 1}, s_p = {-1000 * x.v_t, 1000 * v_t.size};
        const auto gibbs = [&](auto of) {
            tangent("h by T", of.h_tangent_t(p, t), h, cp);
            tangent("h by p", of.h_tangent_p(p, t), h, h_p);
            tangent("v by T", of.v_tangent_t(p, t), v, v_t);
            tangent("v by p", of.v_tangent_p(p, t), v, v_p);
            pair("h, s", of.hs_tangents(p, t), {h, h_p, cp, s, s_p, s_t});
        };
        const auto vapour = [&](auto of) {
            const Sized s_ln = {x.s() + r_ln_p, s.size}, s_ln_p = {s_p.value + R / p, s_p.size};
            gibbs(of);
            tangent("s + R ln p by T", of.s_plus_r_ln_p_tangent_t(p, t), s_ln, s_t);
            tangent("s + R ln p by p", of.s_plus_r_ln_p_tangent_p(p, t), s_ln, s_ln_p);
        };
        if (x.region == 1) {
            gibbs(region1{});
            tangent("s by T", region1::s_tangent_t(p, t), s, s_t);
            tangent("s by p", region1::s_tangent_p(p, t), s, s_p);
        } else if (x.region == 2) {
            vapour(region2{});
        } else if (x.region == 5) {
            vapour(region5{});
        } else {
            const Quad by_t = 1000 * x.p_t() / x.d(), by_d = 1000 * x.p_d() / x.d();
            const Sized p3 = itself(x.p()), p_d = itself(x.p_d()), p_t = itself(x.p_t());
            const Sized h_d = {by_d - t * by_t / x.d(), by_d + t * by_t / x.d()};
            const Sized h_t = itself(x.cv() + by_t), s_t3 = itself(x.cv() / t);
            const Sized s_d = itself(-by_t / x.d());
            pair("p, h", region3::ph_tangents(d, t), {p3, p_d, p_t, h, h_d, h_t});
            pair("p, s", region3::ps_tangents(d, t), {p3, p_d, p_t, s, s_d, s_t3});
            pair("h, s", region3::hs_tangents(d, t), {h, h_d, h_t, s, s_d, s_t3});
            tangent("p by T", region3::p_tangent_t(d, t), p3, p_t);
            tangent("h by d", region3::h_tangent_d(d, t), h, h_d);
            tangent("s by d", region3::s_tangent_d(d, t), s, s_d);
        }
    });
}

}  // namespace
