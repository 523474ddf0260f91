// SPDX-License-Identifier: MIT
// What the property library says of a station.
#ifndef PLANT_STATE_H
#define PLANT_STATE_H

#include "library.h"
#include "stations.h"

typedef struct {
    int region;  // 1, 2, 3, 5, or 4 for wet steam; 0 where only the pressure is known
    double value[quantity_count][family_count];  // NO_VALUE where there is none
    double t_sat[family_count];                  // K, NO_VALUE above the critical pressure
    char remark[80];                             // why values are missing, or ""
} State;

typedef enum { STATE_WHOLE, STATE_HAS_GAPS, STATE_NONE } StateKind;

// K: what a thermometer and a vacuum gauge together cannot tell from saturation.
extern const double saturation_margin;

// Gaps, states outside the range of validity and a temperature that contradicts the quality are
// reported on stderr. A station without a temperature, or on the saturation line, is whole although
// little can be said of it. A quality given fixes the state with the pressure.
StateKind evaluate(const Library* library, const char* file, const Station* station, State* state);

#endif
