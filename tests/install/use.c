/* SPDX-License-Identifier: MIT */
/* A value of IAPWS R7-97(2012), Table 5, and a code from both of its places. */
#include <vaprix.h>

int main(void) {
    double p = 3, t = 300, outside = -1;
    double h = HBPT(&p, &t);
    if (h < 115.3312725 || h > 115.3312735) return 1;
    return HOPT(&outside, &t) == -99999.0 && ECODETUL() == -10055 && CODE == -10055 ? 0 : 2;
}
