// SPDX-License-Identifier: MIT
#include "report.h"

#include "csv.h"

typedef struct {
    const char *symbol, *unit, *format;
    int width;
} Style;

// Two columns each, one for either family.
static const Style styles[quantity_count] = {
    [quantity_v] = {"v", "m3/kg", "%#.6g", 12},    [quantity_h] = {"h", "kJ/kg", "%.2f", 9},
    [quantity_s] = {"s", "kJ/(kg K)", "%.5f", 11}, [quantity_cp] = {"cp", "kJ/(kg K)", "%.5f", 11},
    [quantity_w] = {"w", "m/s", "%.2f", 9},
};
static const Style pressure = {"p", "MPa", "%.6g", 12};
static const Style temperature = {"T", "C", "%.2f", 9};
static const Style saturation = {"Ts", "C", "%.2f", 9};
enum { region_width = 8 };

static const double zero_celsius = 273.15;  // K
static const char full_precision[] = "%.17g";

Layout layout_of(const StationList* stations, bool csv) {
    Layout layout = {csv, text_width("station")};
    for (size_t i = 0; i < stations->count; ++i) {
        const int width = text_width(stations->rows[i].name);
        layout.name_width = width > layout.name_width ? width : layout.name_width;
    }
    return layout;
}

static void print_csv_header(void) {
    fputs("station,p,p_unit,T,T_unit,region", stdout);
    for (int q = 0; q < quantity_count; ++q) {
        const Style* style = &styles[q];
        printf(",%s_B (%s),%s_O (%s)", style->symbol, style->unit, style->symbol, style->unit);
    }
    puts(",Ts_B (K),Ts_O (K),note,remark,x,role");
}

// One row of the table's head: the symbols with the family in brackets, or the units under them.
static void print_head_row(const Layout* layout, bool units) {
    char text[24];
    printf("%-*s", layout->name_width, units ? "" : "station");
    printf("%*s", pressure.width, units ? pressure.unit : pressure.symbol);
    printf("%*s", temperature.width, units ? temperature.unit : temperature.symbol);
    printf("%*s", region_width, units ? "" : "region");
    for (int q = 0; q <= quantity_count; ++q) {
        const Style* style = q < quantity_count ? &styles[q] : &saturation;
        for (int f = 0; f < family_count; ++f) {
            snprintf(text, sizeof text, "%s(%c)", style->symbol, "BO"[f]);
            printf("%*s", style->width, units ? style->unit : text);
        }
    }
    puts(units ? "" : "  note");
}

void print_header(const Layout* layout) {
    if (layout->csv) {
        print_csv_header();
        return;
    }
    print_head_row(layout, false);
    print_head_row(layout, true);
}

static void print_csv_number(double value) {
    putchar(',');
    if (!isnan(value)) {
        printf(full_precision, value);
    }
}

static void print_csv_state(const Station* station, const State* state) {
    write_field(stdout, station->name);
    print_csv_number(station->p);
    fputs(",MPa", stdout);
    print_csv_number(station->has_t ? station->t : NO_VALUE);
    fputs(station->has_t ? ",K" : ",", stdout);
    print_csv_number(state->region != 0 ? (double)state->region : NO_VALUE);
    for (int q = 0; q < quantity_count; ++q) {
        for (int f = 0; f < family_count; ++f) {
            print_csv_number(state->value[q][f]);
        }
    }
    print_csv_number(state->t_sat[family_b]);
    print_csv_number(state->t_sat[family_o]);
    putchar(',');
    write_field(stdout, station->note);
    putchar(',');
    write_field(stdout, state->remark);
    print_csv_number(station->has_x ? station->x : NO_VALUE);
    printf(",%s\n", role_name(station->role));
}

static void print_cell(const Style* style, double value) {
    char text[340] = "-";  // wide enough for any double
    if (!isnan(value)) {
        snprintf(text, sizeof text, style->format, value);
    }
    printf("%*s", style->width, text);
}

void print_state(const Layout* layout, const Station* station, const State* state) {
    if (layout->csv) {
        print_csv_state(station, state);
        return;
    }
    printf("%s%*s", station->name, layout->name_width - text_width(station->name), "");
    print_cell(&pressure, station->p);
    print_cell(&temperature, station->has_t ? station->t - zero_celsius : NO_VALUE);
    printf("%*c", region_width, state->region != 0 ? '0' + state->region : '-');
    for (int q = 0; q < quantity_count; ++q) {
        for (int f = 0; f < family_count; ++f) {
            print_cell(&styles[q], state->value[q][f]);
        }
    }
    print_cell(&saturation, state->t_sat[family_b] - zero_celsius);
    print_cell(&saturation, state->t_sat[family_o] - zero_celsius);
    printf("%s%s\n", *station->note == '\0' ? "" : "  ", station->note);
    if (*state->remark != '\0') {
        printf("    note: %s\n", state->remark);
    }
}
