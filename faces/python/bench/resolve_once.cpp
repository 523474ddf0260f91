// SPDX-License-Identifier: MIT
//
// The loop in C++ that call_time.py holds vaprix.water against: states of (p, h), resolved once, with T, v, s, cp and w.
#include <vaprix.hpp>

#include <cstddef>

extern "C" __attribute__((visibility("default"))) void five_of_ph(std::size_t n, const double* p,
                                                                  const double* h, double* out) {
    for (std::size_t k = 0; k < n; ++k) {
        const vaprix::State state = vaprix::of_ph(p[k], h[k]);
        out[k] = state.T();
        out[n + k] = state.v();
        out[2 * n + k] = state.s();
        out[3 * n + k] = state.cp();
        out[4 * n + k] = state.w();
    }
}
