// SPDX-License-Identifier: MIT
// Units a plant log may be written in.
#ifndef EXAMPLES_UNITS_H
#define EXAMPLES_UNITS_H

#include <stdbool.h>

#define PRESSURE_UNITS "MPa, bar, kPa, Pa, psi, atm, kgf/cm2"
#define TEMPERATURE_UNITS "C, K, F"

// Absolute pressure in MPa, temperature in K; false for a unit that is not in the table.
bool pressure_of(double value, const char* unit, double* p);
bool temperature_of(double value, const char* unit, double* t);

#endif
