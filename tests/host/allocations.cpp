// SPDX-License-Identifier: MIT
// No call of any export allocates: of a thread older than the library, its first failure included.
//
//   host_allocations MOST     how many the C library makes all the same
#include <malloc.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <thread>

#include "bound.hpp"

// This program's allocator takes the place of the C library's, for the loader too.
static std::atomic<long> allocations;
#define COUNTED(name, parameters, arguments)   \
    extern "C" void* __libc_##name parameters; \
    extern "C" void* name parameters {         \
        ++allocations;                         \
        return __libc_##name arguments;        \
    }
COUNTED(malloc, (std::size_t size) noexcept, (size))
COUNTED(calloc, (std::size_t count, std::size_t size) noexcept, (count, size))
COUNTED(realloc, (void* block, std::size_t size) noexcept, (block, size))
COUNTED(memalign, (std::size_t alignment, std::size_t size) noexcept, (alignment, size))

namespace {

// p T v h s x: liquid, vapour, cold liquid, region 3, wet steam, cold saturated liquid, saturated
// vapour, and no state
constexpr double none = bound::not_a_number;
constexpr double states[][6] = {
    {3, 300, 0.001002151679686694, 115.33127302143957, 0.39229479240262555, 0.5},
    {3, 600, 0.08630500910008175, 3060.8506383795316, 6.654624019451805, 0.5},
    {0.5, 275, 0.0009998610582974293, 8.263579998427824, 0.028325997535256955, 0.5},
    {25.5837018, 650, 0.002, 1863.43019, 4.05427273, 0.5},
    {0.9320410791359337, 450, 0.10447907269729391, 1761.8517643696553, 4.359084316143513, 0.5},
    {0.0006984535147182353, 275, 0.0010001116152796113, 7.759557575693098, 0.028308805843360218, 0},
    {0.04168180040931202, 350, 3.842011713188776, 2637.7261023618125, 7.654916037647461, 1},
    {none, none, none, none, none, none}};

long allocations_of_calls() {
    const long before = allocations;
    for (const bound::Export& each : bound::exports()) {
        for (const auto& [p, T, v, h, s, x] : states) {
            const double d = 1 / v, wavelength = 0.5, tolerance = 1e-6;
            int region = 0;
            double result = 0;
            each({&p, &T, &v, &d, &h, &s, &x, &wavelength, &d, &tolerance}, &region, &result);
        }
    }
    return allocations - before;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::promise<void> loaded;
    std::promise<long> counted;
    std::thread thread([&] {
        loaded.get_future().wait();
        counted.set_value(allocations_of_calls());
    });
    const std::size_t functions = bound::exports().size();
    loaded.set_value();
    const long count = counted.get_future().get();
    thread.join();
    std::printf("%zu functions, %ld allocations\n", functions, count);
    return functions == 439 && count <= std::atol(argv[1]) ? 0 : 1;
}
