// SPDX-License-Identifier: MIT
// The fuzz targets' first inputs: every export at a state of each stratum and at none.
// Usage: fuzz_seeds folder     (writes folder/1 ... folder/4, by arity)
#include <cstring>
#include <filesystem>
#include <fstream>

#include "input.hpp"
#include "strata.hpp"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    strata::Random random(700);
    int written = 0;
    for (std::size_t arity = 1; arity <= 4; ++arity) {
        const std::filesystem::path folder = std::filesystem::path(argv[1]) / std::to_string(arity);
        std::filesystem::create_directories(folder);
        const auto functions = fuzz::of_arity(arity);
        const auto write = [&](std::size_t which, int region, const bound::Values& at) {
            fuzz::Input input;
            input.which = static_cast<std::uint16_t>(which);
            if (functions[which]->region) input.region = region;
            for (std::size_t k = 0; k < arity; ++k)
                input.arguments[k] = at[functions[which]->inputs[k]];
            std::ofstream(folder / std::to_string(++written), std::ios::binary)
                .write(reinterpret_cast<const char*>(&input), sizeof input);
        };
        for (std::size_t which = 0; which < functions.size(); ++which) {
            write(which, 0, strata::no_state(random));
            for (const strata::Stratum& stratum : strata::strata) {
                const strata::State at = strata::state(stratum.sample(random));
                if (at.region != 0) write(which, random.coin() ? at.region : 0, at);
            }
        }
    }
    return 0;
}
