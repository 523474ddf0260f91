// SPDX-License-Identifier: MIT
//
// Time that a host waits for the library, in microseconds: dlopen, dlsym, first call, all together. One
// process, one measurement.
// Usage: load_benchmark library
#include <dlfcn.h>

#include <chrono>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    using Clock = std::chrono::steady_clock;
    const double p = 3;
    const double t = 300;
    const auto begun = Clock::now();
    void* handle = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    const auto opened = Clock::now();
    void* symbol = handle != nullptr ? dlsym(handle, "HBPT") : nullptr;
    const auto found = Clock::now();
    if (symbol == nullptr) return std::fprintf(stderr, "%s\n", dlerror()), 1;
    const volatile double h =
        reinterpret_cast<double (*)(const double*, const double*)>(symbol)(&p, &t);
    const auto called = Clock::now();
    (void)h;
    const auto us = [](auto span) {
        return std::chrono::duration<double, std::micro>(span).count();
    };
    std::printf("%g %g %g %g\n", us(opened - begun), us(found - opened), us(called - found),
                us(called - begun));
}
