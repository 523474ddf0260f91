/* SPDX-License-Identifier: MIT */
/* The public header as a host includes it: from C89 as from any C++, twice, with a call or two. */
#include "vaprix.h"

double enthalpy_twice(double p, double t);
int last_code(void);

double enthalpy_twice(double p, double t) {
    int region = 0;
    double (*of_pt)(const double*, const double*) = HOPT;
    return of_pt(&p, &t) + HPT(&p, &t, &region) + RCONST();
}

int last_code(void) { return ECODETUL() == 0 ? CODE : 0; }
