// SPDX-License-Identifier: MIT
//
// Answers the measured stations of a steam plant and balances its cycle. Nothing of the library is
// linked or included: it is opened by file name and each function bound by name.
// Usage: plant LIBRARY STATIONS.csv
// Exit status: 0 all good, 1 a bad row or a state outside the range (named on stderr, the others are
// printed), 2 nothing could be done.
#include <dlfcn.h>
#include <errno.h>
#include <math.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef double OfOne(const double* p);
typedef double OfTwo(const double* p, const double* second);  // second: T, x or s, as named
typedef int ErrorCode(void);

// What a table shows of a state; of wet steam only what the lever rule gives.
enum { V, H, S, CP, W, quantity_count, wet_count = CP };
static const struct {
    const char *symbol, *unit, *format, *of_pt, *of_px;
} quantities[quantity_count] = {
    [V] = {"v", "m3/kg", "%#.6g", "VOPT", "VOPX"},
    [H] = {"h", "kJ/kg", "%.2f", "HOPT", "HOPX"},
    [S] = {"s", "kJ/(kg K)", "%.5f", "SOPT", "SOPX"},
    [CP] = {"cp", "kJ/(kg K)", "%.5f", "CPOPT", NULL},
    [W] = {"w", "m/s", "%.2f", "WOPT", NULL},
};

typedef struct {
    OfTwo *of_pt[quantity_count], *of_px[wet_count], *h_ps;
    OfOne* t_sat;
    ErrorCode* error_code;  // of the calling thread
} Library;

static bool bind_name(void* handle, const char* name, void* function) {
    void* symbol = dlsym(handle, name);
    if (symbol == NULL) {
        fprintf(stderr, "plant: the library has no function %s\n", name);
        return false;
    }
    // ISO C has no cast from an object pointer to a function; POSIX vouches for a copy of its bytes.
    memcpy(function, &symbol, sizeof symbol);
    return true;
}

static bool open_library(const char* path, Library* library) {
    void* handle = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (handle == NULL) {
        fprintf(stderr, "plant: cannot open the library: %s\n", dlerror());
        return false;
    }
    bool good = bind_name(handle, "HOPS", &library->h_ps) &&
                bind_name(handle, "TOP", &library->t_sat) &&
                bind_name(handle, "ECODETUL", &library->error_code);
    for (int q = 0; q < quantity_count; ++q) {
        good = good && bind_name(handle, quantities[q].of_pt, &library->of_pt[q]) &&
               (q >= wet_count || bind_name(handle, quantities[q].of_px, &library->of_px[q]));
    }
    return good;
}

// The library answers a failure with -99999.
static double answer(double value) { return value > -99998 ? value : (double)NAN; }

// A value in SI-based units: (value + offset) * factor.
typedef struct {
    const char* name;
    double offset, factor;
} Unit;
static const Unit pressures[] = {
    {"MPa", 0, 1}, {"bar", 0, 0.1}, {"kPa", 0, 1e-3}, {"psi", 0, 6.894757293168e-3}, {NULL, 0, 0}};
static const Unit temperatures[] = {
    {"K", 0, 1}, {"C", 273.15, 1}, {"F", 459.67, 1 / 1.8}, {NULL, 0, 0}};

typedef struct {
    char name[40];
    double p, t, x;                // MPa, K, kg/kg; NAN where it was not measured
    double value[quantity_count];  // NAN where p and T or p and x do not tell
    double t_sat;                  // K, NAN above the critical pressure
} Station;

// A cell, blank where nothing was measured; false if it is not a number in that unit.
static bool read_cell(const char* text, const char* unit, const Unit* units, double* value) {
    *value = (double)NAN;
    if (*text == '\0') return true;
    char* end;
    const double number = strtod(text, &end);
    while (units->name != NULL && strcmp(unit, units->name) != 0) ++units;
    if (*end != '\0' || !isfinite(number) || units->name == NULL) return false;
    *value = (number + units->offset) * units->factor;
    return true;
}

static const char* read_station(char* line, Station* station) {
    enum { NAME, P, P_UNIT, T, T_UNIT, X, cell_count };
    char* cells[cell_count];
    int count = 0;
    for (char* next = line; next != NULL; ++count) {
        if (count == cell_count) return "too many cells";
        cells[count] = next;
        next = strchr(next, ',');
        if (next != NULL) *next++ = '\0';
    }
    static const Unit fraction[] = {{"", 0, 1}, {NULL, 0, 0}};
    if (count < cell_count) return "too few cells";
    if (!read_cell(cells[P], cells[P_UNIT], pressures, &station->p) || !(station->p > 0)) {
        return "not a pressure in MPa, bar, kPa or psi";
    }
    if (!read_cell(cells[T], cells[T_UNIT], temperatures, &station->t)) {
        return "not a temperature in K, C or F";
    }
    if (!read_cell(cells[X], "", fraction, &station->x) || station->x < 0 || station->x > 1) {
        return "not a quality from 0 to 1";
    }
    if (!isnan(station->t) && !isnan(station->x)) return "p, T and x: the state is overdetermined";
    snprintf(station->name, sizeof station->name, "%.39s", cells[NAME]);
    return NULL;
}

// Answers what the measurements tell; false if the state is outside the range.
static bool resolve(const Library* library, Station* station) {
    const double *p = &station->p, *t = &station->t, *x = &station->x;
    const bool wet = !isnan(*x), single = !isnan(*t);
    station->t_sat = answer(library->t_sat(p));
    for (int q = 0; q < quantity_count; ++q) {
        station->value[q] = single                 ? answer(library->of_pt[q](p, t))
                            : wet && q < wet_count ? answer(library->of_px[q](p, x))
                                                   : (double)NAN;
    }
    return !(single || wet) || !isnan(station->value[H]);
}

static void print_cell(int width, const char* format, double value) {
    char text[40] = "-";
    if (!isnan(value)) snprintf(text, sizeof text, format, value);
    printf("%*s", width, text);
}

static void print_head(void) {
    printf("%-18s%9s%9s%7s", "station", "p", "T", "x");
    for (int q = 0; q < quantity_count; ++q) printf("%12s", quantities[q].symbol);
    printf("%9s\n%-18s%9s%9s%7s", "Ts", "", "MPa", "degC", "kg/kg");
    for (int q = 0; q < quantity_count; ++q) printf("%12s", quantities[q].unit);
    printf("%9s\n", "degC");
}

static void print_station(const Station* station) {
    printf("%-18s", station->name);
    print_cell(9, "%.4f", station->p);
    print_cell(9, "%.2f", station->t - 273.15);
    print_cell(7, "%.3f", station->x);
    for (int q = 0; q < quantity_count; ++q) {
        print_cell(12, quantities[q].format, station->value[q]);
    }
    print_cell(9, "%.2f", station->t_sat - 273.15);
    putchar('\n');
}

static const Station* named(const Station* stations, int count, const char* name) {
    static const Station unknown = {.p = (double)NAN,
                                    .value = {(double)NAN, (double)NAN, (double)NAN}};
    for (int i = 0; i < count; ++i) {
        if (strcmp(stations[i].name, name) == 0) return &stations[i];
    }
    return &unknown;
}

// Heat and work per kilogram of steam; what lacks a measurement is NAN by arithmetic.
static void print_balance(const Library* library, const Station* stations, int count) {
    const double pump_efficiency = 0.85;  // assumed: a rise of a kelvin is too small to measure
    const Station* condensate = named(stations, count, "condenser outlet");
    const Station* pump = named(stations, count, "pump outlet");
    const Station* inlet = named(stations, count, "turbine inlet");
    const Station* exhaust = named(stations, count, "turbine exhaust");
    const double h_boiler = named(stations, count, "boiler outlet")->value[H];

    const double h_lifted = answer(library->h_ps(&pump->p, &condensate->value[S]));
    const double h_expanded = answer(library->h_ps(&exhaust->p, &inlet->value[S]));
    const double pump_work = (h_lifted - condensate->value[H]) / pump_efficiency;
    const double heat_added = h_boiler - condensate->value[H] - pump_work;
    const double turbine_work = inlet->value[H] - exhaust->value[H];
    const struct {
        const char *name, *unit;
        double value;
    } items[] = {
        {"pump work, efficiency 0.85", "kJ/kg", pump_work},
        {"heat added", "kJ/kg", heat_added},
        {"lost in the steam pipe", "kJ/kg", h_boiler - inlet->value[H]},
        {"turbine work", "kJ/kg", turbine_work},
        {"heat rejected", "kJ/kg", exhaust->value[H] - condensate->value[H]},
        {"turbine efficiency", "%", 100 * turbine_work / (inlet->value[H] - h_expanded)},
        {"thermal efficiency", "%", 100 * (turbine_work - pump_work) / heat_added},
    };
    printf("\nheat balance of the cycle\n");
    for (size_t i = 0; i < sizeof items / sizeof *items; ++i) {
        printf("%-27s", items[i].name);
        print_cell(9, "%.2f", items[i].value);
        printf(" %s\n", items[i].unit);
    }
}

static int give_up(const char* what, const char* why) {
    fprintf(stderr, "plant: %s: %s\n", what, why);
    return 2;
}

int main(int argc, char* argv[]) {
    enum { most = 100 };
    static Station stations[most];
    Library library;
    if (argc != 3) return give_up("usage", "plant LIBRARY STATIONS.csv");
    if (!open_library(argv[1], &library)) return 2;
    FILE* file = fopen(argv[2], "r");
    if (file == NULL) return give_up(argv[2], strerror(errno));

    char line[200];
    int count = 0, status = 0;
    bool has_head = false;
    for (int number = 1; fgets(line, sizeof line, file) != NULL; ++number) {
        line[strcspn(line, "\r\n")] = '\0';
        if (*line == '#' || *line == '\0') continue;
        if (!has_head) {
            has_head = strcmp(line, "station,p,p_unit,T,T_unit,x") == 0;
            if (!has_head) return give_up(argv[2], "does not begin station,p,p_unit,T,T_unit,x");
            print_head();
        } else if (count == most) {
            return give_up(argv[2], "more than 100 stations");
        } else {
            const char* fault = read_station(line, &stations[count]);
            if (fault == NULL && !resolve(&library, &stations[count])) {
                snprintf(line, sizeof line, "outside the range, error code %d",
                         library.error_code());
                fault = line;
            }
            if (fault == NULL) {
                print_station(&stations[count++]);
            } else {
                fprintf(stderr, "%s:%d: %s\n", argv[2], number, fault);
                status = 1;
            }
        }
    }
    if (ferror(file) || !has_head) return give_up(argv[2], "cannot be read");
    print_balance(&library, stations, count);
    return fflush(stdout) == 0 ? status : give_up("output", strerror(errno));
}
