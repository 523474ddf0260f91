// SPDX-License-Identifier: MIT
#include "states.hpp"

#include <algorithm>

#include "units.hpp"
#include "wet.hpp"

namespace vaprix::cli {
namespace {

template <Getter of, std::size_t which>
State wet_by(double x, double value, Family family) {
    return wet_of_x(x, value, of, family, which);
}
constexpr Known wet_pairs[] = {
    {"x", "h", wet_by<&State::h, 0>, wet_by<&State::h, 1>},
    {"x", "s", wet_by<&State::s, 0>, wet_by<&State::s, 1>},
    {"x", "v", wet_by<&State::v, 0>, wet_by<&State::v, 1>},
    {"x", "d", wet_by<&State::d, 0>, wet_by<&State::d, 1>},
};

// With the pairs that only the command searches for.
const Known* find_any_pair(std::string_view first, std::string_view second) {
    if (const Known* const found = find_pair(first, second)) return found;
    const std::string_view other = first == "x" ? second : first;
    const auto* const found = std::find_if(std::begin(wet_pairs), std::end(wet_pairs),
                                           [&](const Known& pair) { return pair.second == other; });
    return (first == "x" || second == "x") && found != std::end(wet_pairs) ? found : nullptr;
}

}  // namespace

Pair pair_of(std::string_view first, std::string_view second) {
    const Known* const found = find_any_pair(first, second);
    if (found == nullptr)
        throw Error("no state is found by " + std::string(first) + " and " + std::string(second) +
                    "; give p or T with one of p, T, v, d, h, s, x, h or s with one of v, d, h, s, "
                    "or x with one of v, d, h, s");
    return {found->of, found->first != first};
}

Resolver other_of(std::string_view first, std::string_view second) {
    const Known* const found = find_any_pair(first, second);
    return found == nullptr ? nullptr : found->other;
}

Family family_of(std::string_view letter) { return letter == "B" ? Family::B : Family::O; }

std::string meaning_of(int code) {
    const auto found = std::find_if(codes.begin(), codes.end(),
                                    [&](const Code& known) { return known.code == code; });
    return found == codes.end() ? "" : std::string(found->meaning);
}

}  // namespace vaprix::cli
