// SPDX-License-Identifier: MIT
// The measured stations of a plant and the file that lists them.
#ifndef PLANT_STATIONS_H
#define PLANT_STATIONS_H

#include "roles.h"

#include <stdbool.h>
#include <stddef.h>

typedef struct {
    char *name, *note;
    double p;    // MPa
    double t;    // K, where has_t says so
    double x;    // quality, the mass fraction of vapour in wet steam, where has_x says so
    bool has_t;  // a log may give the pressure alone
    bool has_x;
    Role role;  // in the cycle, no_role for most
    int line;   // in the file
} Station;

typedef struct {
    Station* rows;
    size_t count;
    size_t faults;  // bad lines, each reported on stderr
} StationList;

// Reads every good line of the file ("-" is the standard input). False, after a message, where the
// file cannot be read at all or memory is short.
bool read_stations(const char* file_name, StationList* list);
void free_stations(StationList* list);

#endif
