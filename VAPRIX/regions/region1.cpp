// SPDX-License-Identifier: MIT
#include "regions/region1.hpp"

#include "regions/region1_backward.hpp"

namespace vaprix {

template struct Region1<double>;
VAPRIX_DERIVED(template, (double, double), Region1<double>);

}  // namespace vaprix
