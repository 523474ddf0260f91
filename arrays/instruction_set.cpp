// SPDX-License-Identifier: MIT
//
// Which packs are in use: the widest that the processor has, or what the environment or a call says.
#include <atomic>
#include <cstdlib>
#include <cstring>

#include "packed.hpp"
#include "vaprix_arrays.h"

#if defined(__x86_64__)
#include <cpuid.h>
#endif

namespace vaprix::arrays {

extern const Plan* const plans_sse2;
extern const Plan* const plans_avx2;
extern const Plan* const plans_avx512;
extern const Plan* const plans_neon;

namespace {

#if defined(__x86_64__)
// Whether the processor has all of the features, bits of EBX of leaf 7, and the system keeps the
// registers, bits of XCR0. (The compiler's own function would run code when the library is loaded.)
bool has(unsigned features, unsigned registers) noexcept {
    constexpr unsigned osxsave = 1U << 27;
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (__get_cpuid(1, &a, &b, &c, &d) == 0 || (c & osxsave) == 0) return false;
    unsigned kept = 0, upper = 0;
    __asm__("xgetbv" : "=a"(kept), "=d"(upper) : "c"(0));
    if ((kept & registers) != registers) return false;
    return __get_cpuid_count(7, 0, &a, &b, &c, &d) != 0 && (b & features) == features;
}
constexpr unsigned ymm = 0x06, zmm = 0xe6;
#endif

struct InstructionSet {
    const char* name;
    const Plan* const* plans;
    bool (*is_there)();
};

// The better ones first.
constexpr InstructionSet instruction_sets[] = {
#if defined(__x86_64__)
    {"AVX-512", &plans_avx512, [] { return has(bit_AVX512F | bit_AVX512DQ, zmm); }},
    {"AVX2", &plans_avx2, [] { return has(bit_AVX2, ymm); }},
    {"SSE2", &plans_sse2, [] { return true; }},
#elif defined(__aarch64__)
    {"NEON", &plans_neon, [] { return true; }},
#endif
    {"scalar", nullptr, [] { return true; }},
};

// The first of the name that the processor has, of any if that is null.
const InstructionSet* find(const char* name) noexcept {
    for (const InstructionSet& set : instruction_sets) {
        if ((name == nullptr || std::strcmp(name, set.name) == 0) && set.is_there()) return &set;
    }
    return nullptr;
}

std::atomic<const InstructionSet*> chosen{nullptr};

const InstructionSet& in_use() noexcept {
    const InstructionSet* set = chosen.load(std::memory_order_relaxed);
    if (set != nullptr) return *set;
    set = find(std::getenv("VAPRIX_ARRAYS"));
    if (set == nullptr) set = find(nullptr);
    chosen.store(set, std::memory_order_relaxed);
    return *set;
}

}  // namespace

const Plan* plans() noexcept {
    const InstructionSet& set = in_use();
    return set.plans == nullptr ? nullptr : *set.plans;
}

}  // namespace vaprix::arrays

const char* vaprix_arrays_instruction_set(const char* force) noexcept {
    using namespace vaprix::arrays;
    if (force != nullptr) {
        const InstructionSet* const set = find(force);
        if (set == nullptr) return nullptr;
        chosen.store(set, std::memory_order_relaxed);
    }
    return in_use().name;
}
