// SPDX-License-Identifier: MIT
// Nanoseconds a call from a host in C, export by export: the least of many runs over states of one region. The same
// program measures vaprix.dll and libvaprix.so; call_time.sh compares them.
#include <stdio.h>
#include <time.h>
#include <vaprix.h>

enum { states = 500, passes = 10, runs = 400 };
typedef double of_two(const double*, const double*);
typedef double of_one(const double*);

static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return 1e9 * (double)time.tv_sec + (double)time.tv_nsec;
}

// From and to values of each argument, in steps of different lengths.
static void measure(const char* name, of_two* two, of_one* one, const double from[2],
                    const double to[2]) {
    double x[states], y[states], least = 1e9, total = 0;
    for (int i = 0; i < states; ++i) {
        x[i] = from[0] + (to[0] - from[0]) * (i * 7 % states) / states;
        y[i] = from[1] + (to[1] - from[1]) * (i * 11 % states) / states;
    }
    for (int run = 0; run < runs; ++run) {
        const double begun = now();
        for (int pass = 0; pass < passes; ++pass)
            for (int i = 0; i < states; ++i) total += two ? two(&x[i], &y[i]) : one(&x[i]);
        const double time = (now() - begun) / (passes * states);
        if (time < least) least = time;
    }
    printf("%-14s %8.2f%s\n", name, least, total == 0 ? " nothing" : "");
}

#define TWO(name, region, x0, y0, x1, y1) \
    measure(#name "," region, name, NULL, (double[]){x0, y0}, (double[]){x1, y1})
#define ONE(name, region, x0, x1) \
    measure(#name "," region, NULL, name, (double[]){x0, 0}, (double[]){x1, 0})

int main(void) {
    TWO(HBPT, "1", 15, 280, 100, 610);
    TWO(HBPT, "2", 0.1, 700, 15, 1000);
    TWO(HBPT, "3", 25, 630, 60, 680);
    TWO(SBPT, "2", 0.1, 700, 15, 1000);
    TWO(TBPH, "1", 15, 100, 100, 1200);
    TWO(TOPH, "2", 0.1, 3200, 10, 4000);
    TWO(HOPS, "2", 0.1, 7.5, 5, 9);
    TWO(HOPT, "3", 25, 630, 60, 680);
    TWO(ETABPT, "1", 15, 280, 100, 610);
    TWO(TCOBPT, "1", 15, 280, 100, 610);
    TWO(HOPT, "failure", 200, 280, 300, 610);
    ONE(TBP, "line", 0.01, 16);
    ONE(PBT, "line", 280, 620);
    ONE(H2OT, "line", 280, 620);
    ONE(SIGBT, "line", 280, 620);
    return 0;
}
