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

#include "states.hpp"

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

long allocations_of_calls() {
    const long before = allocations;
    for (const bound::Export& each : bound::exports()) {
        for (const bound::Values& at : bound::states) bound::call_at(each, at);
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
