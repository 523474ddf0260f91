// SPDX-License-Identifier: MIT
//
// Throughput of calls from one and from several threads, each over states of its own: on an idle
// machine a ratio below the number of threads means that they disturb one another. So does, on any
// machine, a processor time of a call that is longer in company than alone. Prints Markdown.
// Usage: threads_benchmark [repetitions [threads]]
#include <algorithm>
#include <barrier>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#include <thread>
#include <vector>

#include "machine.hpp"
#include "states.hpp"
#include "vaprix.h"

namespace {

using Call = double (*)(const State&);

struct Work {
    const char* name;
    const char* what;
    Call call;
};
constexpr Work works[] = {
    {"HBPT", "all regions", [](const State& a) { return HBPT(&a.p, &a.t); }},
    {"HOPT", "all regions", [](const State& a) { return HOPT(&a.p, &a.t); }},
    {"TBPH", "all regions", [](const State& a) { return TBPH(&a.p, &a.h); }},
    {"HOPT", "every call fails and stores its code",
     [](const State& a) {
         const double outside = -a.p;
         return HOPT(&outside, &a.t);
     }},
};

using Clock = std::chrono::steady_clock;

struct Speed {
    double calls;  // of all threads together, a second
    double cost;   // processor time of a call, ns
};

double processor_seconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

Speed measure(Call call, std::size_t threads, const std::vector<std::vector<State>>& own) {
    constexpr int passes = 20;
    struct Result {
        Clock::time_point begun, done;
        double processor;
    };
    std::vector<Result> results(threads);
    std::barrier start(static_cast<std::ptrdiff_t>(threads));
    {
        std::vector<std::jthread> running;
        for (std::size_t k = 0; k < threads; ++k) {
            running.emplace_back([&, k] {
                start.arrive_and_wait();
                const auto begun = Clock::now();
                const double before = processor_seconds();
                for (int pass = 0; pass < passes; ++pass) {
                    for (const State& state : own[k]) call(state);
                }
                results[k] = {begun, Clock::now(), processor_seconds() - before};
            });
        }
    }
    auto [first, last, processor] = results[0];
    for (std::size_t k = 1; k < threads; ++k) {
        first = std::min(first, results[k].begun);
        last = std::max(last, results[k].done);
        processor += results[k].processor;
    }
    const double calls = static_cast<double>(threads) * passes * static_cast<double>(count);
    return {calls / std::chrono::duration<double>(last - first).count(), 1e9 * processor / calls};
}

// Medians of the repetitions.
Speed speed(Call call, std::size_t threads, int repetitions,
            const std::vector<std::vector<State>>& own) {
    std::vector<double> calls, cost;
    for (int n = 0; n < repetitions; ++n) {
        const Speed found = measure(call, threads, own);
        calls.push_back(found.calls);
        cost.push_back(found.cost);
    }
    std::sort(calls.begin(), calls.end());
    std::sort(cost.begin(), cost.end());
    return {calls[calls.size() / 2], cost[cost.size() / 2]};
}

}  // namespace

int main(int argc, char** argv) {
    const int repetitions = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const auto threads = static_cast<std::size_t>(argc > 2 ? std::max(2, std::atoi(argv[2])) : 2);

    std::vector<std::vector<State>> own(threads, states(Set::mixed));
    for (std::size_t k = 0; k < threads; ++k) {
        std::shuffle(own[k].begin(), own[k].end(), std::mt19937_64(k));
    }
    std::printf("%s\n", machine().c_str());
    std::printf(
        "| export | states | 1 thread, 1e6 calls/s | %zu threads | ratio | ns of processor time a "
        "call, alone | together |\n|---|---|---|---|---|---|---|\n",
        threads);
    for (const Work& work : works) {
        const Speed one = speed(work.call, 1, repetitions, own);
        const Speed all = speed(work.call, threads, repetitions, own);
        std::printf("| `%s` | %s | %.1f | %.1f | %.2f | %.1f | %.1f |\n", work.name, work.what,
                    one.calls / 1e6, all.calls / 1e6, all.calls / one.calls, one.cost, all.cost);
    }
}
