/* SPDX-License-Identifier: MIT */
/* Values of IAPWS R7-97(2012), Table 5, a failure among them. */
#include <vaprix_arrays.h>

int main(void) {
    const double p[3] = {3, -1, 80}, T = 300;
    double h[3];
    int32_t code[3];
    HOPT_array(3, p, 1, &T, 0, h, 1, code);
    if (h[0] < 115.3312725 || h[0] > 115.3312735 || code[0] != 0) return 1;
    if (h[1] != -99999.0 || code[1] != -10055) return 2;
    return h[2] < 184.142827 || h[2] > 184.142829 || code[2] != 0;
}
