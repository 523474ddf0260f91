// SPDX-License-Identifier: MIT
// A turbine stage without losses, from 3 MPa and 400 degC to 0.1 MPa, and a call that fails.
#include <vaprix.h>

#include <cstdio>
#include <stdexcept>
#include <string>

// Calls an export by value; a failure is an exception with the code of this thread.
template <class... Doubles>
double of(double (*property)(const Doubles*...), Doubles... given) {
    const double result = property(&given...);
    if (result == -99999.0) {
        const int code = ECODETUL();
        throw std::domain_error("-99999.0, code " + std::to_string(code) +
                                (code == -10055 ? ": outside the range of validity" : ""));
    }
    return result;
}

int main() {
    const double h1 = of(HOPT, 3.0, 673.15), s = of(SOPT, 3.0, 673.15);  // MPa, K
    const double h2 = of(HOPS, 0.1, s), x2 = of(XOPS, 0.1, s);
    std::printf("inlet   h %8.2f kJ/kg   s %7.4f kJ/(kg K)\n", h1, s);
    std::printf("outlet  h %8.2f kJ/kg   x %7.4f\n", h2, x2);
    std::printf("work      %8.2f kJ/kg\n", h1 - h2);
    try {
        of(HOPT, 3.0, 200.0);
    } catch (const std::domain_error& error) {
        std::printf("200 K    %s\n", error.what());
    }
}
