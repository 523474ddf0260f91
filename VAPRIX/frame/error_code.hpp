// SPDX-License-Identifier: MIT
//
// The error code of the calling thread.
#pragma once

#include "frame/constants.hpp"

namespace vaprix {

// What the codes mean is one table, exports/codes.csv.
enum class ErrorCode : int {
    success = 0,
    fugacity_below_t_min = -10001,
    fugacity_not_positive = -10002,
    negative_density = -10003,
    wet_steam_undefined = -10007,
    saturation_temperature_range = -10019,
    saturation_pressure_range = -10020,
    saturated_entropy_range = -10033,
    saturated_liquid_enthalpy_range = -10034,
    saturated_vapour_enthalpy_range = -10035,
    quality_range = -10036,
    saturated_enthalpy_range = -10037,
    saturation_temperature_of_entropy_range = -10038,
    fugacity_above_t_max = -10050,
    outside_range = -10055,
    refractive_range = -10056,
    property_range = -10057,
    not_wet_steam = -10058,
};

// The calling thread's code: 0 until something is stored, and never reset by a reading.
[[nodiscard]] int error_code() noexcept;

// Stores a code for the calling thread. Only failing paths and the few successes that are
// documented to store 0 come here, so the fast paths never touch thread-local storage.
void store(ErrorCode code) noexcept;

// Stores the code and gives the result of a failed evaluation.
[[nodiscard]] double fail(ErrorCode code) noexcept;

// What functions that both families share store on failure: a code, or nothing in the B-family.
inline constexpr ErrorCode no_code = ErrorCode::success;
template <ErrorCode code>
[[nodiscard]] double fail() noexcept {
    if constexpr (code == no_code) return failed;
    return fail(code);
}

// An answer that may be failed, with the code stored if it is.
[[nodiscard]] inline double or_fail(double answer, ErrorCode code) noexcept {
    return answer == failed ? fail(code) : answer;
}

}  // namespace vaprix
