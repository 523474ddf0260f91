// SPDX-License-Identifier: MIT
#include "states.hpp"

#include <algorithm>

#include "units.hpp"

namespace vaprix::cli {

Pair pair_of(std::string_view first, std::string_view second) {
    const Known* const found = find_pair(first, second);
    if (found == nullptr)
        throw Error("no state is found by " + std::string(first) + " and " + std::string(second) +
                    "; give p or T with one of p, T, v, d, h, s, x, h or s with one of v, d, h, s, "
                    "or x with one of v, d, h, s");
    return {found->of, found->first != first};
}

Resolver other_of(std::string_view first, std::string_view second) {
    const Known* const found = find_pair(first, second);
    return found == nullptr ? nullptr : found->other;
}

Family family_of(std::string_view letter) { return letter == "B" ? Family::B : Family::O; }

std::string meaning_of(int code) {
    const auto found = std::find_if(codes.begin(), codes.end(),
                                    [&](const Code& known) { return known.code == code; });
    return found == codes.end() ? "" : std::string(found->meaning);
}

}  // namespace vaprix::cli
