// SPDX-License-Identifier: MIT
// The same digits from every compiler, optimisation, instruction set and system: the groups of
// digests.csv, which says how, against its digests.
// To make the digests anew after a change that is meant to change digits: target write_digests.
// Usage: host_digests library digests.csv [v3 | --write]
//        v3 exits with 77 on a processor without AVX2 and FMA; --write makes the file.
#include <dlfcn.h>

#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "../split.hpp"

namespace {

// Numbers of [low, high], crowded towards low by squaring; nothing here needs a mathematical
// library.
struct Axis {
    double low, high;
    int squarings;

    explicit Axis(const std::string& text) {
        const Texts words = split(text, ':');
        low = std::stod(words.at(0)), high = std::stod(words.at(1)),
        squarings = std::stoi(words.at(2));
    }
    [[nodiscard]] double at(std::uint64_t random) const {
        double u = static_cast<double>(random >> 11) * 0x1p-53;
        for (int k = 0; k < squarings; ++k) u *= u;
        return low + (high - low) * u;
    }
};

enum Column { group, first, second, region, exports, digest, columns };
constexpr std::size_t digested = 30000;  // results of a group

// The results of a row by one library, over the same states from any; empty if an export is missing.
std::vector<double> evaluate(void* library, const Texts& row) {
    const bool of_one = row[second].empty();
    const auto call = [of_one](void* symbol, double x, double y) {
        return of_one ? reinterpret_cast<double (*)(const double*)>(symbol)(&x)
                      : reinterpret_cast<double (*)(const double*, const double*)>(symbol)(&x, &y);
    };
    std::vector<void*> symbols;
    for (const std::string& name : split(row[exports], ' ')) {
        symbols.push_back(dlsym(library, name.c_str()));
        if (symbols.back() == nullptr)
            return std::printf("no export %s\n", name.c_str()), std::vector<double>();
    }
    const Texts wanted = split(row[region] + '=', '=');
    void* const region_of = wanted[0].empty() ? nullptr : dlsym(library, wanted[0].c_str());
    const Axis x_axis(row[first]), y_axis(of_one ? "0:0:0" : row[second]);

    std::uint64_t state = 1;
    const auto random = [&state] {  // splitmix64
        std::uint64_t z = state += 0x9e3779b97f4a7c15U;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return z ^ (z >> 31);
    };
    std::vector<double> results;
    while (results.size() < digested) {
        const double x = x_axis.at(random()), y = y_axis.at(random());
        if (region_of != nullptr && call(region_of, x, y) != std::stod(wanted[1])) continue;
        for (void* const symbol : symbols) results.push_back(call(symbol, x, y));
    }
    return results;
}

// FNV-1a of the bits.
std::string digest_of(const std::vector<double>& results) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const double result : results) {
        const auto bits = std::bit_cast<std::uint64_t>(result);
        for (unsigned shift = 0; shift < 64; shift += 8)
            hash = (hash ^ ((bits >> shift) & 0xff)) * 0x100000001b3U;
    }
    char text[17];
    std::snprintf(text, sizeof text, "%016" PRIx64, hash);
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const std::string mode = argc > 3 ? argv[3] : "";
#ifdef __x86_64__
    if (mode == "v3" && !(__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))) {
        std::puts("skipped: this processor has no AVX2 and FMA");
        return 77;
    }
#endif
    void* const library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    std::ifstream file(argv[2]);
    if (library == nullptr || !file) return 2;
    int rows = 0, failures = 0;
    std::string written;
    for (std::string line; std::getline(file, line); written += line + '\n') {
        Texts row = split(line, ',');
        if (line[0] == '#' || row.size() != columns || row[group] == "group") continue;
        const std::vector<double> results = evaluate(library, row);
        const std::string own = digest_of(results);
        const bool good = !results.empty() && own == row[digest];
        std::printf("%-28s %s%s\n", row[group].c_str(), own.c_str(),
                    good || mode == "--write" ? "" : "  FAILED");
        failures += good ? 0 : 1;
        line.replace(line.rfind(',') + 1, std::string::npos, own);
        ++rows;
    }
    if (mode == "--write") return std::ofstream(argv[2]) << written ? 0 : 1;
    return rows > 60 && failures == 0 ? 0 : 1;
}
