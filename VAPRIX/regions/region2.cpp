// SPDX-License-Identifier: MIT
#include "regions/region2.hpp"

#include "regions/region2_backward.hpp"

namespace vaprix {

template class Vapour<Region2Equation, double>;
template struct Region2<double>;
VAPRIX_DERIVED(template, (double, double), Vapour<Region2Equation, double>);

}  // namespace vaprix
