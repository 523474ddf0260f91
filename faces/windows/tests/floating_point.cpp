// SPDX-License-Identifier: MIT
// The floating-point units as hosts find them after a call: control words as they were, and no flag raised by an answer
// but inexact. An answer has the same bits whatever precision the host has set x87 to.
#include <xmmintrin.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "host/states.hpp"

namespace {

using namespace bound;

struct Units {
    std::uint16_t x87;
    std::uint32_t sse;
    bool operator==(const Units&) const = default;
};
constexpr unsigned flags = 0x3f, inexact = 0x20;

void set(const Units& control) {
    __asm__ volatile("fnclex\n\tfldcw %0" : : "m"(control.x87));
    _mm_setcsr(control.sse);
}
Units control_of_units() {
    Units units{};
    __asm__ volatile("fnstcw %0" : "=m"(units.x87));
    units.sse = _mm_getcsr() & ~flags;
    return units;
}
unsigned raised_flags() {
    std::uint16_t x87 = 0;
    __asm__ volatile("fnstsw %0" : "=m"(x87));
    return (x87 | _mm_getcsr()) & flags;
}

// MinGW's, Windows's with x87 of 53 bits, and a host's that flushes denormal numbers.
constexpr Units mingw{0x37f, 0x1f80}, windows{0x27f, 0x1f80}, flushing{0x27f, 0x9fc0};

int failures = 0;
void check(bool right, const char* what, const Export& each, const Values& at,
           unsigned raised = 0) {
    if (!right && ++failures < 20)
        std::printf("%s: %s, flags %02x\n", what, digits(each, at).c_str(), raised);
}

double call(const Export& each, const Values& at, const Units& control) {
    set(control);
    const double value = call_at(each, at);
    const unsigned raised = raised_flags();
    const Units left = control_of_units();
    set(mingw);
    check(left == control, "control words changed", each, at);
    if (std::isfinite(at[p]) && std::isfinite(value) && value > failed)
        check((raised & ~inexact) == 0, "flags raised", each, at, raised);
    return value;
}

}  // namespace

int main() {
    for (const Export& each : exports()) {
        for (const Values& at : states) {
            const double value = call(each, at, mingw), same = call(each, at, windows);
            check(std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(same),
                  "bits that depend on the precision of x87", each, at);
            call(each, at, flushing);
        }
    }
    return failures == 0 ? 0 : 1;
}
