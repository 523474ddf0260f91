// SPDX-License-Identifier: MIT
#pragma once

namespace vaprix::inverse {

// Enthalpy, kJ/kg, of saturated liquid of the entropy s, kJ/(kg K), to 0.75: what the patches of (h, s) are
// taken from.
template <class Number>
[[nodiscard]] Number liquid_h_near(Number s) noexcept {
    return s * (274 + s * (31 + s * 3.6));
}

}  // namespace vaprix::inverse
