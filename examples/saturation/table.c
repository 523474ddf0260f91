// SPDX-License-Identifier: MIT
#include "table.h"

#include "units.h"

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

static const double zero_celsius = 273.15;  // K

// Digits of the aligned table; the comma-separated one has them all.
typedef struct {
    const char *symbol, *unit, *format;
    int width;
} Column;
static const Column temperature = {"t", "degC", "%.3f", 8};
static const Column pressure = {"p", NULL, "%#.6g", 12};
static const Column properties[] = {
    {"v'", "m3/kg", "%.8f", 12},      {"v''", "m3/kg", "%#.6g", 11},
    {"h'", "kJ/kg", "%.2f", 9},       {"r", "kJ/kg", "%.2f", 9},
    {"h''", "kJ/kg", "%.2f", 9},      {"s'", "kJ/(kg K)", "%.4f", 11},
    {"s''", "kJ/(kg K)", "%.4f", 11},
};
enum { property_count = sizeof properties / sizeof *properties };

// K of degC, MPa of the pressure unit, and back.
static double to_library(const Wishes* wishes, double shown) {
    double p = (double)NAN;
    if (wishes->by == by_temperature) {
        return shown + zero_celsius;
    }
    (void)pressure_of(shown, wishes->pressure_unit, &p);
    return p;
}

static double shown_pressure(const Wishes* wishes, double p) {
    double unit = (double)NAN;  // in MPa
    (void)pressure_of(1.0, wishes->pressure_unit, &unit);
    return p / unit;
}

static void print_head(const Wishes* wishes) {
    Column columns[2 + property_count] = {temperature, pressure};
    columns[1].unit = wishes->pressure_unit;
    for (int i = 0; i < property_count; ++i) {
        columns[2 + i] = properties[i];
    }
    if (wishes->by == by_pressure) {
        columns[0] = columns[1];
        columns[1] = temperature;
    }
    for (int i = 0; i < 2 + property_count; ++i) {
        if (wishes->csv) {
            printf("%s%s (%s)", i == 0 ? "" : ",", columns[i].symbol, columns[i].unit);
        } else {
            printf("%*s", columns[i].width, columns[i].symbol);
        }
    }
    for (int i = 0; i < 2 + property_count && !wishes->csv; ++i) {
        printf("%s%*s", i == 0 ? "\n" : "", columns[i].width, columns[i].unit);
    }
    putchar('\n');
}

static void print_cell(const Wishes* wishes, const Column* column, double value, bool first) {
    char text[340];  // wide enough for any double
    if (wishes->csv) {
        printf("%s%.17g", first ? "" : ",", value);
        return;
    }
    snprintf(text, sizeof text, column->format, value);
    if (strtod(text, NULL) == 0.0) {  // no -0.0000 at the triple point, where h' and s' vanish
        snprintf(text, sizeof text, column->format, 0.0);
    }
    printf("%*s", column->width, text);
}

// One line at the argument, in K or MPa; false if the library has no answer.
static bool print_line(const Library* library, const Wishes* wishes, double shown,
                       double argument) {
    double y[quantity_count][phase_count];
    const double other = library->other(&argument);
    bool good = other > 0.0;
    for (int q = 0; q < quantity_count; ++q) {
        for (int phase = 0; phase < phase_count; ++phase) {
            y[q][phase] = library->saturated[q][phase](&argument);
            good = good && y[q][phase] > -99998.0;
        }
    }
    if (!good) {
        fprintf(stderr, "saturation: outside the saturation line (%g %s)\n", shown,
                wishes->by == by_temperature ? temperature.unit : wishes->pressure_unit);
        return false;
    }
    const double r = y[quantity_h][vapour] - y[quantity_h][liquid];
    const double cells[] = {y[quantity_v][liquid], y[quantity_v][vapour], y[quantity_h][liquid], r,
                            y[quantity_h][vapour], y[quantity_s][liquid], y[quantity_s][vapour]};
    if (wishes->by == by_temperature) {
        print_cell(wishes, &temperature, shown, true);
        print_cell(wishes, &pressure, shown_pressure(wishes, other), false);
    } else {
        print_cell(wishes, &pressure, shown, true);
        print_cell(wishes, &temperature, other - zero_celsius, false);
    }
    for (int i = 0; i < property_count; ++i) {
        print_cell(wishes, &properties[i], cells[i], false);
    }
    putchar('\n');
    return true;
}

// Triple and critical point: what the library knows them by and how they are shown.
typedef struct {
    double argument, shown;
} FixedPoint;

static FixedPoint fixed_point(const Wishes* wishes, Constant* constant) {
    FixedPoint point = {constant(), 0.0};
    // 647.096 - 273.15 leaves rounding behind, 373.946 is meant.
    point.shown = wishes->by == by_temperature ? round(1e3 * (point.argument - zero_celsius)) / 1e3
                                               : shown_pressure(wishes, point.argument);
    return point;
}

const char* settle(const Library* library, Wishes* wishes) {
    enum { most_lines = 1000000 };
    const bool of_t = wishes->by == by_temperature;
    if (isnan(wishes->from)) {
        const bool even_steps = !of_t && !isnan(wishes->step);  // none from an odd first figure
        wishes->from = of_t         ? 0.0
                       : even_steps ? wishes->step
                                    : fixed_point(wishes, library->triple).shown;
    }
    if (isnan(wishes->to)) {
        wishes->to = fixed_point(wishes, library->critical).shown;
    }
    if (of_t && isnan(wishes->step)) {
        wishes->step = 5.0;
    }
    if (!of_t && !(wishes->from > 0.0)) {
        return "a pressure is greater than 0";
    }
    if (!(wishes->from <= wishes->to)) {
        return "the table would end before its first line";
    }
    if (wishes->step <= 1e-9 * fmax(1.0, fabs(wishes->from))) {
        return "the step is too small";
    }
    return (wishes->to - wishes->from) / wishes->step > most_lines ? "more than a million lines"
                                                                   : NULL;
}

// Line n: x itself, then even steps, or the figures 1, 2, 5, 10 ... from the decade of x on. A
// division by a power of ten keeps decimal figures exact: 5 / 100 is 0.05.
static double line_of(double x, double step, unsigned long n) {
    static const double figures[] = {1.0, 2.0, 5.0};
    if (!isnan(step) || n == 0) {
        return n == 0 ? x : x + (double)n * step;
    }
    const int decade = (int)floor(log10(x)) + (int)((n - 1) / 3);
    const double figure = figures[(n - 1) % 3];
    return decade < 0 ? figure / pow(10.0, -decade) : figure * pow(10.0, decade);
}

unsigned long print_table(const Library* library, const Wishes* wishes) {
    const FixedPoint fixed[] = {fixed_point(wishes, library->triple),
                                fixed_point(wishes, library->critical)};
    const double near = 1e-9 * (wishes->by == by_temperature ? 1.0 : wishes->from);
    unsigned long failures = 0;
    int next = 0;  // of the fixed points
    print_head(wishes);
    for (unsigned long n = 0;; ++n) {
        const double line = line_of(wishes->from, wishes->step, n);
        if (n > 0 && line <= wishes->from + near) {
            continue;  // figures of the first decade
        }
        double argument = to_library(wishes, line);
        // Fixed points on the way to this line have lines of their own; one at it lends its digits.
        for (; next < 2 && fixed[next].shown <= line + near; ++next) {
            if (fixed[next].shown >= line - near) {
                argument = fixed[next].argument;
            } else if (fixed[next].shown >= wishes->from - near &&
                       fixed[next].shown <= wishes->to + near) {
                failures += !print_line(library, wishes, fixed[next].shown, fixed[next].argument);
            }
        }
        if (!(line <= wishes->to + near)) {
            return failures;
        }
        failures += !print_line(library, wishes, line, argument);
    }
}
