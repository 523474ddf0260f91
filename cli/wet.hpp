// SPDX-License-Identifier: MIT
//
// Wet steam of a quality and one more variable, found along the saturation line.
#pragma once

#include <cstddef>
#include <vaprix.hpp>

namespace vaprix::cli {

using Getter = double (State::*)() const noexcept;

// Along a line of constant quality h, s and v may turn: of the states that have the value, in the order of their
// pressures, this one from 0; a failed one if there are not so many.
State wet_of_x(double x, double value, Getter of, Family family, std::size_t which);

}  // namespace vaprix::cli
