// SPDX-License-Identifier: MIT
#include "regions/region5.hpp"

#include "regions/region5_backward.hpp"

namespace vaprix {

template class Vapour<Region5Equation, double>;
template struct Region5<double>;
VAPRIX_DERIVED(template, (double, double), Vapour<Region5Equation, double>);

}  // namespace vaprix
