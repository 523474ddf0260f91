// SPDX-License-Identifier: MIT
//
// Cost of one State of (p, h) with T, v, s, cp and w, beside that of the five exports, in the same run and over the same
// states; of one that is asked for its temperature alone, and of its derivatives.
#include <benchmark/benchmark.h>

#include "states.hpp"
#include "vaprix.hpp"

namespace {

using Loop = void (*)(benchmark::State&, Set);

template <auto of>
void loop(benchmark::State& run, Set set) {
    const std::vector<State>& all = states(set);
    std::size_t k = 0;
    for (auto _ : run) {
        benchmark::DoNotOptimize(of(all[k]));
        k = (k + 1) & (count - 1);
    }
}

double exports(const State& a) {
    return TOPH(&a.p, &a.h) + VOPH(&a.p, &a.h) + SOPH(&a.p, &a.h) + CPOPH(&a.p, &a.h) +
           WOPH(&a.p, &a.h);
}
double state(const State& a) {
    const vaprix::State s = vaprix::of_ph(a.p, a.h);
    return s.T() + s.v() + s.s() + s.cp() + s.w();
}
double basics(const State& a) {
    const vaprix::State state = vaprix::of_ph(a.p, a.h);
    const auto at = state.basics();
    return state.T() + at.v + at.s + at.cp + at.w;
}
double export_of_t(const State& a) { return TOPH(&a.p, &a.h); }
double state_of_t(const State& a) { return vaprix::of_ph(a.p, a.h).T(); }
double state_and_slopes(const State& a) {
    const vaprix::Slopes s = vaprix::of_ph(a.p, a.h).slopes();
    return s.derivative<vaprix::d, vaprix::h, vaprix::p>() +
           s.derivative<vaprix::d, vaprix::p, vaprix::h>();
}

constexpr struct {
    const char* name;
    Loop loop;
} rows[] = {{"T v s cp w by exports", loop<exports>},
            {"T v s cp w by State", loop<state>},
            {"T v s cp w by basics", loop<basics>},
            {"T by TOPH", loop<export_of_t>},
            {"T by State", loop<state_of_t>},
            {"(dd/dh)_p and (dd/dp)_h by State", loop<state_and_slopes>}};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (const Set set : {Set::region1, Set::region2, Set::region3, Set::region5, Set::wet}) {
        for (const auto& row : rows) {
            const std::string name =
                std::string(row.name) + "/" + sets[static_cast<std::size_t>(set)].name;
            benchmark::RegisterBenchmark(name.c_str(), row.loop, set);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
}
