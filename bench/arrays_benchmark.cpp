// SPDX-License-Identifier: MIT
//
// The functions over arrays beside a loop of calls: nanoseconds an element over random states, of 4096
// elements, which stay in the cache, and of 2^20, by the thread's processor time, and of these halved
// between two threads, by the clock on the wall. Beside them what memory alone takes: as many arguments
// read and one result written.
// Usage: arrays_benchmark [--instruction-set NAME] [--filter REGEX] [--rounds NUMBER]
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <initializer_list>
#include <limits>
#include <regex>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include "states.hpp"
#include "vaprix_arrays.h"

namespace {

using Variable = double State::*;
constexpr Variable p = &State::p, T = &State::t, h = &State::h, s = &State::s;

// One call of the elements from first to last.
using Call = std::function<void(std::size_t first, std::size_t last)>;

// The arguments of a set of states, repeated to any length, and the ways to evaluate them.
class Arrays {
    std::vector<double> x_, y_, out_;

public:
    Arrays(const std::vector<State>& all, Variable x, Variable y, std::size_t n) : out_(n) {
        for (std::size_t k = 0; k < n; ++k) {
            const State& at = all[k % all.size()];
            x_.push_back(at.*x);
            y_.push_back(at.*y);
        }
    }
    template <class... Arguments>
    Call calls(double (*function)(Arguments...)) {
        return [this, function](std::size_t first, std::size_t last) {
            for (std::size_t k = first; k < last; ++k) {
                if constexpr (sizeof...(Arguments) == 1) {
                    out_[k] = function(&x_[k]);
                } else {
                    out_[k] = function(&x_[k], &y_[k]);
                }
            }
        };
    }
    template <class... Arguments>
    Call array(void (*function)(Arguments...)) {
        return [this, function](std::size_t first, std::size_t last) {
            const double *x = &x_[first], *y = &y_[first];
            if constexpr (sizeof...(Arguments) == 6) {
                function(last - first, x, 1, &out_[first], 1, nullptr);
            } else {
                function(last - first, x, 1, y, 1, &out_[first], 1, nullptr);
            }
        };
    }
    Call memory(bool of_one) {
        return [this, of_one](std::size_t first, std::size_t last) {
            const double *x = x_.data(), *y = y_.data();
            double* out = out_.data();
            if (of_one) {
                for (std::size_t k = first; k < last; ++k) out[k] = -x[k];
            } else {
                for (std::size_t k = first; k < last; ++k) out[k] = x[k] + y[k];
            }
        };
    }
};

int rounds = 5;

double seconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Nanoseconds an element by a clock, the best of the rounds; the calls take turns, so that they share
// what else the machine does.
std::vector<double> time_each(clockid_t clock, std::size_t n, const std::vector<Call>& calls) {
    const std::size_t repetitions = std::max<std::size_t>(1, (std::size_t{1} << 17) / n);
    std::vector<double> best(calls.size(), std::numeric_limits<double>::infinity());
    for (int round = -1; round < rounds; ++round) {  // the first is not counted
        for (std::size_t each = 0; each < calls.size(); ++each) {
            const double begin = seconds(clock);
            for (std::size_t k = 0; k < repetitions; ++k) calls[each](0, n);
            const double taken = (seconds(clock) - begin) / static_cast<double>(n * repetitions);
            if (round >= 0) best[each] = std::min(best[each], 1e9 * taken);
        }
    }
    return best;
}

Call by_two_threads(const Call& call) {
    return [&call](std::size_t first, std::size_t last) {
        const std::size_t middle = first + (last - first) / 2;
        std::thread other(call, first, middle);
        call(middle, last);
        other.join();
    };
}

std::regex filter(".*");

template <class Scalar, class Array>
void row(const std::string& title, Scalar* scalar, Array* array, const std::vector<State>& all,
         Variable x, Variable y) {
    if (!std::regex_search(title, filter)) return;
    constexpr bool of_one = std::is_same_v<Scalar, double(const double*)>;
    std::printf("%-22s", title.c_str());
    for (const std::size_t n : {std::size_t{1} << 12, std::size_t{1} << 20}) {
        Arrays arrays(all, x, y, n);
        const Call in_one = arrays.array(array);
        const std::vector<double> ns = time_each(
            CLOCK_THREAD_CPUTIME_ID, n, {arrays.calls(scalar), in_one, arrays.memory(of_one)});
        std::printf(" %9.2f%9.2f%9.2f%9.2f", ns[0], ns[1], ns[0] / ns[1], ns[2]);
        if (n > 4096)
            std::printf("%9.2f", time_each(CLOCK_MONOTONIC, n, {by_two_threads(in_one)})[0]);
    }
    std::printf("\n");
    std::fflush(stdout);
}

template <class Scalar, class Array>
void rows(const std::string& name, Scalar* scalar, Array* array, std::initializer_list<Set> of,
          Variable x, Variable y) {
    for (const Set set : of)
        row(name + ", " + sets[static_cast<std::size_t>(set)].name, scalar, array, states(set), x,
            y);
}

// Several properties of the same states, one after the other and in one call.
void row_of_several() {
    const std::vector<State>& all = states(Set::mixed);
    const std::size_t n = 4096;
    std::vector<double> x, y, out[3];
    for (std::size_t k = 0; k < n; ++k) x.push_back(all[k].p), y.push_back(all[k].h);
    for (std::vector<double>& each : out) each.resize(n);
    const char* const names[] = {"TOPH", "SOPH", "DOPH"};
    double* const outs[] = {out[0].data(), out[1].data(), out[2].data()};
    const std::ptrdiff_t steps[] = {1, 1, 1};
    const auto each = [&](std::size_t, std::size_t) {
        TOPH_array(n, x.data(), 1, y.data(), 1, outs[0], 1, nullptr);
        SOPH_array(n, x.data(), 1, y.data(), 1, outs[1], 1, nullptr);
        DOPH_array(n, x.data(), 1, y.data(), 1, outs[2], 1, nullptr);
    };
    const auto together = [&](std::size_t, std::size_t) {
        vaprix_arrays_several(n, x.data(), 1, y.data(), 1, 3, names, outs, steps, nullptr);
    };
    const std::vector<double> ns = time_each(CLOCK_THREAD_CPUTIME_ID, n, {each, together});
    std::printf("TOPH, SOPH, DOPH, mixed: one by one %.1f, in one call %.1f ns\n", ns[0], ns[1]);
}

// An export and its function over arrays.
#define BOTH(name) #name, name, name##_array

void all_rows() {
    using enum Set;
    rows(BOTH(HOPT), {region1, region2, region5}, p, T);
    rows(BOTH(VOPT), {region1, region2, region5}, p, T);
    rows(BOTH(SOPT), {region1, region2, region5}, p, T);
    rows(BOTH(DOPT), {region3}, p, T);
    rows(BOTH(HBPT), {mixed}, p, T);
    rows(BOTH(TBPH), {region1, region2, mixed}, p, h);
    rows(BOTH(TBPS), {region1, region2, mixed}, p, s);
    rows(BOTH(TOPH), {region1, region2, region3}, p, h);
    rows(BOTH(TOPS), {region1, region2, region3}, p, s);
    rows(BOTH(ETABPT), {mixed}, p, T);
    rows(BOTH(H1BT), {line, dense}, T, T);
    std::vector<State> outside = states(mixed);
    for (State& each : outside) each.p += strata::p_high;
    row("HBPT, outside", HBPT, HBPT_array, outside, p, T);
}

}  // namespace

int main(int argc, char** argv) {
    for (int k = 1; k + 1 < argc; k += 2) {
        const std::string_view option = argv[k];
        const char* const value = argv[k + 1];
        if (option == "--filter") {
            filter = value;
        } else if (option == "--rounds") {
            rounds = std::atoi(value);
        } else if (option == "--instruction-set") {
            if (vaprix_arrays_instruction_set(value) == nullptr) {
                std::fprintf(stderr, "this machine or the library has no %s\n", value);
                return 1;
            }
        } else {
            std::fprintf(stderr, "no option %s\n", argv[k]);
            return 2;
        }
    }
    std::printf("%s; ns an element\n", vaprix_arrays_instruction_set(nullptr));
    std::printf("%-22s %36s %45s\n%-22s", "", "4096 elements", "1048576 elements", "");
    for (const char* more : {"", "  threads"})
        std::printf(" %9s%9s%9s%9s%s", "calls", "array", "ratio", "memory", more);
    std::printf("\n");
    all_rows();
    row_of_several();
}
