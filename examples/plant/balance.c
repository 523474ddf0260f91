// SPDX-License-Identifier: MIT
#include "balance.h"

#include "csv.h"

#define NEED(need) (1u << (need))

enum {
    pump_needs = NEED(condensate_state) | NEED(pump_outlet_p),
    ideal_turbine_needs = NEED(inlet_state) | NEED(exhaust_p),
    turbine_needs = ideal_turbine_needs | NEED(exhaust_state),
    cycle_needs = pump_needs | NEED(boiler_state) | turbine_needs,
};

static const unsigned item_needs[item_count] = {
    [pump_isentropic_work] = pump_needs,
    [pump_work] = pump_needs,
    [pump_outlet_t] = pump_needs,
    [heat_added] = pump_needs | NEED(boiler_state),
    [economiser_heat] = pump_needs | NEED(economiser_state),
    [pipe_loss] = NEED(boiler_state) | NEED(inlet_state),
    [isentropic_exhaust_t] = ideal_turbine_needs,
    [isentropic_exhaust_x] = ideal_turbine_needs,
    [isentropic_exhaust_h] = ideal_turbine_needs,
    [turbine_isentropic_work] = ideal_turbine_needs,
    [turbine_work] = turbine_needs,
    [turbine_efficiency] = turbine_needs,
    [net_work] = pump_needs | turbine_needs,
    [heat_rejected] = cycle_needs,
    [thermal_efficiency] = cycle_needs,
    [ideal_efficiency] = pump_needs | NEED(boiler_state) | ideal_turbine_needs,
    [left_over] = cycle_needs,
};

Need unmet_need(const Cycle* cycle, Item item) {
    int need = 0;
    while (need < need_count &&
           ((item_needs[item] & NEED(need)) == 0 || cycle->lack[need] == LACKS_NOTHING)) {
        ++need;
    }
    return (Need)need;
}

typedef struct {
    const Library* library;
    const char* file;
    const Cycle* cycle;
    int family;
    size_t faults;
} Inquiry;

// Asks for a property of the pressure and a second value at the station of the need, but not where
// one of them is unknown. `what` starts with its symbol; no temperature is 0 K.
static double ask(Inquiry* inquiry, OfPair* const function[family_count], const char* what,
                  Need need, double second) {
    const double p = pressure_at(inquiry->cycle, need);
    if (isnan(p) || isnan(second)) {
        return NO_VALUE;
    }
    const double value = answer(function[inquiry->family](&p, &second), *what != 'T');
    if (isnan(value)) {
        char text[60];
        snprintf(text, sizeof text, "%s by the %c-family", what, "BO"[inquiry->family]);
        report_line(inquiry->file, inquiry->cycle->station[role_for(need)]->line,
                    "the library gives no value", text);
        ++inquiry->faults;
    }
    return value;
}

static double known(const Inquiry* inquiry, Need need, int quantity) {
    return value_at(inquiry->cycle, need, quantity, inquiry->family);
}

// Wet steam only has a quality; that it is wet, the region says.
static double ask_quality(Inquiry* inquiry, double s) {
    const double p = pressure_at(inquiry->cycle, exhaust_p);
    const bool is_wet =
        !isnan(p) && !isnan(s) && (int)inquiry->library->region_ps(&p, &s) == two_phase;
    return is_wet ? ask(inquiry, inquiry->library->x_ps, "x of (p, s)", exhaust_p, s) : NO_VALUE;
}

// One family's column. What lacks a measurement becomes NO_VALUE by arithmetic.
static void compute(Inquiry* inquiry, double pump_efficiency, double v[item_count]) {
    const Library* library = inquiry->library;
    const double h_condensate = known(inquiry, condensate_state, quantity_h);
    const double s_condensate = known(inquiry, condensate_state, quantity_s);
    v[pump_isentropic_work] =
        ask(inquiry, library->h_ps, "h of (p, s)", pump_outlet_p, s_condensate) - h_condensate;
    v[pump_work] = v[pump_isentropic_work] / pump_efficiency;
    const double h_pump = h_condensate + v[pump_work];
    v[pump_outlet_t] = ask(inquiry, library->t_ph, "T of (p, h)", pump_outlet_p, h_pump);

    const double h_boiler = known(inquiry, boiler_state, quantity_h);
    const double h_inlet = known(inquiry, inlet_state, quantity_h);
    v[heat_added] = h_boiler - h_pump;
    v[economiser_heat] = known(inquiry, economiser_state, quantity_h) - h_pump;
    v[pipe_loss] = h_boiler - h_inlet;

    const double s_inlet = known(inquiry, inlet_state, quantity_s);
    v[isentropic_exhaust_t] = ask(inquiry, library->t_ps, "T of (p, s)", exhaust_p, s_inlet);
    v[isentropic_exhaust_x] = ask_quality(inquiry, s_inlet);
    v[isentropic_exhaust_h] = ask(inquiry, library->h_ps, "h of (p, s)", exhaust_p, s_inlet);
    v[turbine_isentropic_work] = h_inlet - v[isentropic_exhaust_h];
    v[turbine_work] = h_inlet - known(inquiry, exhaust_state, quantity_h);
    v[turbine_efficiency] = v[turbine_work] / v[turbine_isentropic_work];

    v[net_work] = v[turbine_work] - v[pump_work];
    v[heat_rejected] = v[heat_added] - v[pipe_loss] - v[net_work];
    v[thermal_efficiency] = v[net_work] / v[heat_added];
    v[ideal_efficiency] = (v[turbine_isentropic_work] - v[pump_isentropic_work]) /
                          (h_boiler - h_condensate - v[pump_isentropic_work]);

    // Once more around the cycle by other functions, the feed water of p and the temperature found
    // and the exhaust of p and s: what is left over is what the functions disagree by.
    const double h_feed =
        ask(inquiry, library->property[quantity_h], "h of (p, T)", pump_outlet_p, v[pump_outlet_t]);
    const double h_exhaust = ask(inquiry, library->h_ps, "h of (p, s)", exhaust_p,
                                 known(inquiry, exhaust_state, quantity_s));
    v[left_over] = h_boiler - h_feed - v[pipe_loss] - v[net_work] - (h_exhaust - h_condensate);
}

size_t balance_cycle(const Library* library, const char* file, const Cycle* cycle,
                     double pump_efficiency, Balance* balance) {
    size_t faults = 0;
    for (int f = 0; f < family_count; ++f) {
        Inquiry inquiry = {library, file, cycle, f, 0};
        double v[item_count];
        compute(&inquiry, pump_efficiency, v);
        for (int item = 0; item < item_count; ++item) {
            balance->value[item][f] = v[item];
        }
        faults += inquiry.faults;
    }
    if (balance->value[turbine_efficiency][family_o] > 1.0) {
        report_line(file, cycle->station[turbine_exhaust]->line,
                    "the turbine does more than its isentropic work", role_name(turbine_exhaust));
        ++faults;
    }
    return faults;
}
