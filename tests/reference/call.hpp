// SPDX-License-Identifier: MIT
// Exports called by value, so that they stand in tables beside the internal functions.
#pragma once

#include "vaprix.h"

namespace reference {

template <auto Export>
double call1(double x) {
    return Export(&x);
}

template <auto Export>
double call(double x, double y) {
    return Export(&x, &y);
}

}  // namespace reference
