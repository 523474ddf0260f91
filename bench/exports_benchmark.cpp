// SPDX-License-Identifier: MIT
//
// Cost of each export through its exported symbol, by reference, over random states; beside it, in the
// same loop and over the same states, the term-by-term evaluation of the same equation and the floor:
// the library's own equation alone, inlined, with no region decision and no call. Last, the throughput
// of two threads beside that of one: on an idle machine a ratio below 2 means that they disturb one
// another. So does, on any machine, a processor time of a call that is longer in company than alone.
#include <benchmark/benchmark.h>

#include <map>
#include <regex>
#include <string>
#include <type_traits>
#include <utility>

#include "reference/published.hpp"
#include "regions/b23.hpp"
#include "state/properties.hpp"
#include "states.hpp"
// clang-format off: the equations as source, so that they inline into the loops
#include "regions/region1.cpp"
#include "regions/region2.cpp"
#include "regions/region3.cpp"
#include "regions/region3_density.cpp"
#include "regions/region5.cpp"
#include "regions/saturation_line.cpp"
// clang-format on

namespace {

namespace property = vaprix::property;
using vaprix::region1;
using vaprix::region2;
using vaprix::region3;

using Variable = double State::*;
constexpr Variable p = &State::p, T = &State::t, d = &State::d, v = &State::v, h = &State::h,
                   s = &State::s, x = &State::x;

// Times one call on one state after the other, each thread from a place of its own: the one loop
// everything is measured in.
using Loop = void (*)(benchmark::State&, const State*);
template <auto of>
[[gnu::flatten]] void loop(benchmark::State& run, const State* all) {
    auto k = static_cast<std::size_t>(run.thread_index()) * count / 2;
    for (auto _ : run) {
        benchmark::DoNotOptimize(of(all[k]));
        k = (k + 1) & (count - 1);
    }
}

// An export of these variables, and an equation of these variables.
template <auto function, Variable... variables>
constexpr Loop call = loop<[](const State& a) { return function(&(a.*variables)...); }>;
template <auto function, Variable... variables>
constexpr Loop equation = loop<[](const State& a) { return function((a.*variables)...); }>;

// What an export is compared with.
struct Beside {
    Loop plain = nullptr;  // term by term
    Loop floor = nullptr;
};

bool is_asked_for(const std::string& title) {
    static const std::regex filter(benchmark::GetBenchmarkFilter());
    return std::regex_search(title, filter);
}

// Registers an export of a set of states if the filter lets it through. Loops that exports share are
// measured once; the label of an export names what it is compared with.
class Rows {
    Set set;

    [[nodiscard]] std::string measure(Loop timed, const std::string& name,
                                      const std::string& label = "") const {
        static std::map<std::pair<Loop, Set>, std::string> names;
        if (timed == nullptr) return "";
        const auto [known, is_new] = names.try_emplace({timed, set}, name);
        if (is_new) {
            const auto run = [timed, set = set, label](benchmark::State& state) {
                timed(state, states(set).data());
                state.SetLabel(label);
            };
            benchmark::RegisterBenchmark(name.c_str(), run)->MinTime(0.05);
        }
        return known->second;
    }

public:
    explicit Rows(Set of) : set(of) {}
    void operator()(const char* name, Loop library, Beside beside = {}) const {
        const std::string title =
            std::string(name) + "/" + sets[static_cast<std::size_t>(set)].name;
        if (!is_asked_for(title)) return;
        const std::string plain = measure(beside.plain, title + ", term by term");
        const std::string floor = measure(beside.floor, title + ", floor");
        (void)measure(library, title, plain + "|" + floor);
    }
};

// Term by term: the published equations. They are not to be inlined.
using Published = published::State<double>;
using Of = double (Published::*)() const;
template <auto function>
constexpr auto apart = [](auto... of) __attribute__((noinline)) -> double {
    return function(of...);
};
template <int region, Of property>
constexpr auto published_of =
    apart<[](double p_or_d, double t) { return (Published(region, p_or_d, t).*property)(); }>;
template <published::Choice<double> choice>
constexpr auto published_by = apart<[](double a, double b) { return choice(a, b)(a, b); }>;
constexpr auto h1 = published_of<1, &Published::h>;
constexpr auto h2 = published_of<2, &Published::h>;
constexpr auto v1 = published_of<1, &Published::v>;
constexpr auto v2 = published_of<2, &Published::v>;
constexpr auto ps = apart<published::psat<double>>;
constexpr auto ts = apart<published::tsat<double>>;

// The library's equation of a property in a region, of (p, T), in region 3 of (density, T). Of the
// volume of region 3 it is the pressure, on which a search for the volume is made.
template <int region, const auto& of>
double in(double p_or_d, double t) {
    constexpr bool is_volume = std::is_same_v<decltype(of), decltype((property::v))>;
    if constexpr (region == 3 && is_volume) {
        return region3::p(p_or_d, t);
    } else {
        return vaprix::single<of>(vaprix::State{
            .region = static_cast<vaprix::Region>(region), .p = p_or_d, .t = t, .d = p_or_d});
    }
}

// Region 3 of (p, T) by the published backward volume.
template <const auto& of>
double by_backward_volume(double of_p, double of_t) {
    return vaprix::single<of>(vaprix::dense_state(of_p, of_t, 1 / region3::v_pt(of_p, of_t)));
}

// A property at the temperature of (p, y); an expression of (p, T) and more at the saturation pressure
// of T, at the saturation temperature of p; vapour less liquid; wet steam; its quality.
template <auto y, auto t_of>
double at_t(double of_p, double given) {
    return y(of_p, t_of(of_p, given));
}
template <auto y, auto psat>
constexpr auto of_t = [](double t, auto... more) { return y(psat(t), t, more...); };
template <auto y, auto tsat>
constexpr auto of_p =
    [](double pressure, auto... more) { return y(pressure, tsat(pressure), more...); };
template <auto y1, auto y2, auto psat>
double vaporisation(double t) {
    return of_t<y2, psat>(t) - of_t<y1, psat>(t);
}
template <auto y1, auto y2>
double mixture(double pressure, double t, double quality) {
    const double liquid = y1(pressure, t);
    return liquid + quality * (y2(pressure, t) - liquid);
}
template <auto y1, auto y2>
double quality_at(double pressure, double t, double y) {
    const double liquid = y1(pressure, t);
    return (y - liquid) / (y2(pressure, t) - liquid);
}

// Comparisons of the O- and of the B-family. Where a result is searched for: one evaluation of what is
// searched on.
template <int region>
constexpr Variable first = region == 3 ? d : p;
template <int region, Of property>
constexpr Of searched_on = region == 3 && property == &Published::v ? &Published::p : property;
template <int k, Of plain, const auto& own>
constexpr Beside o = {equation<published_of<k, searched_on<k, plain>>, first<k>, T>,
                      equation<in<k, own>, first<k>, T>};
template <int k, Of plain, const auto& own>
constexpr Beside b = o<k, plain, own>;
template <Of plain, const auto& own>
constexpr Beside b<3, plain, own> = {o<3, plain, own>.plain,
                                     equation<by_backward_volume<own>, p, T>};
template <auto plain, auto own, Variable... variables>
constexpr Beside both = {equation<plain, variables...>, equation<own, variables...>};

template <int region>
constexpr Set set_of = region == 5 ? Set::region5 : static_cast<Set>(region - 1);

template <int k>
void add_pt() {
    using P = Published;
    const Rows add(set_of<k>);
    add("REGIONPT", call<REGIONPT, p, T>, {equation<apart<published::region<double>>, p, T>});
    const auto hpt = loop<[](const State& a) {
        int given = k;
        return HPT(&a.p, &a.t, &given);
    }>;
    add("HPT", hpt, b<k, &P::h, property::h>);
    add("VBPT", call<VBPT, p, T>, b<k, &P::v, property::v>);
    add("HBPT", call<HBPT, p, T>, b<k, &P::h, property::h>);
    add("SBPT", call<SBPT, p, T>, b<k, &P::s, property::s>);
    add("UBPT", call<UBPT, p, T>, b<k, &P::u, property::u>);
    add("FBPT", call<FBPT, p, T>, b<k, &P::f, property::f>);
    add("GBPT", call<GBPT, p, T>, b<k, &P::g, property::g>);
    add("CPBPT", call<CPBPT, p, T>, b<k, &P::cp, property::cp>);
    add("CVBPT", call<CVBPT, p, T>, b<k, &P::cv, property::cv>);
    add("WBPT", call<WBPT, p, T>, b<k, &P::w, property::w>);
    add("DOPT", call<DOPT, p, T>, o<k, &P::v, property::v>);
    add("VOPT", call<VOPT, p, T>, o<k, &P::v, property::v>);
    add("HOPT", call<HOPT, p, T>, o<k, &P::h, property::h>);
    add("SOPT", call<SOPT, p, T>, o<k, &P::s, property::s>);
    add("CPOPT", call<CPOPT, p, T>, o<k, &P::cp, property::cp>);
    add("WOPT", call<WOPT, p, T>, o<k, &P::w, property::w>);
    add("POTD", call<POTD, T, d>, o<k, &P::v, property::v>);
    add("HOTD", call<HOTD, T, d>, o<k, &P::h, property::h>);
}

template <int k, auto plain_t_ph, auto t_ph, auto plain_t_ps, auto t_ps>
void add_backward() {
    using P = Published;
    constexpr auto v_k = published_of<k, &P::v>, h_k = published_of<k, &P::h>;
    constexpr auto s_k = published_of<k, &P::s>, w_k = published_of<k, &P::w>;
    const Rows add(set_of<k>);
    add("TBPH", call<TBPH, p, h>, both<plain_t_ph, t_ph, p, h>);
    add("VBPH", call<VBPH, p, h>,
        both<at_t<v_k, plain_t_ph>, at_t<in<k, property::v>, t_ph>, p, h>);
    add("SBPH", call<SBPH, p, h>,
        both<at_t<s_k, plain_t_ph>, at_t<in<k, property::s>, t_ph>, p, h>);
    add("WBPH", call<WBPH, p, h>,
        both<at_t<w_k, plain_t_ph>, at_t<in<k, property::w>, t_ph>, p, h>);
    add("TBPS", call<TBPS, p, s>, both<plain_t_ps, t_ps, p, s>);
    add("HBPS", call<HBPS, p, s>,
        both<at_t<h_k, plain_t_ps>, at_t<in<k, property::h>, t_ps>, p, s>);
}

template <int k>
void add_searched() {
    using P = Published;
    const Rows add(set_of<k>);
    add("REGIONPH", call<REGIONPH, p, h>);
    add("TOPH", call<TOPH, p, h>, o<k, &P::h, property::h>);
    add("VOPH", call<VOPH, p, h>, o<k, &P::h, property::h>);
    add("SOPH", call<SOPH, p, h>, o<k, &P::h, property::h>);
    add("CPOPH", call<CPOPH, p, h>, o<k, &P::h, property::h>);
    add("REGIONPS", call<REGIONPS, p, s>);
    add("TOPS", call<TOPS, p, s>, o<k, &P::s, property::s>);
    add("HOPS", call<HOPS, p, s>, o<k, &P::s, property::s>);
}

void add_region3() {
    using published::t3_ph, published::t3_ps, published::v3_ph, published::v3_ps;
    const Rows add(Set::region3);
    add("HVT3N", call<HVT3N, v, T>, o<3, &Published::h, property::h>);
    const auto diter3 = loop<[](const State& a) {
        const double start = 1.01 * a.d, tolerance = 1e-6;
        return DITER3(&a.p, &a.t, &start, &tolerance);
    }>;
    add("DITER3", diter3, o<3, &Published::v, property::v>);
    add("TBPH", call<TBPH, p, h>, both<published_by<t3_ph<double>>, region3::t_ph, p, h>);
    add("DBPH", call<DBPH, p, h>, both<published_by<v3_ph<double>>, region3::v_ph, p, h>);
    add("SBPH", call<SBPH, p, h>);
    add("TBPS", call<TBPS, p, s>, both<published_by<t3_ps<double>>, region3::t_ps, p, s>);
    add("DBPS", call<DBPS, p, s>, both<published_by<v3_ps<double>>, region3::v_ps, p, s>);
    add("HBPS", call<HBPS, p, s>);
}

void add_region5() {
    const Rows add(Set::region5);
    add("TPH5N", call<TPH5N, p, h>, o<5, &Published::h, property::h>);
    add("TPS5N", call<TPS5N, p, s>, o<5, &Published::s, property::s>);
}

// Transport and other physical properties, derived properties and pairs: compared with nothing.
void add_further(Set set) {
    const Rows add(set);
    add("ETABPT", call<ETABPT, p, T>);
    add("TCOBPT", call<TCOBPT, p, T>);
    add("PRBPT", call<PRBPT, p, T>);
    add("EPSBPT", call<EPSBPT, p, T>);
    add("ETAOTD", call<ETAOTD, T, d>);
    add("ALVBPT", call<ALVBPT, p, T>);
    add("CAPBPT", call<CAPBPT, p, T>);
    add("FUGBPT", call<FUGBPT, p, T>);
    add("PBHS", call<PBHS, h, s>);
    add("TBHS", call<TBHS, h, s>);
    add("TOHS", call<TOHS, h, s>);
    add("TOPV", call<TOPV, p, v>);
    add("POTH", call<POTH, T, h>);
    add("POTS", call<POTS, T, s>);
    add("TBVH", call<TBVH, v, h>);
    add("TBVS", call<TBVS, v, s>);
}

void add_line() {
    constexpr auto psat = vaprix::psat<double>, tsat = vaprix::tsat<double>;
    constexpr Beside h1_t = both<of_t<h1, ps>, of_t<region1::h, psat>, T>;
    constexpr auto ts_p = apart<published::tsat_p<double>>;
    const Rows add(Set::line);
    add("PBT", call<PBT, T>, both<ps, psat, T>);
    add("TBP", call<TBP, p>, both<ts, tsat, p>);
    add("TOP", call<TOP, p>, both<ts, tsat, p>);
    add("DTBPDP", call<DTBPDP, p>, both<ts_p, vaprix::tsat_p<double>, p>);
    add("H1BT", call<H1BT, T>, h1_t);
    add("H2BT", call<H2BT, T>, both<of_t<h2, ps>, of_t<region2::h, psat>, T>);
    add("H1BP", call<H1BP, p>, both<of_p<h1, ts>, of_p<region1::h, tsat>, p>);
    add("H2BP", call<H2BP, p>, both<of_p<h2, ts>, of_p<region2::h, tsat>, p>);
    add("H1OT", call<H1OT, T>, h1_t);
    add("HVAPOT", call<HVAPOT, T>,
        both<vaporisation<h1, h2, ps>, vaporisation<region1::h, region2::h, psat>, T>);
    Rows{Set::dense}("H1BT", call<H1BT, T>, o<3, &Published::h, property::h>);
}

void add_wet() {
    constexpr auto psat = vaprix::psat<double>, tsat = vaprix::tsat<double>;
    constexpr Beside h_tx =
        both<of_t<mixture<h1, h2>, ps>, of_t<mixture<region1::h, region2::h>, psat>, T, x>;
    constexpr Beside x_ph =
        both<of_p<quality_at<h1, h2>, ts>, of_p<quality_at<region1::h, region2::h>, tsat>, p, h>;
    const Rows add(Set::wet);
    add("HBTX", call<HBTX, T, x>, h_tx);
    add("HOTX", call<HOTX, T, x>, h_tx);
    add("DOPX", call<DOPX, p, x>,
        both<of_p<mixture<v1, v2>, ts>, of_p<mixture<region1::v, region2::v>, tsat>, p, x>);
    add("REGIONPH", call<REGIONPH, p, h>);
    add("TBPH", call<TBPH, p, h>, both<ts, tsat, p>);
    add("XBPH", call<XBPH, p, h>, x_ph);
    add("SBPH", call<SBPH, p, h>);
    add("TOPH", call<TOPH, p, h>, both<ts, tsat, p>);
    add("XOTD", call<XOTD, T, d>,
        both<of_t<quality_at<v1, v2>, ps>, of_t<quality_at<region1::v, region2::v>, psat>, T, v>);
    add("POTD", call<POTD, T, d>, both<ps, psat, T>);
    add("HOTD", call<HOTD, T, d>);
}

void add_mixed() {
    const Rows add(Set::mixed);
    add("REGIONPT", call<REGIONPT, p, T>, {equation<apart<published::region<double>>, p, T>});
    add("HBPT", call<HBPT, p, T>);
    add("HOPT", call<HOPT, p, T>);
    add("TBPH", call<TBPH, p, h>);
    add("TOPH", call<TOPH, p, h>);
    add("HOTD", call<HOTD, T, d>);
}

void add_threads() {
    const State* const all = states(Set::mixed).data();  // made before the threads start
    const auto add = [all](const char* title, Loop timed) {
        if (!is_asked_for(title)) return;
        const auto run = [timed, all](benchmark::State& state) { timed(state, all); };
        benchmark::RegisterBenchmark(title, run)->ThreadRange(1, 2)->UseRealTime();
    };
    add("HBPT/all regions", call<HBPT, p, T>);
    add("HOPT/all regions", call<HOPT, p, T>);
    add("TBPH/all regions", call<TBPH, p, h>);
    const auto failing = loop<[](const State& a) {
        const double outside = -a.p;
        return HOPT(&outside, &a.t);
    }>;
    add("HOPT/every call fails and stores its code", failing);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::AddCustomContext("compiler", BENCH_COMPILER);
    benchmark::AddCustomContext("flags", BENCH_FLAGS);
    published::equations<double>();  // read before anything is timed
    using published::only, published::t2_ph, published::t2_ps;
    // a bare call
    Rows{Set::region1}("HPT1N", call<HPT1N, p, T>, o<1, &Published::h, property::h>);
    add_pt<1>();
    add_pt<2>();
    add_pt<3>();
    add_pt<5>();
    add_backward<1, published_by<only<double, "t1_ph">>, region1::t_ph,
                 published_by<only<double, "t1_ps">>, region1::t_ps>();
    add_backward<2, published_by<t2_ph<double>>, region2::t_ph, published_by<t2_ps<double>>,
                 region2::t_ps>();
    add_region3();
    add_region5();
    add_searched<1>();
    add_searched<2>();
    add_searched<3>();
    add_searched<5>();
    for (const Set set : {Set::region1, Set::region2, Set::region3}) add_further(set);
    add_line();
    add_wet();
    add_mixed();
    add_threads();
    benchmark::RunSpecifiedBenchmarks(".");
}
