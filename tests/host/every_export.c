// SPDX-License-Identifier: MIT
// Every function of the catalogue, bound by name: one of a few good states gives it an answer, a
// state of NaN gives it none.
#include "host.h"

#include <math.h>
#include <stddef.h>

enum { most_arguments = 5, word = 24, states = 6 };

typedef double OfThree(const double*, const double*, const double*);
typedef double OfFour(const double*, const double*, const double*, const double*);
typedef double OfRegion(const double*, const double*, int*);
typedef void Writing(const double*, const double*, double*);
typedef void WritingOfRegion(const double*, const double*, const double*, int*, double*);
typedef double Constant(void);

// The bytes of an export as a function of its own type.
typedef union {
    void* object;
    Constant* constant;
    OfNone* of_none;
    OfOne* of_one;
    OfTwo* of_two;
    OfThree* of_three;
    OfFour* of_four;
    OfRegion* of_region;
    Writing* writing;
    WritingOfRegion* writing_of_region;
} Function;

typedef struct {
    double p, t, v, h, s, d, x;
} State;

static Exports lib;

static double of(const char* name, double x, double y) {
    const Function f = {.object = find(lib.handle, name)};
    return f.of_two(&x, &y);
}

static State of_pt(double p, double t) {
    const double v = of("VOPT", p, t);
    return (State){p, t, v, of("HOPT", p, t), of("SOPT", p, t), 1 / v, 0.5};
}

static State of_tx(double t, double x) {
    const double v = of("VOTX", t, x);
    return (State){of("POTX", t, x), t, v, of("HOTX", t, x), of("SOTX", t, x), 1 / v, x};
}

static double argument(const char* name, const State* s) {
    static const struct {
        const char* name;
        size_t place;
    } places[] = {{"p", offsetof(State, p)}, {"T", offsetof(State, t)},
                  {"v", offsetof(State, v)}, {"h", offsetof(State, h)},
                  {"s", offsetof(State, s)}, {"d", offsetof(State, d)},
                  {"x", offsetof(State, x)}, {"d_start", offsetof(State, d)}};
    for (size_t k = 0; k < sizeof places / sizeof *places; ++k) {
        if (strcmp(name, places[k].name) != 0) continue;
        double value;
        memcpy(&value, (const char*)s + places[k].place, sizeof value);
        return value;
    }
    return strcmp(name, "wavelength") == 0 ? 0.5 : 1e-6;  // micrometres; a tolerance
}

typedef struct {
    char name[word];
    char arguments[most_arguments][word];
    int count;
} Signature;

static double call(const Signature* signature, const State* state) {
    const Function f = {.object = find(lib.handle, signature->name)};
    double a[most_arguments];
    int region = 0, has_region = 0, writes = 0;
    double out = -99999.0;
    for (int k = 0; k < signature->count; ++k) {
        const char* name = signature->arguments[k];
        has_region |= strcmp(name, "region") == 0;
        writes |= strcmp(name, "out") == 0 || strcmp(name, "eta") == 0;
        a[k] = argument(name, state);
    }
    if (writes && has_region) return f.writing_of_region(&a[0], &a[1], &a[2], &region, &out), out;
    if (writes) return f.writing(&a[0], &a[1], &out), out;
    if (has_region) return f.of_region(&a[0], &a[1], &region);
    switch (signature->count) {
        case 0: return strcmp(signature->name, "ECODETUL") == 0 ? f.of_none() : f.constant();
        case 1: return f.of_one(&a[0]);
        case 2: return f.of_two(&a[0], &a[1]);
        case 3: return f.of_three(&a[0], &a[1], &a[2]);
        default: return f.of_four(&a[0], &a[1], &a[2], &a[3]);
    }
}

static int read_signature(FILE* file, Signature* signature) {
    char line[200];
    if (fgets(line, sizeof line, file) == NULL) return 0;
    signature->count =
        sscanf(line, "%23s %23s %23s %23s %23s %23s", signature->name, signature->arguments[0],
               signature->arguments[1], signature->arguments[2], signature->arguments[3],
               signature->arguments[4]) -
        1;
    return 1;
}

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    open_exports(argv[1], &lib);
    FILE* list = fopen(argv[2], "r");
    if (list == NULL) return 2;
    // liquid, vapour, cold liquid, wet steam, cold saturated liquid, saturated vapour
    const State good[states] = {of_pt(3.0, 300.0), of_pt(3.0, 600.0), of_pt(0.5, 275.0),
                                of_tx(450.0, 0.5), of_tx(275.0, 0.0), of_tx(350.0, 1.0)};
    const double nan_value = (double)NAN;
    const State bad = {nan_value, nan_value, nan_value, nan_value, nan_value, nan_value, nan_value};
    int functions = 0;
    for (Signature signature; read_signature(list, &signature); ++functions) {
        int answered = 0;
        for (int k = 0; k < states; ++k) {
            const double got = call(&signature, &good[k]);
            answered |= isfinite(got) && got > -99998.0 && got != 0.0;
        }
        const int is_code = strcmp(signature.name, "ECODETUL") == 0;
        CHECK(answered || is_code, "%s answers no good state", signature.name);
        const double got = call(&signature, &bad);
        CHECK(signature.count == 0 || !isfinite(got) || got < -99998.0 || got == 0.0,
              "%s answers NaN with %.17g", signature.name, got);
    }
    fclose(list);
    CHECK(functions == 439, "%d functions", functions);
    printf("%d functions\n", functions);
    return failures == 0 ? 0 : 1;
}
