// SPDX-License-Identifier: MIT
// Printing the stations: an aligned table to read, or comma-separated values to compute with.
#ifndef PLANT_REPORT_H
#define PLANT_REPORT_H

#include "state.h"

typedef struct {
    bool csv;
    int name_width;  // of the longest station name
} Layout;

Layout layout_of(const StationList* stations, bool csv);
void print_header(const Layout* layout);
void print_state(const Layout* layout, const Station* station, const State* state);

#endif
