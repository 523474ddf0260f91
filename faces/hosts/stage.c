// SPDX-License-Identifier: MIT
// A turbine stage without losses, from 3 MPa and 400 degC to 0.1 MPa, and a call that fails.
#include <stdio.h>
#include <vaprix.h>

int main(void) {
    const double p1 = 3.0, T1 = 673.15, p2 = 0.1, too_cold = 200.0;  // MPa, K
    const double h1 = HOPT(&p1, &T1), s = SOPT(&p1, &T1);
    const double h2 = HOPS(&p2, &s), x2 = XOPS(&p2, &s);
    printf("inlet   h %8.2f kJ/kg   s %7.4f kJ/(kg K)\n", h1, s);
    printf("outlet  h %8.2f kJ/kg   x %7.4f\n", h2, x2);
    printf("work      %8.2f kJ/kg\n", h1 - h2);

    const double failed = HOPT(&p1, &too_cold);
    const int code = ECODETUL();  // of this thread, directly after the call
    printf("%.0f K   %9.1f, code %d%s\n", too_cold, failed, code,
           code == -10055 ? ": outside the range of validity" : "");
    return 0;
}
