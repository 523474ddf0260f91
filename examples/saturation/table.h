// SPDX-License-Identifier: MIT
// The classical saturation table: which lines it has, and what stands in a line.
#ifndef SATURATION_TABLE_H
#define SATURATION_TABLE_H

#include <stdbool.h>

typedef double OfOne(const double* argument);
typedef double Constant(void);

enum { by_temperature, by_pressure };
enum { quantity_v, quantity_h, quantity_s, quantity_count };
enum { liquid, vapour, phase_count };

// The functions of one family and one argument, temperature or pressure, and the fixed points.
typedef struct {
    OfOne* other;  // the saturation pressure of a temperature, the temperature of a pressure
    OfOne* saturated[quantity_count][phase_count];
    Constant *triple, *critical;  // the argument at these points, K or MPa
} Library;

typedef struct {
    int by;  // by_temperature or by_pressure
    bool csv;
    const char* pressure_unit;
    double from, to, step;  // in degC or the pressure unit; NAN: not told
} Wishes;

// Settles what was not told: the whole saturation line, in steps of 5 degC or in the series 1, 2,
// 5, 10 ... of pressures (the step stays NAN). Returns NULL, or what makes no table.
const char* settle(const Library* library, Wishes* wishes);

// Prints the table; returns the number of lines the library had no answer for, reported on stderr.
unsigned long print_table(const Library* library, const Wishes* wishes);

#endif
