// SPDX-License-Identifier: MIT
// A turbine stage without losses, from 3 MPa and 400 degC to 0.1 MPa, by states, and one that there is not.
#include <cstdio>
#include <vaprix.hpp>

int main() {
    const vaprix::State inlet = vaprix::of_pt(3, 673.15);  // MPa, K
    const vaprix::State outlet = vaprix::of_ps(0.1, inlet.s());
    std::printf("inlet   h %8.2f kJ/kg   s %7.4f kJ/(kg K)\n", inlet.h(), inlet.s());
    std::printf("outlet  h %8.2f kJ/kg   x %7.4f\n", outlet.h(), outlet.x());
    std::printf("work      %8.2f kJ/kg\n", inlet.h() - outlet.h());

    const vaprix::State too_cold = vaprix::of_pt(3, 200);
    if (!too_cold) {  // as the other programs print it
        std::printf("200 K    -99999.0, code %d%s\n", too_cold.code(),
                    too_cold.code() == -10055 ? ": outside the range of validity" : "");
    }
}
