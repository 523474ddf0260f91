// SPDX-License-Identifier: MIT
// What the property library says of a station.
#ifndef PLANT_STATE_H
#define PLANT_STATE_H

#include "library.h"
#include "stations.h"

#include <math.h>

#define NO_VALUE ((double)NAN)

typedef struct {
    int region;  // 1, 2, 3, 5, or 4 on the saturation line; 0 where only the pressure is known
    double value[quantity_count][family_count];  // NO_VALUE where there is none
    double t_sat[family_count];                  // K, NO_VALUE above the critical pressure
    const char* remark;                          // why values are missing, or ""
} State;

typedef enum { STATE_WHOLE, STATE_HAS_GAPS, STATE_OUTSIDE } StateKind;

// Gaps and states outside the range of validity are reported on stderr. A station without a
// temperature, or on the saturation line, is whole although little can be said of it.
StateKind evaluate(const Library* library, const char* file, const Station* station, State* state);

#endif
