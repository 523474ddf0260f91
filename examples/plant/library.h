// SPDX-License-Identifier: MIT
// The property library, opened by file name and bound by name: nothing of it is linked or included.
#ifndef PLANT_LIBRARY_H
#define PLANT_LIBRARY_H

#include <math.h>
#include <stdbool.h>

#define NO_VALUE ((double)NAN)

typedef double OfPair(const double* p, const double* second);  // second: T, h or s, as named
typedef double OfP(const double* p);
typedef int ErrorCode(void);

enum { family_b, family_o, family_count };
enum { quantity_v, quantity_h, quantity_s, quantity_cp, quantity_w, quantity_count };
enum { wet_quantity_count = quantity_cp };  // cp and w are properties of one phase
enum { liquid, vapour, phase_count };
enum { two_phase = 4 };  // the region of wet steam

typedef struct {
    OfPair *region_pt, *region_ps;
    OfPair* property[quantity_count][family_count];      // of (p, T)
    OfPair* saturated[wet_quantity_count][phase_count];  // of (p, saturation temperature)
    OfPair *h_ps[family_count], *t_ps[family_count], *x_ps[family_count], *t_ph[family_count];
    OfP* t_sat[family_count];  // saturation temperature, K
    ErrorCode* error_code;     // of the calling thread
} Library;

// Opens the library and binds every name, or says on stderr what failed. It stays open.
bool open_library(const char* path, Library* library);

// The value, or NO_VALUE for an answer that is none: the library answers a failure with -99999, an
// undetermined state with 0 or infinity.
double answer(double value, bool may_be_zero);

#endif
