// SPDX-License-Identifier: MIT
// The calls of call_time.f90 from C.
#include <vaprix.h>

#define SUM(call) \
    for (int i = 0; i < *n; ++i) total += call

double from_c(const int* which, const int* n, const double* x, const double* y);
double from_c(const int* which, const int* n, const double* x, const double* y) {
    double total = 0;
    switch (*which) {
        case 1: SUM(HBPT(&x[i], &y[i])); break;
        case 2: SUM(TBPH(&x[i], &y[i])); break;
        default: SUM(PCRIT()); break;
    }
    return total;
}
