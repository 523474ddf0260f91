// SPDX-License-Identifier: MIT
// Printing the balance: an aligned sheet to read, or comma-separated values to compute with.
#ifndef PLANT_SHEET_H
#define PLANT_SHEET_H

#include "balance.h"

typedef struct {
    double value;
    bool assumed;
} PumpEfficiency;

void print_sheet(const Cycle* cycle, const Balance* balance, PumpEfficiency pump, bool csv);

#endif
