// SPDX-License-Identifier: MIT
//
// Every function that a row of the catalogue names.
#pragma once

#include "frame/constants.hpp"
#include "frame/error_code.hpp"
#include "inverse/ph.hpp"
#include "inverse/ps.hpp"
#include "inverse/td.hpp"
#include "inverse/tv.hpp"
#include "pt/b_family.hpp"
#include "pt/o_family.hpp"
#include "pt/region_given.hpp"
#include "regions/b23.hpp"
#include "regions/region1.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3.hpp"
#include "regions/region3_backward.hpp"
#include "regions/region3_density.hpp"
#include "regions/region5.hpp"
#include "regions/region5_backward.hpp"
#include "regions/saturated_densities.hpp"
#include "saturation/line.hpp"
#include "saturation/saturated.hpp"
#include "saturation/wet_steam.hpp"
