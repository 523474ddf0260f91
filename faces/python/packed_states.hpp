// SPDX-License-Identifier: MIT
//
// Blocks of states of the C++ interface, resolved and read by the packs of lanes that the functions over arrays have, to
// the same bits. What packs have no answer for goes one by one.
#pragma once

#include <vaprix/bridge.hpp>

#include <cstddef>
#include <string_view>

namespace vaprix::arrays::states {

using bridge::Resolved;

inline constexpr std::size_t most = 512;  // states of a block

// An export that packs may evaluate.
struct Export;

// How states of two variables are resolved.
struct Resolver {
    using One = Resolved (*)(double, double, bridge::Family) noexcept;
    One one;
    bridge::Family family;
    bool of_pt;
    const Export* solved_as;  // an export of the same state, or null: one by one

    // `pair` is what the exports' names end with: "PT", "PH", "PS".
    Resolver(One one, bridge::Family family, std::string_view pair) noexcept;
    void resolve(const double* x, const double* y, std::size_t count, Resolved* out) const noexcept;
};

// How a property of states is read.
struct Property {
    using One = double (*)(const Resolved&) noexcept;
    One one;
    const Export *of_o, *of_b;  // the exports of (p, T), or null

    // `symbol` is what the exports' names begin with, such as "H".
    Property(One one, std::string_view symbol) noexcept;
    void read(const Resolved* states, std::size_t count, double* out) const noexcept;
};

}  // namespace vaprix::arrays::states
