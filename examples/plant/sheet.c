// SPDX-License-Identifier: MIT
#include "sheet.h"

#include "csv.h"

typedef enum { KJ_KG, KELVIN, CELSIUS, FRACTION, PERCENT } UnitKind;

static const struct {
    const char* name;
    int decimals;
    double factor, offset;
} units[] = {
    [KJ_KG] = {"kJ/kg", 4, 1.0, 0.0},   [KELVIN] = {"K", 4, 1.0, 0.0},
    [CELSIUS] = {"C", 4, 1.0, -273.15}, [FRACTION] = {"1", 6, 1.0, 0.0},
    [PERCENT] = {"%", 4, 100.0, 0.0},
};

static const struct {
    const char* name;
    UnitKind unit;
} items[item_count] = {
    [pump_isentropic_work] = {"isentropic pump work", KJ_KG},
    [pump_work] = {"pump work", KJ_KG},
    [pump_outlet_t] = {"pump outlet temperature", KELVIN},
    [heat_added] = {"heat added", KJ_KG},
    [economiser_heat] = {"part of the economiser", KJ_KG},
    [pipe_loss] = {"pipe loss", KJ_KG},
    [isentropic_exhaust_t] = {"isentropic exhaust temperature", KELVIN},
    [isentropic_exhaust_x] = {"isentropic exhaust quality", FRACTION},
    [isentropic_exhaust_h] = {"isentropic exhaust enthalpy", KJ_KG},
    [turbine_isentropic_work] = {"isentropic turbine work", KJ_KG},
    [turbine_work] = {"turbine work", KJ_KG},
    [turbine_efficiency] = {"isentropic efficiency", PERCENT},
    [net_work] = {"net work", KJ_KG},
    [heat_rejected] = {"heat rejected", KJ_KG},
    [thermal_efficiency] = {"thermal efficiency", PERCENT},
    [ideal_efficiency] = {"ideal thermal efficiency", PERCENT},
    [left_over] = {"balance left over", KJ_KG},
};
enum { name_width = 32, unit_width = 5, remark_size = 120 };

static void describe_lack(char remark[remark_size], const Cycle* cycle, Need need) {
    const char* role = role_name(role_for(need));
    switch (cycle->lack[need]) {
        case LACKS_NOTHING: break;
        case LACKS_STATION: snprintf(remark, remark_size, "no station is the %s", role); break;
        case LACKS_SENSE: snprintf(remark, remark_size, "the %s makes no sense", role); break;
        case LACKS_MEASUREMENT:
            snprintf(remark, remark_size, "needs the %s of the %s",
                     need == exhaust_state ? "quality" : "temperature", role);
            break;
    }
}

static void describe(char remark[remark_size], const Cycle* cycle, const Balance* balance,
                     PumpEfficiency pump, Item item) {
    const Need need = unmet_need(cycle, item);
    const Station *outlet = cycle->station[pump_outlet], *exhaust = cycle->station[turbine_exhaust];
    *remark = '\0';
    if (need != need_count) {
        describe_lack(remark, cycle, need);
    } else if (item == pump_work) {
        snprintf(remark, remark_size, "pump efficiency %.6g %%%s", 100.0 * pump.value,
                 pump.assumed ? " assumed" : " given");
    } else if (item == pump_outlet_t && outlet->has_t) {
        snprintf(remark, remark_size, "computed: the %.2f C measured are not used",
                 outlet->t + units[CELSIUS].offset);
    } else if (item == isentropic_exhaust_x && isnan(balance->value[item][family_o])) {
        snprintf(remark, remark_size, "dry steam");
    } else if (item == turbine_work && exhaust->has_x) {
        snprintf(remark, remark_size, "exhaust of quality %.6g", exhaust->x);
    } else if (item == ideal_efficiency) {
        snprintf(remark, remark_size, "pump and turbine isentropic");
    } else if (item == left_over) {
        snprintf(remark, remark_size, "feed water by (p, T) and exhaust by (p, s)");
    }
}

static void print_csv_cell(double value) {
    putchar(',');
    if (!isnan(value)) {
        printf("%.17g", value);
    }
}

static void print_cell(int decimals, double value) {
    if (isnan(value)) {
        printf("%13s", "-");
    } else {
        printf("%13.*f", decimals, value);
    }
}

static void print_item(Item item, const double value[family_count], const char* remark, bool csv) {
    const UnitKind unit = items[item].unit == KELVIN && !csv ? CELSIUS : items[item].unit;
    const double b = units[unit].factor * value[family_b] + units[unit].offset;
    const double o = units[unit].factor * value[family_o] + units[unit].offset;
    const double columns[] = {b, o, b - o};
    if (csv) {
        write_field(stdout, items[item].name);
        printf(",%s", units[unit].name);
    } else {
        printf("%-*s%-*s", name_width, items[item].name, unit_width, units[unit].name);
    }
    for (size_t i = 0; i < sizeof columns / sizeof *columns; ++i) {
        if (csv) {
            print_csv_cell(columns[i]);
        } else {
            print_cell(units[unit].decimals, columns[i]);
        }
    }
    if (csv) {
        putchar(',');
        write_field(stdout, remark);
    } else if (*remark != '\0') {
        printf("  %s", remark);
    }
    putchar('\n');
}

void print_sheet(const Cycle* cycle, const Balance* balance, PumpEfficiency pump, bool csv) {
    if (csv) {
        puts("quantity,unit,B,O,B-O,remark");
    } else {
        printf("%-*s%-*s%13s%13s%13s\n", name_width, "balance of the cycle", unit_width, "", "B",
               "O", "B-O");
    }
    for (int item = 0; item < item_count; ++item) {
        char remark[remark_size];
        describe(remark, cycle, balance, pump, (Item)item);
        print_item((Item)item, balance->value[item], remark, csv);
    }
}
