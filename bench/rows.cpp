// SPDX-License-Identifier: MIT
#include "rows.hpp"

#include <cstddef>

#include "baseline.hpp"
#include "equations.hpp"
#include "vaprix.h"

namespace {

namespace pt = vaprix::pt;
using vaprix::region1;
using vaprix::region2;
using vaprix::region3;
using namespace equations;

using Variable = double State::*;
constexpr Variable p = &State::p, T = &State::t, d = &State::d, h = &State::h, s = &State::s,
                   x = &State::x;

// The one loop everything is measured in.
template <class Call>
[[gnu::flatten]] void loop(benchmark::State& run, const std::vector<State>& all) {
    const State* state = all.data();
    std::size_t k = 0;
    for (auto _ : run) {
        benchmark::DoNotOptimize(Call::of(state[k]));
        k = (k + 1) & (count - 1);
    }
}

template <auto function, Variable... variables>
struct ByReference {
    static double of(const State& a) { return function(&(a.*variables)...); }
};
template <auto function, Variable... variables>
struct ByValue {
    static double of(const State& a) { return function((a.*variables)...); }
};

// An export of these variables, and an equation of these variables.
template <auto function, Variable... variables>
constexpr Loop call = loop<ByReference<function, variables...>>;
template <auto function, Variable... variables>
constexpr Loop equation = loop<ByValue<function, variables...>>;

template <int region>
struct HptGiven {
    static double of(const State& a) {
        int given = region;
        return HPT(&a.p, &a.t, &given);
    }
};

struct Diter3 {
    static double of(const State& a) {
        const double start = 1.01 * a.d;
        const double tolerance = 1e-6;
        return DITER3(&a.p, &a.t, &start, &tolerance);
    }
};

// What a region's rows are made of: the plain equations, and on what the basic equation depends.
struct One : baseline::Gibbs<baseline::Region1> {
    static constexpr int region = 1;
    static constexpr Set set = Set::region1;
    static constexpr Variable first = p;
    static constexpr auto plain_t_ph = baseline::t1_ph, plain_t_ps = baseline::t1_ps;
    static constexpr auto t_ph = region1::t_ph, t_ps = region1::t_ps;
};
struct Two : baseline::Gibbs<baseline::Region2> {
    static constexpr int region = 2;
    static constexpr Set set = Set::region2;
    static constexpr Variable first = p;
    static constexpr auto plain_t_ph = baseline::t2_ph, plain_t_ps = baseline::t2_ps;
    static constexpr auto t_ph = region2::t_ph, t_ps = region2::t_ps;
};
struct Three : baseline::Region3 {
    static constexpr int region = 3;
    static constexpr Set set = Set::region3;
    static constexpr Variable first = d;
    // as the measure of a search for the volume: one evaluation of the pressure
    static constexpr auto v = baseline::Region3::p;
};
struct Five : baseline::Gibbs<baseline::Region5> {
    static constexpr int region = 5;
    static constexpr Set set = Set::region5;
    static constexpr Variable first = p;
};

constexpr pt::Property volume{region1::v, region2::v, region3::p, vaprix::region5::v};

// Term by term, and the floors of the O- and of the B-family.
template <class Region, auto function>
constexpr Loop plain = equation<function, Region::first, T>;
template <class Region, const Property& property>
constexpr Loop floor_o = equation<in<Region::region, property>, Region::first, T>;
template <class Region, const Property& property>
constexpr Loop floor_b = floor_o<Region, property>;
template <const Property& property>
constexpr Loop floor_b<Three, property> = equation<at_backward_volume<property>, p, T>;
template <>
constexpr Loop floor_b<Three, volume> = equation<region3::v_pt, p, T>;

using Rows = std::vector<Row>;

template <class R>
void add_pt(Rows& rows) {
    constexpr Set in = R::set;
    rows.insert(rows.end(),
                {
                    {"REGIONPT", in, call<REGIONPT, p, T>, equation<baseline::region, p, T>},
                    {"HPT", in, loop<HptGiven<R::region>>, plain<R, R::h>, floor_b<R, pt::h>},
                    {"VBPT", in, call<VBPT, p, T>, plain<R, R::v>, floor_b<R, volume>},
                    {"HBPT", in, call<HBPT, p, T>, plain<R, R::h>, floor_b<R, pt::h>},
                    {"SBPT", in, call<SBPT, p, T>, plain<R, R::s>, floor_b<R, pt::s>},
                    {"UBPT", in, call<UBPT, p, T>, plain<R, R::u>, floor_b<R, pt::u>},
                    {"FBPT", in, call<FBPT, p, T>, plain<R, R::f>, floor_b<R, pt::f>},
                    {"GBPT", in, call<GBPT, p, T>, plain<R, R::g>, floor_b<R, pt::g>},
                    {"CPBPT", in, call<CPBPT, p, T>, plain<R, R::cp>, floor_b<R, pt::cp>},
                    {"CVBPT", in, call<CVBPT, p, T>, plain<R, R::cv>, floor_b<R, pt::cv>},
                    {"WBPT", in, call<WBPT, p, T>, plain<R, R::w>, floor_b<R, pt::w>},
                    {"DOPT", in, call<DOPT, p, T>, plain<R, R::v>, floor_o<R, volume>},
                    {"VOPT", in, call<VOPT, p, T>, plain<R, R::v>, floor_o<R, volume>},
                    {"HOPT", in, call<HOPT, p, T>, plain<R, R::h>, floor_o<R, pt::h>},
                    {"SOPT", in, call<SOPT, p, T>, plain<R, R::s>, floor_o<R, pt::s>},
                    {"CPOPT", in, call<CPOPT, p, T>, plain<R, R::cp>, floor_o<R, pt::cp>},
                    {"WOPT", in, call<WOPT, p, T>, plain<R, R::w>, floor_o<R, pt::w>},
                    {"POTD", in, call<POTD, T, d>, plain<R, R::v>, floor_o<R, volume>},
                    {"HOTD", in, call<HOTD, T, d>, plain<R, R::h>, floor_o<R, pt::h>},
                });
}

// Transport and other physical properties, derived properties and pairs, which have no floor.
template <class R>
void add_further(Rows& rows) {
    constexpr Set in = R::set;
    rows.insert(rows.end(), {
                                {"ETABPT", in, call<ETABPT, p, T>},
                                {"TCOBPT", in, call<TCOBPT, p, T>},
                                {"PRBPT", in, call<PRBPT, p, T>},
                                {"EPSBPT", in, call<EPSBPT, p, T>},
                                {"ETAOTD", in, call<ETAOTD, T, d>},
                                {"ALVBPT", in, call<ALVBPT, p, T>},
                                {"CAPBPT", in, call<CAPBPT, p, T>},
                                {"FUGBPT", in, call<FUGBPT, p, T>},
                                {"PBHS", in, call<PBHS, h, s>},
                                {"TBHS", in, call<TBHS, h, s>},
                                {"TOHS", in, call<TOHS, h, s>},
                                {"TOPV", in, call<TOPV, p, &State::v>},
                                {"POTH", in, call<POTH, T, h>},
                                {"POTS", in, call<POTS, T, s>},
                                {"TBVH", in, call<TBVH, &State::v, h>},
                                {"TBVS", in, call<TBVS, &State::v, s>},
                            });
}

// What needs a search: one evaluation of what is searched on.
template <class R>
void add_searched(Rows& rows) {
    constexpr Set in = R::set;
    rows.insert(rows.end(), {
                                {"REGIONPH", in, call<REGIONPH, p, h>},
                                {"TOPH", in, call<TOPH, p, h>, plain<R, R::h>, floor_o<R, pt::h>},
                                {"VOPH", in, call<VOPH, p, h>, plain<R, R::h>, floor_o<R, pt::h>},
                                {"SOPH", in, call<SOPH, p, h>, plain<R, R::h>, floor_o<R, pt::h>},
                                {"CPOPH", in, call<CPOPH, p, h>, plain<R, R::h>, floor_o<R, pt::h>},
                                {"REGIONPS", in, call<REGIONPS, p, s>},
                                {"TOPS", in, call<TOPS, p, s>, plain<R, R::s>, floor_o<R, pt::s>},
                                {"HOPS", in, call<HOPS, p, s>, plain<R, R::s>, floor_o<R, pt::s>},
                            });
}

template <class R>
void add_backward(Rows& rows) {
    constexpr Set in_ = R::set;
    constexpr int k = R::region;
    constexpr auto a = R::plain_t_ph, b = R::plain_t_ps;
    rows.insert(rows.end(),
                {
                    {"TBPH", in_, call<TBPH, p, h>, equation<a, p, h>, equation<R::t_ph, p, h>},
                    {"VBPH", in_, call<VBPH, p, h>, equation<at_t<R::v, a>, p, h>,
                     equation<at_t<in<k, pt::v>, R::t_ph>, p, h>},
                    {"SBPH", in_, call<SBPH, p, h>, equation<at_t<R::s, a>, p, h>,
                     equation<at_t<in<k, pt::s>, R::t_ph>, p, h>},
                    {"WBPH", in_, call<WBPH, p, h>, equation<at_t<R::w, a>, p, h>,
                     equation<at_t<in<k, pt::w>, R::t_ph>, p, h>},
                    {"TBPS", in_, call<TBPS, p, s>, equation<b, p, s>, equation<R::t_ps, p, s>},
                    {"HBPS", in_, call<HBPS, p, s>, equation<at_t<R::h, b>, p, s>,
                     equation<at_t<in<k, pt::h>, R::t_ps>, p, s>},
                });
}

void add_region3(Rows& rows) {
    constexpr Set in = Set::region3;
    using baseline::Region3;
    rows.insert(rows.end(), {
                                {"HVT3N", in, call<HVT3N, &State::v, T>, equation<Region3::h, d, T>,
                                 equation<region3::h, d, T>},
                                {"DITER3", in, loop<Diter3>, equation<Region3::p, d, T>,
                                 equation<region3::p, d, T>},
                                {"TBPH", in, call<TBPH, p, h>, equation<baseline::t_ph, p, h>,
                                 equation<region3::t_ph, p, h>},
                                {"DBPH", in, call<DBPH, p, h>, equation<baseline::v_ph, p, h>,
                                 equation<region3::v_ph, p, h>},
                                {"SBPH", in, call<SBPH, p, h>},
                                {"TBPS", in, call<TBPS, p, s>, equation<baseline::t_ps, p, s>,
                                 equation<region3::t_ps, p, s>},
                                {"DBPS", in, call<DBPS, p, s>, equation<baseline::v_ps, p, s>,
                                 equation<region3::v_ps, p, s>},
                                {"HBPS", in, call<HBPS, p, s>},
                            });
}

void add_region5(Rows& rows) {
    constexpr Set in = Set::region5;
    rows.insert(rows.end(),
                {
                    {"TPH5N", in, call<TPH5N, p, h>, plain<Five, Five::h>, floor_o<Five, pt::h>},
                    {"TPS5N", in, call<TPS5N, p, s>, plain<Five, Five::s>, floor_o<Five, pt::s>},
                });
}

// The saturation line up to 623.15 K and beyond, and wet steam.
void add_saturation(Rows& rows) {
    constexpr Set line = Set::line, dense = Set::dense, wet = Set::wet;
    constexpr auto ps = baseline::psat, ts = baseline::tsat;
    constexpr auto psat = vaprix::psat<double>, tsat = vaprix::tsat<double>;
    rows.insert(
        rows.end(),
        {
            {"PBT", line, call<PBT, T>, equation<ps, T>, equation<psat, T>},
            {"TBP", line, call<TBP, p>, equation<ts, p>, equation<tsat, p>},
            {"TOP", line, call<TOP, p>, equation<ts, p>, equation<tsat, p>},
            {"DTBPDP", line, call<DTBPDP, p>, equation<baseline::tsat_p, p>,
             equation<vaprix::tsat_p<double>, p>},
            {"H1BT", line, call<H1BT, T>, equation<of_t<One::h, ps>, T>,
             equation<of_t<region1::h, psat>, T>},
            {"H2BT", line, call<H2BT, T>, equation<of_t<Two::h, ps>, T>,
             equation<of_t<region2::h, psat>, T>},
            {"H1BP", line, call<H1BP, p>, equation<of_p<One::h, ts>, p>,
             equation<of_p<region1::h, tsat>, p>},
            {"H2BP", line, call<H2BP, p>, equation<of_p<Two::h, ts>, p>,
             equation<of_p<region2::h, tsat>, p>},
            {"H1OT", line, call<H1OT, T>, equation<of_t<One::h, ps>, T>,
             equation<of_t<region1::h, psat>, T>},
            {"HVAPOT", line, call<HVAPOT, T>, equation<vaporisation<One::h, Two::h, ps>, T>,
             equation<vaporisation<region1::h, region2::h, psat>, T>},
            {"H1BT", dense, call<H1BT, T>, equation<Three::h, d, T>, equation<region3::h, d, T>},
            {"HBTX", wet, call<HBTX, T, x>, equation<of_tx<One::h, Two::h, ps>, T, x>,
             equation<of_tx<region1::h, region2::h, psat>, T, x>},
            {"HOTX", wet, call<HOTX, T, x>, equation<of_tx<One::h, Two::h, ps>, T, x>,
             equation<of_tx<region1::h, region2::h, psat>, T, x>},
            {"DOPX", wet, call<DOPX, p, x>, equation<of_px<One::v, Two::v, ts>, p, x>,
             equation<of_px<region1::v, region2::v, tsat>, p, x>},
            {"REGIONPH", wet, call<REGIONPH, p, h>},
            {"TBPH", wet, call<TBPH, p, h>, equation<ts, p>, equation<tsat, p>},
            {"XBPH", wet, call<XBPH, p, h>, equation<x_of_py<One::h, Two::h, ts>, p, h>,
             equation<x_of_py<region1::h, region2::h, tsat>, p, h>},
            {"SBPH", wet, call<SBPH, p, h>},
            {"TOPH", wet, call<TOPH, p, h>, equation<ts, p>, equation<tsat, p>},
            {"XOTD", wet, call<XOTD, T, d>, equation<x_of_tv<One::v, Two::v, ps>, T, &State::v>,
             equation<x_of_tv<region1::v, region2::v, psat>, T, &State::v>},
            {"POTD", wet, call<POTD, T, d>, equation<ps, T>, equation<psat, T>},
            {"HOTD", wet, call<HOTD, T, d>},
        });
}

void add_mixed(Rows& rows) {
    constexpr Set in = Set::mixed;
    rows.insert(rows.end(),
                {
                    {"REGIONPT", in, call<REGIONPT, p, T>, equation<baseline::region, p, T>},
                    {"HBPT", in, call<HBPT, p, T>},
                    {"HOPT", in, call<HOPT, p, T>},
                    {"TBPH", in, call<TBPH, p, h>},
                    {"TOPH", in, call<TOPH, p, h>},
                    {"HOTD", in, call<HOTD, T, d>},
                });
}

}  // namespace

const std::vector<Row>& rows() {
    static const Rows table = [] {
        Rows all;
        // the cost of a bare call
        all.push_back(
            {"HPT1N", Set::region1, call<HPT1N, p, T>, plain<One, One::h>, floor_o<One, pt::h>});
        add_pt<One>(all);
        add_pt<Two>(all);
        add_pt<Three>(all);
        add_pt<Five>(all);
        add_backward<One>(all);
        add_backward<Two>(all);
        add_region3(all);
        add_region5(all);
        add_searched<One>(all);
        add_searched<Two>(all);
        add_searched<Three>(all);
        add_searched<Five>(all);
        add_further<One>(all);
        add_further<Two>(all);
        add_further<Three>(all);
        add_saturation(all);
        add_mixed(all);
        return all;
    }();
    return table;
}
