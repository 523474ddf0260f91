// SPDX-License-Identifier: MIT
//
// Time that a host waits for the library: dlopen, dlsym and the first call, each time in a fresh
// process, with the file in the page cache. Prints Markdown.
// Usage: load_benchmark library [repetitions]
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "machine.hpp"

namespace {

using Microseconds = std::chrono::duration<double, std::micro>;
constexpr std::array steps{"dlopen", "dlsym of one export", "first call", "all together"};
using Times = std::array<double, steps.size()>;

Times load(const char* library) {
    using Clock = std::chrono::steady_clock;
    const double p = 3;
    const double t = 300;
    const auto begun = Clock::now();
    void* handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    const auto opened = Clock::now();
    void* symbol = handle != nullptr ? dlsym(handle, "HBPT") : nullptr;
    const auto found = Clock::now();
    if (symbol == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::_Exit(1);
    }
    const volatile double h =
        reinterpret_cast<double (*)(const double*, const double*)>(symbol)(&p, &t);
    const auto called = Clock::now();
    (void)h;
    return {Microseconds(opened - begun).count(), Microseconds(found - opened).count(),
            Microseconds(called - found).count(), Microseconds(called - begun).count()};
}

// One load in a child process.
bool measure(const char* library, Times& times) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return false;
    const pid_t child = fork();
    if (child == 0) {
        const Times own = load(library);
        std::_Exit(write(ends[1], own.data(), sizeof own) == sizeof own ? 0 : 1);
    }
    close(ends[1]);
    const bool complete = child > 0 && read(ends[0], times.data(), sizeof times) == sizeof times;
    close(ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return complete;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const int repetitions = argc > 2 ? std::max(1, std::atoi(argv[2])) : 101;
    std::vector<Times> all(static_cast<std::size_t>(repetitions));
    for (Times& times : all) {
        if (!measure(argv[1], times)) return 1;
    }
    std::printf("%s\n| step | microseconds |\n|---|---|\n", machine().c_str());
    for (std::size_t k = 0; k < steps.size(); ++k) {
        std::sort(all.begin(), all.end(),
                  [k](const Times& a, const Times& b) { return a[k] < b[k]; });
        std::printf("| %s | %.1f |\n", steps[k], all[all.size() / 2][k]);
    }
}
