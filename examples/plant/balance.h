// SPDX-License-Identifier: MIT
// Balance of the cycle: pump, boiler, pipe, turbine and condenser, per kilogram of steam.
#ifndef PLANT_BALANCE_H
#define PLANT_BALANCE_H

#include "cycle.h"

// In the order they are computed and printed. Heat and work count in the direction the cycle means:
// into pump and boiler, out of pipe, turbine and condenser.
typedef enum {
    pump_isentropic_work,
    pump_work,
    pump_outlet_t,
    heat_added,
    economiser_heat,
    pipe_loss,
    isentropic_exhaust_t,
    isentropic_exhaust_x,
    isentropic_exhaust_h,
    turbine_isentropic_work,
    turbine_work,
    turbine_efficiency,
    net_work,
    heat_rejected,
    thermal_efficiency,
    ideal_efficiency,
    left_over,
    item_count
} Item;

typedef struct {
    double value[item_count][family_count];  // kJ/kg, K; quality and efficiency as fractions
} Balance;

// The first need of the item that lacks something, need_count where there is none.
Need unmet_need(const Cycle* cycle, Item item);

// Computes what the cycle allows, NO_VALUE for the rest. Returns the number of faults, each
// reported on stderr: answers the library does not give, and a turbine better than isentropic.
size_t balance_cycle(const Library* library, const char* file, const Cycle* cycle,
                     double pump_efficiency, Balance* balance);

#endif
