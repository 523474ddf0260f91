// SPDX-License-Identifier: MIT
// The stations in their roles and what is known of them.
#ifndef PLANT_CYCLE_H
#define PLANT_CYCLE_H

#include "state.h"

// What a balance is computed from: of a station its pressure, or its whole state.
typedef enum {
    condensate_state,
    pump_outlet_p,
    economiser_state,
    boiler_state,
    inlet_state,
    exhaust_p,
    exhaust_state,
    need_count
} Need;

typedef enum { LACKS_NOTHING, LACKS_STATION, LACKS_MEASUREMENT, LACKS_SENSE } Lack;

typedef struct {
    const Station* station[role_count];  // NULL where no station plays the role
    State state[role_count];
    StateKind kind[role_count];
    Lack lack[need_count];
} Cycle;

void cast_station(Cycle* cycle, const Station* station, const State* state, StateKind kind);

// Finds what each need lacks, once all stations are cast. Returns the number of faults, each
// reported on stderr: measurements the log must have and measurements that make no sense.
size_t find_lacks(const char* file, Cycle* cycle);

Role role_for(Need need);

// NO_VALUE where the need lacks anything.
double pressure_at(const Cycle* cycle, Need need);
double value_at(const Cycle* cycle, Need need, int quantity, int family);

#endif
