// SPDX-License-Identifier: MIT
//
// Cost of each export through its exported symbol, over random states of its region, against the
// term-by-term evaluation of the same equation in the same run. After Google Benchmark's own lines
// a table gives, for each export, nanoseconds a call, the ratio of the baseline's time to it, and
// its cost in units of HPT1N.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "baseline.hpp"
#include "states.hpp"
#include "vaprix.h"

namespace {

using Export1 = double (*)(const double*);
using Export2 = double (*)(const double*, const double*);
using Plain1 = double (*)(double);
using Plain2 = double (*)(double, double);
using Variable = double State::*;

// What stands in the result table, in order.
std::vector<std::string> rows;

template <class Call>
void measure(const std::string& name, int region, Call call) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& run) {
        const std::vector<State>& all = states(region);
        std::size_t k = 0;
        for (auto _ : run) {
            benchmark::DoNotOptimize(call(all[k]));
            k = (k + 1) % all.size();
        }
    });
}

template <class Call>
void add_plain(const std::string& name, int region, Call call) {
    measure("term by term/" + name, region, call);
}

void add(const std::string& name, int region, Variable x, Export1 function,
         Plain1 plain = nullptr) {
    rows.push_back(name);
    measure(name, region, [=](const State& s) { return function(&(s.*x)); });
    if (plain == nullptr) return;
    add_plain(name, region, [=](const State& s) { return plain(s.*x); });
}

void add(const std::string& name, int region, Variable x, Variable y, Export2 function,
         Plain2 plain = nullptr) {
    rows.push_back(name);
    measure(name, region, [=](const State& s) { return function(&(s.*x), &(s.*y)); });
    if (plain == nullptr) return;
    // region 3 is given the volume that the library has to find
    const bool by_volume = region == 3 && x == &State::p && y == &State::t;
    const Variable first = by_volume && plain != baseline::region ? &State::v : x;
    add_plain(name, region, [=](const State& s) { return plain(s.*first, s.*y); });
}

void add_given(const std::string& name, int region,
               double (*function)(const double*, const double*, int*), Plain2 plain) {
    rows.push_back(name);
    measure(name, region, [=](const State& s) {
        int given = region;
        return function(&s.p, &s.t, &given);
    });
    add_plain(name, region, [=](const State& s) { return plain(region == 3 ? s.v : s.p, s.t); });
}

constexpr Variable p = &State::p, T = &State::t, v = &State::v, h = &State::h, s = &State::s;

template <class B>
void add_native(int region) {
    const std::string n = std::to_string(region) + "N";
    const bool one = region == 1;
    const bool two = region == 2;
    add("VPT" + n, region, p, T, one ? VPT1N : two ? VPT2N : VPT5N, B::v);
    add("HPT" + n, region, p, T, one ? HPT1N : two ? HPT2N : HPT5N, B::h);
    add("SPT" + n, region, p, T, one ? SPT1N : two ? SPT2N : SPT5N, B::s);
    add("CPPT" + n, region, p, T, one ? CPPT1N : two ? CPPT2N : CPPT5N, B::cp);
    add("CVPT" + n, region, p, T, one ? CVPT1N : two ? CVPT2N : CVPT5N, B::cv);
    add("GPT" + n, region, p, T, one ? GPT1N : two ? GPT2N : GPT5N, B::g);
}

template <class B>
void add_region(int region) {
    const std::string in = "/region " + std::to_string(region);
    add_given("HPT" + in, region, HPT, B::h);
    add_given("SPT" + in, region, SPT, B::s);
    add_given("CPPT" + in, region, CPPT, B::cp);
    add_given("CVPT" + in, region, CVPT, B::cv);
    add("HBPT" + in, region, p, T, HBPT, B::h);
    add("SBPT" + in, region, p, T, SBPT, B::s);
    add("CPBPT" + in, region, p, T, CPBPT, B::cp);
    add("CVBPT" + in, region, p, T, CVBPT, B::cv);
    add("WBPT" + in, region, p, T, WBPT, B::w);
    add("UBPT" + in, region, p, T, UBPT, B::u);
    add("FBPT" + in, region, p, T, FBPT, B::f);
    add("GBPT" + in, region, p, T, GBPT, B::g);
    add("HOPT" + in, region, p, T, HOPT, B::h);
    add("SOPT" + in, region, p, T, SOPT, B::s);
    add("CPOPT" + in, region, p, T, CPOPT, B::cp);
    add("CVOPT" + in, region, p, T, CVOPT, B::cv);
    add("WOPT" + in, region, p, T, WOPT, B::w);
    add("UOPT" + in, region, p, T, UOPT, B::u);
    add("FOPT" + in, region, p, T, FOPT, B::f);
    add("GOPT" + in, region, p, T, GOPT, B::g);
    const Plain2 density = [](double x, double t) { return 1 / B::v(x, t); };
    add_given("VPT" + in, region, VPT, B::v);
    add("VBPT" + in, region, p, T, VBPT, B::v);
    add("DBPT" + in, region, p, T, DBPT, density);
    add("VOPT" + in, region, p, T, VOPT, B::v);
    add("DOPT" + in, region, p, T, DOPT, density);
    add("DOTP" + in, region, T, p, DOTP);
    add_plain("DOTP" + in, region,
              [=](const State& a) { return density(region == 3 ? a.v : a.p, a.t); });
    add("REGIONPT" + in, region, p, T, REGIONPT, baseline::region);
}

// B- and O-family of (p, h), (p, s) and (h, s).
void add_pairs(int region, Plain2 t_ph, Plain2 t_ps) {
    const std::string in = region == 0 ? "/regions 1 and 2" : "/region " + std::to_string(region);
    add("REGIONPH" + in, region, p, h, REGIONPH);
    add("TBPH" + in, region, p, h, TBPH, t_ph);
    add("VBPH" + in, region, p, h, VBPH);
    add("DBPH" + in, region, p, h, DBPH);
    add("SBPH" + in, region, p, h, SBPH);
    add("CPBPH" + in, region, p, h, CPBPH);
    add("WBPH" + in, region, p, h, WBPH);
    add("TOPH" + in, region, p, h, TOPH);
    add("DOPH" + in, region, p, h, DOPH);
    add("VOPH" + in, region, p, h, VOPH);
    add("SOPH" + in, region, p, h, SOPH);
    add("CPOPH" + in, region, p, h, CPOPH);
    add("WOPH" + in, region, p, h, WOPH);
    add("REGIONPS" + in, region, p, s, REGIONPS);
    add("TBPS" + in, region, p, s, TBPS, t_ps);
    add("VBPS" + in, region, p, s, VBPS);
    add("DBPS" + in, region, p, s, DBPS);
    add("HBPS" + in, region, p, s, HBPS);
    add("CPBPS" + in, region, p, s, CPBPS);
    add("WBPS" + in, region, p, s, WBPS);
    add("TOPS" + in, region, p, s, TOPS);
    add("DOPS" + in, region, p, s, DOPS);
    add("VOPS" + in, region, p, s, VOPS);
    add("HOPS" + in, region, p, s, HOPS);
    add("CPOPS" + in, region, p, s, CPOPS);
    add("WOPS" + in, region, p, s, WOPS);
    add("REGIONHS" + in, region, h, s, REGIONHS);
    add("PBHS" + in, region, h, s, PBHS);
    add("TBHS" + in, region, h, s, TBHS);
    add("DBHS" + in, region, h, s, DBHS);
    add("POHS" + in, region, h, s, POHS);
    add("TOHS" + in, region, h, s, TOHS);
    add("VOHS" + in, region, h, s, VOHS);
    add("DOHS" + in, region, h, s, DOHS);
}

// A function of the mix: its frequency of use in percent, IAPWS R7-97(2012), Tables 45 and 46.
struct Share {
    std::string name;
    double percent;
};
std::vector<Share> mix;

void add_mix(const std::string& name, double percent, int region, Variable x, Variable y,
             Export2 function, Plain2 plain) {
    mix.push_back({"mix/" + name, percent});
    measure("mix/" + name, region, [=](const State& a) { return function(&(a.*x), &(a.*y)); });
    measure("term by term/mix/" + name, region, [=](const State& a) { return plain(a.*x, a.*y); });
}

// On the saturation line the states are uniform in their argument.
void add_mix(const std::string& name, double percent, Variable x, Export1 function, Plain1 plain) {
    mix.push_back({"mix/" + name, percent});
    measure("mix/" + name, 4, [=](const State& a) { return function(&(a.*x)); });
    measure("term by term/mix/" + name, 4, [=](const State& a) { return plain(a.*x); });
}

void add_mix() {
    using namespace baseline;
    using One = Gibbs<Region1>;
    using Two = Gibbs<Region2>;
    add_mix("v(p, T), region 1", 2.9, 1, p, T, VBPT, One::v);
    add_mix("h(p, T), region 1", 9.7, 1, p, T, HBPT, One::h);
    add_mix("T(p, h), region 1", 3.5, 1, p, h, TBPH, t1_ph);
    add_mix("h(p, s), region 1", 1.2, 1, p, s, HBPS,
            [](double a, double b) { return One::h(a, t1_ps(a, b)); });
    add_mix("v(p, T), region 2", 6.1, 2, p, T, VBPT, Two::v);
    add_mix("h(p, T), region 2", 12.1, 2, p, T, HBPT, Two::h);
    add_mix("s(p, T), region 2", 1.4, 2, p, T, SBPT, Two::s);
    add_mix("T(p, h), region 2", 8.5, 2, p, h, TBPH, t2_ph);
    add_mix("v(p, h), region 2", 3.1, 2, p, h, VBPH,
            [](double a, double b) { return Two::v(a, t2_ph(a, b)); });
    add_mix("s(p, h), region 2", 1.7, 2, p, h, SBPH,
            [](double a, double b) { return Two::s(a, t2_ph(a, b)); });
    add_mix("T(p, s), region 2", 1.7, 2, p, s, TBPS, t2_ps);
    add_mix("h(p, s), region 2", 4.9, 2, p, s, HBPS,
            [](double a, double b) { return Two::h(a, t2_ps(a, b)); });
    add_mix("ps(T)", 8.0, T, PBT, psat);
    add_mix("Ts(p)", 30.7, p, TBP, tsat);
    add_mix("h'(p)", 2.25, p, H1BP, [](double a) { return One::h(a, tsat(a)); });
    add_mix("h''(p)", 2.25, p, H2BP, [](double a) { return Two::h(a, tsat(a)); });
}

void add_all() {
    using namespace baseline;
    add_native<Gibbs<Region1>>(1);
    add_native<Gibbs<Region2>>(2);
    add_native<Gibbs<Region5>>(5);
    add_region<Gibbs<Region1>>(1);
    add_region<Gibbs<Region2>>(2);
    add_region<Region3>(3);
    add_region<Gibbs<Region5>>(5);
    add_pairs(1, t1_ph, t1_ps);
    add_pairs(2, t2_ph, t2_ps);
    add_pairs(3, t_ph, t_ps);
    add_pairs(5, nullptr, nullptr);
    add_pairs(0, nullptr, nullptr);
    add("HBPT/regions 1 and 2", 0, p, T, HBPT);
    add("HOPT/regions 1 and 2", 0, p, T, HOPT);

    add("HVT3N", 3, v, T, HVT3N, Region3::h);
    add("SVT3N", 3, v, T, SVT3N, Region3::s);
    add("GVT3N", 3, v, T, GVT3N, Region3::g);
    add("CPVT3N", 3, v, T, CPVT3N, Region3::cp);
    add("CVVT3N", 3, v, T, CVVT3N, Region3::cv);
    add("TPH1N", 1, p, h, TPH1N, t1_ph);
    add("TPS1N", 1, p, s, TPS1N, t1_ps);
    add("TPH2N", 2, p, h, TPH2N, t2_ph);
    add("TPS2N", 2, p, s, TPS2N, t2_ps);
    add("TPH3N", 3, p, h, TPH3N, t_ph);
    add("TPS3N", 3, p, s, TPS3N, t_ps);
    add("VPS3N", 3, p, s, VPS3N, v_ps);
    add("VTP3N", 3, T, p, VTP3N);
    rows.push_back("DITER3");
    measure("DITER3", 3, [](const State& a) {
        const double d_start = 1.01 / a.v;
        const double tolerance = 1e-6;
        return DITER3(&a.p, &a.t, &d_start, &tolerance);
    });
    add("TPH5N", 5, p, h, TPH5N);
    add("TPS5N", 5, p, s, TPS5N);
    // one evaluation of what they search on
    for (const char* name : {"VTP3N", "DITER3"}) {
        add_plain(name, 3, [](const State& a) { return Region3::v(a.v, a.t); });
    }
    add_plain("TPH5N", 5, [](const State& a) { return Gibbs<Region5>::h(a.p, a.t); });
    add_plain("TPS5N", 5, [](const State& a) { return Gibbs<Region5>::s(a.p, a.t); });

    add("PBT", 1, T, PBT, psat);
    add("FB23", 3, T, FB23, p_b23);
    add("TBP", 4, p, TBP, tsat);
    add("DTBPDP", 4, p, DTBPDP, tsat_p);
    add("TOP", 4, p, TOP);
    add("H1BP", 4, p, H1BP);
    add("H2BP", 4, p, H2BP);
    add_mix();
}

// Keeps the time of every run (with repetitions: of the median) for the table.
class Recorder : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> ns;

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const bool median = run.aggregate_name == "median";
            if (median || run.run_type == Run::RT_Iteration) {
                ns[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
    }
};

void print_table(const std::map<std::string, double>& ns) {
    const auto unit = ns.find("HPT1N");
    std::printf("\n%-24s %10s %16s %14s\n", "export", "ns/call", "x faster than", "x the cost of");
    std::printf("%-24s %10s %16s %14s\n", "", "", "term by term", "HPT1N");
    for (const std::string& name : rows) {
        const auto own = ns.find(name);
        if (own == ns.end()) continue;
        const auto plain = ns.find("term by term/" + name);
        std::printf("%-24s %10.1f", name.c_str(), own->second);
        plain != ns.end() ? std::printf(" %16.1f", plain->second / own->second)
                          : std::printf(" %16s", "-");
        unit != ns.end() ? std::printf(" %14.2f\n", own->second / unit->second)
                         : std::printf(" %14s\n", "-");
    }
}

// The weighted mix as one figure, if all of it was measured.
void print_mix(const std::map<std::string, double>& ns) {
    double own = 0;
    double plain = 0;
    double percent = 0;
    for (const Share& share : mix) {
        const auto a = ns.find(share.name);
        const auto b = ns.find("term by term/" + share.name);
        if (a == ns.end() || b == ns.end()) return;
        own += share.percent * a->second;
        plain += share.percent * b->second;
        percent += share.percent;
    }
    std::printf(
        "\nmix weighted by frequency of use: %.1f ns/call, %.1f times faster than term by term\n",
        own / percent, plain / own);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    add_all();
    Recorder recorder;
    benchmark::RunSpecifiedBenchmarks(&recorder);
    print_table(recorder.ns);
    print_mix(recorder.ns);
    benchmark::Shutdown();
}
