// SPDX-License-Identifier: MIT
#include "units.h"

#include <stddef.h>
#include <string.h>

// Names are matched in their exact case: an mPa is not an MPa.
// p = value numerator / denominator. A division keeps decimal figures exact: 152 bar are 15.2 MPa.
static const struct {
    const char* name;
    double numerator, denominator;
} pressures[] = {
    {"MPa", 1.0, 1.0},
    {"bar", 1.0, 10.0},
    {"kPa", 1.0, 1.0e3},
    {"Pa", 1.0, 1.0e6},
    {"psi", 0.45359237 * 9.80665, 1.0e6 * 0.0254 * 0.0254},  // pound-force on a square inch
    {"atm", 101325.0, 1.0e6},
    {"kgf/cm2", 98066.5, 1.0e6},
};

// T = (value + offset) / degrees
static const struct {
    const char* name;
    double offset, degrees;
} temperatures[] = {
    {"C", 273.15, 1.0},
    {"K", 0.0, 1.0},
    {"F", 459.67, 1.8},
};

bool pressure_of(double value, const char* unit, double* p) {
    for (size_t i = 0; i < sizeof pressures / sizeof *pressures; ++i) {
        if (strcmp(unit, pressures[i].name) == 0) {
            *p = value * pressures[i].numerator / pressures[i].denominator;
            return true;
        }
    }
    return false;
}

bool temperature_of(double value, const char* unit, double* t) {
    for (size_t i = 0; i < sizeof temperatures / sizeof *temperatures; ++i) {
        if (strcmp(unit, temperatures[i].name) == 0) {
            *t = (value + temperatures[i].offset) / temperatures[i].degrees;
            return true;
        }
    }
    return false;
}
