// SPDX-License-Identifier: MIT
// The C++ interface beside the exports in one program.
#include <vaprix.h>

#include <vaprix.hpp>

int main() {
    const double p = 3, T = 300;
    const vaprix::State s = vaprix::of_pt(p, T);
    return s && s.h() == HOPT(&p, &T) && !vaprix::of_pt(-1, T) ? 0 : 1;
}
