// SPDX-License-Identifier: MIT
//
// The loops in C++ that call_time.py holds vaprix.water against: states of a pair, resolved once, with T or h, v, s, cp
// and w.
#include <vaprix.hpp>

#include <cstddef>

template <class Resolve, class First>
void five(std::size_t n, const double* x, const double* y, double* out, Resolve resolve,
          First first) {
    for (std::size_t k = 0; k < n; ++k) {
        const vaprix::State state = resolve(x[k], y[k]);
        out[k] = first(state);
        out[n + k] = state.v();
        out[2 * n + k] = state.s();
        out[3 * n + k] = state.cp();
        out[4 * n + k] = state.w();
    }
}

#define VAPRIX_FIVE(of, first)                                                 \
    extern "C" __attribute__((visibility("default"))) void five_##of(          \
        std::size_t n, const double* x, const double* y, double* out) {        \
        five(                                                                  \
            n, x, y, out, [](double a, double b) { return vaprix::of(a, b); }, \
            [](const vaprix::State& state) { return state.first(); });         \
    }
VAPRIX_FIVE(of_ph, T)
VAPRIX_FIVE(of_pt, h)
