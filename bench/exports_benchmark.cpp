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

void add(const std::string& name, int region, Variable x, Export1 function, Plain1 plain) {
    rows.push_back(name);
    measure(name, region, [=](const State& s) { return function(&(s.*x)); });
    measure("term by term/" + name, region, [=](const State& s) { return plain(s.*x); });
}

void add(const std::string& name, int region, Variable x, Variable y, Export2 function,
         Plain2 plain = nullptr) {
    rows.push_back(name);
    measure(name, region, [=](const State& s) { return function(&(s.*x), &(s.*y)); });
    if (plain == nullptr) return;
    // region 3 is given the volume that the library has to find
    const Variable first = region == 3 && x == &State::p && y == &State::t ? &State::v : x;
    measure("term by term/" + name, region, [=](const State& s) { return plain(s.*first, s.*y); });
}

void add_given(const std::string& name, int region,
               double (*function)(const double*, const double*, int*), Plain2 plain) {
    rows.push_back(name);
    measure(name, region, [=](const State& s) {
        int given = region;
        return function(&s.p, &s.t, &given);
    });
    measure("term by term/" + name, region,
            [=](const State& s) { return plain(region == 3 ? s.v : s.p, s.t); });
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
    add("VBPT" + in, region, p, T, VBPT);
    add("DBPT" + in, region, p, T, DBPT);
    add("VOPT" + in, region, p, T, VOPT);
    add("DOPT" + in, region, p, T, DOPT);
    add("DOTP" + in, region, T, p, DOTP);
    add("REGIONPT" + in, region, p, T, REGIONPT);
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
    add("HBPT/regions 1 and 2", 0, p, T, HBPT);
    add("HOPT/regions 1 and 2", 0, p, T, HOPT);

    add("HVT3N", 3, v, T, HVT3N, Region3::h);
    add("SVT3N", 3, v, T, SVT3N, Region3::s);
    add("GVT3N", 3, v, T, GVT3N, Region3::g);
    add("CPVT3N", 3, v, T, CPVT3N, Region3::cp);
    add("CVVT3N", 3, v, T, CVVT3N, Region3::cv);
    add("TPH3N", 3, p, h, TPH3N, t_ph);
    add("TPS3N", 3, p, s, TPS3N, t_ps);
    add("VPS3N", 3, p, s, VPS3N, v_ps);
    add("VTP3N", 3, T, p, VTP3N);
    add("TPH5N", 5, p, h, TPH5N);
    add("TPS5N", 5, p, s, TPS5N);

    add("PBT", 1, T, PBT, psat);
    add("FB23", 3, T, FB23, p_b23);
    rows.push_back("TBP");
    measure("TBP", 1, [](const State& x) {
        const double ps = x.p * 0.22;
        return TBP(&ps);
    });
    measure("term by term/TBP", 1, [](const State& x) { return tsat(x.p * 0.22); });
    rows.push_back("TOP");
    measure("TOP", 1, [](const State& x) {
        const double ps = x.p * 0.22;
        return TOP(&ps);
    });
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

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    add_all();
    Recorder recorder;
    benchmark::RunSpecifiedBenchmarks(&recorder);
    print_table(recorder.ns);
    benchmark::Shutdown();
}
