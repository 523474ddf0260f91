// SPDX-License-Identifier: MIT
//
// Throughput of calls from one and from two threads, each in a place of its own among the states: on an
// idle machine a ratio below the number of threads means that they disturb one another. So does, on any
// machine, a processor time of a call that is longer in company than alone.
#include <benchmark/benchmark.h>

#include "states.hpp"

namespace {

template <auto call>
void run(benchmark::State& state) {
    const State* all = states(Set::mixed).data();
    std::size_t k = static_cast<std::size_t>(state.thread_index()) * count / 2;
    for (auto _ : state) {
        benchmark::DoNotOptimize(call(all[k]));
        k = (k + 1) & (count - 1);
    }
}

double failing(const State& a) {
    const double outside = -a.p;
    return HOPT(&outside, &a.t);
}

}  // namespace

int main(int argc, char** argv) {
    states(Set::mixed);  // made before the threads start
    const auto add = [](const char* name, auto* loop) {
        benchmark::RegisterBenchmark(name, loop)->ThreadRange(1, 2)->UseRealTime();
    };
    add("HBPT/all regions", run<[](const State& a) { return HBPT(&a.p, &a.t); }>);
    add("HOPT/all regions", run<[](const State& a) { return HOPT(&a.p, &a.t); }>);
    add("TBPH/all regions", run<[](const State& a) { return TBPH(&a.p, &a.h); }>);
    add("HOPT/every call fails and stores its code", run<failing>);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
}
