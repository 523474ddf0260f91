// SPDX-License-Identifier: MIT
#include "regions/region3.hpp"

#include "regions/region3_backward.hpp"
#include "regions/region3_volume.hpp"

namespace vaprix {

template struct Region3<double>;
VAPRIX_DERIVED(template, (double, double, double), Region3<double>);

}  // namespace vaprix
