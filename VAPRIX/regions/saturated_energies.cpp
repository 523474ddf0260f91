// SPDX-License-Identifier: MIT
#include "regions/saturated_energies.hpp"

namespace vaprix {

template AuxiliaryEnergies<double> auxiliary_energies(double) noexcept;
template WetTemperature<double> wet_temperature_estimate(double, double) noexcept;

}  // namespace vaprix
