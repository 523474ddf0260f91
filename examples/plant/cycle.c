// SPDX-License-Identifier: MIT
#include "cycle.h"

#include "csv.h"

// The log must have the whole state where one phase flows. It may lack the economiser's, which is
// only a part of the boiler, and the exhaust's, which p and T do not fix.
static const struct {
    Role role;
    bool pressure_only, may_be_open;
} needs[need_count] = {
    [condensate_state] = {condenser_outlet, false, false},
    [pump_outlet_p] = {pump_outlet, true, false},
    [economiser_state] = {economiser_outlet, false, true},
    [boiler_state] = {boiler_outlet, false, false},
    [inlet_state] = {turbine_inlet, false, false},
    [exhaust_p] = {turbine_exhaust, true, false},
    [exhaust_state] = {turbine_exhaust, false, true},
};

void cast_station(Cycle* cycle, const Station* station, const State* state, StateKind kind) {
    if (station->role != no_role) {
        cycle->station[station->role] = station;
        cycle->state[station->role] = *state;
        cycle->kind[station->role] = kind;
    }
}

// By p and T alone, steam is dry only where it is clearly superheated.
static bool may_be_wet(const Station* station, const State* state) {
    return !station->has_x && station->t <= state->t_sat[family_o] + saturation_margin;
}

static Lack lack_of(const Cycle* cycle, Need need) {
    const Role role = needs[need].role;
    const Station* station = cycle->station[role];
    const State* state = &cycle->state[role];
    if (station == NULL) {
        return LACKS_STATION;
    }
    if (cycle->kind[role] == STATE_NONE) {
        return LACKS_SENSE;
    }
    const bool known = needs[need].pressure_only || (!isnan(state->value[quantity_h][family_o]) &&
                                                     !isnan(state->value[quantity_s][family_o]));
    return !known || (need == exhaust_state && may_be_wet(station, state)) ? LACKS_MEASUREMENT
                                                                           : LACKS_NOTHING;
}

static void report_role(const char* file, const Cycle* cycle, Role role, const char* fault) {
    report_line(file, cycle->station[role]->line, fault, role_name(role));
}

// The condensate must be liquid, and the pressure must rise in the pump and fall in the turbine.
static size_t find_nonsense(const char* file, Cycle* cycle) {
    size_t faults = 0;
    Lack* lack = cycle->lack;
    const Station* const* station = cycle->station;
    const Station* condensate = station[condenser_outlet];
    if (lack[condensate_state] == LACKS_NOTHING && cycle->state[condenser_outlet].region != 1 &&
        !(condensate->has_x && condensate->x <= 0.0)) {
        report_role(file, cycle, condenser_outlet, "the pump would draw steam");
        lack[condensate_state] = LACKS_SENSE;
        ++faults;
    }
    if (lack[pump_outlet_p] == LACKS_NOTHING && condensate != NULL &&
        station[pump_outlet]->p <= condensate->p) {
        report_role(file, cycle, pump_outlet, "the pressure does not rise in the pump");
        lack[pump_outlet_p] = LACKS_SENSE;
        ++faults;
    }
    if (lack[exhaust_p] == LACKS_NOTHING && station[turbine_inlet] != NULL &&
        station[turbine_exhaust]->p >= station[turbine_inlet]->p) {
        report_role(file, cycle, turbine_exhaust, "the pressure does not fall in the turbine");
        lack[exhaust_p] = lack[exhaust_state] = LACKS_SENSE;
        ++faults;
    }
    return faults;
}

size_t find_lacks(const char* file, Cycle* cycle) {
    size_t faults = 0;
    for (int need = 0; need < need_count; ++need) {
        const Role role = needs[need].role;
        cycle->lack[need] = lack_of(cycle, (Need)need);
        // A gap the library left has been reported.
        if (cycle->lack[need] == LACKS_MEASUREMENT && !needs[need].may_be_open &&
            cycle->kind[role] == STATE_WHOLE) {
            report_role(file, cycle, role,
                        cycle->state[role].region == two_phase
                            ? "the balance needs the quality of this station"
                            : "the balance needs the temperature of this station");
            ++faults;
        }
    }
    return faults + find_nonsense(file, cycle);
}

Role role_for(Need need) { return needs[need].role; }

double pressure_at(const Cycle* cycle, Need need) {
    return cycle->lack[need] == LACKS_NOTHING ? cycle->station[needs[need].role]->p : NO_VALUE;
}

double value_at(const Cycle* cycle, Need need, int quantity, int family) {
    return cycle->lack[need] == LACKS_NOTHING
               ? cycle->state[needs[need].role].value[quantity][family]
               : NO_VALUE;
}
