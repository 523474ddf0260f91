// SPDX-License-Identifier: MIT
//
// The classical saturation table of water, by temperature (degC) or by pressure (MPa). Nothing of
// the library is linked or included: it is opened by file name and each function bound by name.
// Usage: saturation LIBRARY t [FROM TO STEP]
//        saturation LIBRARY p
// Exit status: 0 all good, 1 lines outside the saturation line, 2 nothing could be done.
#include <dlfcn.h>
#include <math.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef double OfOne(const double* argument);
typedef double Constant(void);

static const struct {
    const char *symbol, *unit, *format;
    int width;
} columns[] = {
    {"t", "degC", "%.3f", 9},         {"p", "MPa", "%#.6g", 13},
    {"v'", "m3/kg", "%.8f", 12},      {"v''", "m3/kg", "%#.6g", 11},
    {"h'", "kJ/kg", "%.2f", 9},       {"r", "kJ/kg", "%.2f", 9},
    {"h''", "kJ/kg", "%.2f", 9},      {"s'", "kJ/(kg K)", "%.4f", 11},
    {"s''", "kJ/(kg K)", "%.4f", 11},
};
enum { column_count = sizeof columns / sizeof *columns };

// The functions of temperature, K, or of pressure, MPa.
typedef struct {
    char argument;  // 'T' or 'P'
    OfOne* other;   // the saturation pressure of T, the saturation temperature of p
    OfOne *v[2], *h[2], *s[2];
    Constant *triple, *critical;
} Library;

static void* handle;
static bool complete = true;  // every name asked for was found

// ISO C has no cast from an object pointer to a function; POSIX vouches for a copy of its bytes.
static void bind_name(const char* name, void* function) {
    void* symbol = dlsym(handle, name);
    if (symbol == NULL) {
        fprintf(stderr, "saturation: the library has no function %s\n", name);
        complete = false;
    }
    memcpy(function, &symbol, sizeof symbol);
}

static bool open_library(const char* path, Library* library) {
    handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (handle == NULL) {
        fprintf(stderr, "saturation: cannot open the library: %s\n", dlerror());
        return false;
    }
    const char argument = library->argument;
    bind_name(argument == 'T' ? "POT" : "TOP", &library->other);
    bind_name(argument == 'T' ? "TTRIPLE" : "PTRIPLE", &library->triple);
    bind_name(argument == 'T' ? "TCRIT" : "PCRIT", &library->critical);
    for (int phase = 0; phase < 2; ++phase) {
        const char digit = phase == 0 ? '1' : '2';  // liquid, vapour
        bind_name((char[]){'V', digit, 'O', argument, '\0'}, &library->v[phase]);
        bind_name((char[]){'H', digit, 'O', argument, '\0'}, &library->h[phase]);
        bind_name((char[]){'S', digit, 'O', argument, '\0'}, &library->s[phase]);
    }
    return complete;
}

static void print_head(void) {
    for (int i = 0; i < column_count; ++i) printf("%*s", columns[i].width, columns[i].symbol);
    putchar('\n');
    for (int i = 0; i < column_count; ++i) printf("%*s", columns[i].width, columns[i].unit);
    putchar('\n');
}

// The line of a temperature or a pressure; returns 1 if there is none.
static int print_line(const Library* library, double y) {
    const double other = library->other(&y);
    if (!(other > 0)) {
        fprintf(stderr, "saturation: outside the saturation line (%g %s)\n", y,
                library->argument == 'T' ? "K" : "MPa");
        return 1;
    }
    const double h_liquid = library->h[0](&y), h_vapour = library->h[1](&y);
    const double values[column_count] = {(library->argument == 'T' ? y : other) - 273.15,
                                         library->argument == 'T' ? other : y,
                                         library->v[0](&y),
                                         library->v[1](&y),
                                         h_liquid,
                                         h_vapour - h_liquid,
                                         h_vapour,
                                         library->s[0](&y),
                                         library->s[1](&y)};
    for (int i = 0; i < column_count; ++i) {
        char text[40];
        snprintf(text, sizeof text, columns[i].format, values[i]);
        // no -0.0000 at the triple point, where h' and s' vanish
        if (strtod(text, NULL) == 0) snprintf(text, sizeof text, columns[i].format, 0.0);
        printf("%*s", columns[i].width, text);
    }
    putchar('\n');
    return 0;
}

int main(int argc, char* argv[]) {
    const bool of_t = argc > 2 && strcmp(argv[2], "t") == 0, all = argc == 3;
    const double from = all ? 10 : argc == 6 ? atof(argv[3]) : (double)NAN;  // degC
    const double to = all ? 370 : argc == 6 ? atof(argv[4]) : (double)NAN;
    const double step = all ? 10 : argc == 6 ? atof(argv[5]) : (double)NAN;
    if (argc < 3 || (!of_t && (strcmp(argv[2], "p") != 0 || !all)) || !(step > 0) ||
        !(from <= to)) {
        fputs("Usage: saturation LIBRARY t [FROM TO STEP]\n       saturation LIBRARY p\n", stderr);
        return 2;
    }
    Library library = {.argument = of_t ? 'T' : 'P'};
    if (!open_library(argv[1], &library)) return 2;

    static const double pressures[] = {0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1,
                                       0.2,   0.5,   1,     2,    5,    10,   20};
    const int count =
        of_t ? (int)((to - from) / step + 1e-9) + 1 : (int)(sizeof pressures / sizeof *pressures);
    int failures = 0;
    print_head();
    if (all) failures += print_line(&library, library.triple());
    for (int i = 0; i < count; ++i) {
        failures += print_line(&library, of_t ? from + i * step + 273.15 : pressures[i]);
    }
    if (all) failures += print_line(&library, library.critical());
    return fflush(stdout) != 0 ? 2 : failures > 0;
}
