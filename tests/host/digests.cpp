// SPDX-License-Identifier: MIT
//
// The same digits from every compiler, optimisation and instruction set. Per group of exports a
// digest of 100000 results stands in digests.csv; where a result passes through exp, log or cbrt,
// whose last digit is the C library's affair, it is compared with another build of the library
// instead. (A logarithm that only decides a comparison does not count.)
// To make it anew after a change that is meant to change digits: target write_digests.
// Usage: host_digests library other-build digests.csv [v3 | --write]
//        v3 exits with 77 on a processor without AVX2 and FMA; --write makes the file.
#include <dlfcn.h>

#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Numbers of [low, high], crowded towards low by squaring; nothing here needs a mathematical
// library.
struct Axis {
    double low, high;
    int squarings = 0;

    [[nodiscard]] double at(std::uint64_t random) const {
        double u = static_cast<double>(random >> 11) * 0x1p-53;
        for (int k = 0; k < squarings; ++k) u *= u;
        return low + (high - low) * u;
    }
};

// States of a rectangle that the library itself puts into a region; no region: all of them. Without
// a second variable y is empty.
struct States {
    Axis x, y;
    const char* region_of = nullptr;
    double region = 0;
};

constexpr Axis of_p{0.000612, 100, 1}, of_p5{0.000612, 50, 1}, of_p3{16.53, 100, 1},
    of_ps{0.000612, 16.529, 1}, of_ps3{16.53, 22.06}, of_t1{273.15, 623.15}, of_t3{623.15, 863.15},
    of_t5{1073.2, 2273.15}, of_ts3{623.16, 647.09}, of_x{0, 1}, of_d{0.0005, 1000, 2}, none{0, 0};

constexpr States pt1{of_p, of_t1, "REGIONPT", 1}, pt2{of_p, {273.15, 1073.15}, "REGIONPT", 2},
    pt3{of_p3, of_t3, "REGIONPT", 3}, pt5{of_p5, of_t5, "REGIONPT", 5},
    ph1{of_p, {-0.04, 1700}, "REGIONPH", 1}, ph2{of_p, {2500, 4200}, "REGIONPH", 2},
    ph3{of_p3, {1500, 2900}, "REGIONPH", 3}, ph5{of_p5, {3900, 7380}, "REGIONPH", 5},
    ph4{of_ps, {0, 2810}, "REGIONPH", 4}, ps1{of_p, {-0.009, 3.9}, "REGIONPS", 1},
    ps2{of_p, {5, 12}, "REGIONPS", 2}, ps3{of_p3, {3.3, 5.4}, "REGIONPS", 3},
    ps5{of_p5, {6.5, 14}, "REGIONPS", 5}, ps4{of_ps, {0, 9.2}, "REGIONPS", 4}, line_t{of_t1, none},
    line_p{of_ps, none}, dense_t{of_ts3, none}, dense_p{of_ps3, none}, wet_t{of_t1, of_x},
    wet_p{of_ps, of_x}, td1{of_t1, of_d}, td3{of_t3, of_d}, td5{of_t5, of_d};

// A group: what its results may differ by, relatively, from another build; 0: they have a digest.
// An export that the library does not have is passed over, and with it the digest of its group.
// The bounds are some ten times what results move by when the last digit of log, exp, cbrt and
// log1p is changed at random.
constexpr double logarithm = 3e-13;
constexpr double search = 1e-11;       // what a search ends on
constexpr double through_zero = 1e-9;  // energies that pass through zero
constexpr double maxwell = 1e-8;       // coexisting densities next to the critical point
struct Group {
    const char* name;
    States states;
    const char* exports;
    double tolerance = 0;
};
constexpr Group groups[] = {
    {"region 1 (p T) B", pt1, "VBPT DBPT HBPT SBPT CPBPT CVBPT WBPT UBPT FBPT GBPT"},
    {"region 1 (p T) O", pt1, "VOPT DOPT HOPT SOPT CPOPT CVOPT WOPT UOPT FOPT GOPT"},
    {"region 2 (p T) B", pt2, "VBPT DBPT HBPT CPBPT CVBPT WBPT UBPT"},
    {"region 2 (p T) B log", pt2, "SBPT FBPT GBPT", logarithm},
    {"region 2 (p T) O", pt2, "VOPT DOPT HOPT CPOPT CVOPT WOPT UOPT"},
    {"region 2 (p T) O log", pt2, "SOPT FOPT GOPT", logarithm},
    {"region 3 (p T) B", pt3, "VBPT DBPT HBPT SBPT CPBPT CVBPT WBPT UBPT FBPT GBPT", search},
    {"region 3 (p T) O", pt3, "VOPT DOPT HOPT CPOPT CVOPT WOPT UOPT"},
    {"region 3 (p T) O log", pt3, "SOPT FOPT GOPT", logarithm},
    {"region 5 (p T) B", pt5, "VBPT DBPT HBPT CPBPT CVBPT WBPT UBPT"},
    {"region 5 (p T) B log", pt5, "SBPT FBPT GBPT", logarithm},
    {"region 5 (p T) O", pt5, "VOPT DOPT HOPT CPOPT CVOPT WOPT UOPT"},
    {"region 5 (p T) O log", pt5, "SOPT FOPT GOPT", logarithm},
    {"region 1 (p h) B", ph1, "TBPH VBPH DBPH SBPH CPBPH WBPH"},
    {"region 1 (p h) O", ph1, "TOPH VOPH DOPH SOPH CPOPH WOPH"},
    {"region 2 (p h) B", ph2, "TBPH VBPH DBPH CPBPH WBPH"},
    {"region 2 (p h) O", ph2, "TOPH VOPH DOPH CPOPH WOPH"},
    {"region 2 (p h) log", ph2, "SBPH SOPH", logarithm},
    {"region 3 (p h) B", ph3, "TBPH DBPH"},
    {"region 3 (p h) B log", ph3, "VBPH SBPH CPBPH WBPH", search},
    {"region 3 (p h) O", ph3, "TOPH VOPH DOPH CPOPH WOPH"},
    {"region 3 (p h) O log", ph3, "SOPH", logarithm},
    {"region 5 (p h) B", ph5, "TBPH VBPH DBPH CPBPH WBPH"},
    {"region 5 (p h) O", ph5, "TOPH VOPH DOPH CPOPH WOPH"},
    {"region 5 (p h) log", ph5, "SBPH SOPH", logarithm},
    {"wet steam (p h)", ph4, "TBPH VBPH DBPH XBPH TOPH VOPH DOPH XOPH"},
    {"wet steam (p h) log", ph4, "SBPH SOPH", logarithm},
    {"region 1 (p s) B", ps1, "TBPS VBPS DBPS HBPS CPBPS WBPS"},
    {"region 1 (p s) O", ps1, "TOPS VOPS DOPS HOPS CPOPS WOPS"},
    {"region 2 (p s) B", ps2, "TBPS VBPS DBPS HBPS CPBPS WBPS"},
    {"region 2 (p s) O log", ps2, "TOPS VOPS DOPS HOPS CPOPS WOPS", search},
    {"region 3 (p s) B", ps3, "TBPS DBPS"},
    {"region 3 (p s) log", ps3, "VBPS HBPS CPBPS WBPS TOPS VOPS DOPS HOPS CPOPS WOPS", search},
    {"region 5 (p s) log", ps5, "TBPS VBPS HBPS WBPS TOPS VOPS HOPS WOPS", search},
    {"wet steam (p s)", ps4, "TBPS TOPS"},
    {"wet steam (p s) log", ps4, "VBPS DBPS HBPS XBPS VOPS DOPS HOPS XOPS", search},
    {"saturation line T", line_t, "PBT POT FB23"},
    {"saturation line p", line_p, "TBP TOP DTBPDP"},
    {"saturated T B", line_t,
     "H1BT H2BT S1BT V1BT V2BT CP1BT CP2BT CV2BT W1BT W2BT U2BT F1BT G1BT"},
    {"saturated T O", line_t, "H1OT H2OT S1OT V1OT V2OT CP1OT W2OT U2OT D1OT D2OT HLOT HVAPOT"},
    {"saturated T log", line_t, "S2BT F2BT G2BT S2OT F2OT G2OT SVAPOT", through_zero},
    {"saturated p B", line_p, "H1BP H2BP S1BP V1BP V2BP CP1BP CP2BP W1BP W2BP"},
    {"saturated p O", line_p, "H1OP H2OP S1OP V1OP V2OP CP1OP CP2OP W1OP W2OP D1OP D2OP"},
    {"saturated p log", line_p, "S2BP S2OP", logarithm},
    {"dense saturated T", dense_t, "H1BT H2BT S1BT V1BT W2BT H1OT V2OT D1OT D2OT HVAPOT", maxwell},
    {"dense saturated p", dense_p, "H1BP H2BP S1BP V1BP W2BP H1OP V2OP D1OP D2OP", maxwell},
    {"wet steam (T x)", wet_t, "HBTX VBTX HOTX VOTX UOTX DOTX ZOTX POTX"},
    {"wet steam (T x) log", wet_t, "SBTX SOTX FOTX GOTX", through_zero},
    {"wet steam (p x)", wet_p, "HBPX VBPX HOPX VOPX DOPX"},
    {"wet steam (p x) log", wet_p, "SBPX SOPX", logarithm},
    {"to 623.15 K (T d)", td1, "POTD HOTD UOTD ZOTD CPOTD CVOTD WOTD XOTD"},
    {"to 623.15 K (T d) log", td1, "SOTD FOTD GOTD", through_zero},
    {"623.15 to 863.15 K (T d)", td3, "POTD HOTD SOTD UOTD GOTD CPOTD WOTD XOTD", maxwell},
    {"region 5 (T d)", td5, "POTD HOTD UOTD ZOTD CPOTD CVOTD WOTD"},
    {"region 5 (T d) log", td5, "SOTD FOTD GOTD", logarithm},
};

constexpr std::size_t digested = 100000, compared = 20000;  // results of a group

struct Export {
    void* symbol;
    bool of_one;

    [[nodiscard]] double operator()(double x, double y) const {
        if (of_one) return reinterpret_cast<double (*)(const double*)>(symbol)(&x);
        return reinterpret_cast<double (*)(const double*, const double*)>(symbol)(&x, &y);
    }
};

// The results of a group by one library, over the same states from any; empty if one is missing.
std::vector<double> evaluate(void* library, const Group& group) {
    const bool of_one = group.states.y.high == 0;
    std::vector<Export> exports;
    std::istringstream names(group.exports);
    for (std::string name; names >> name;) {
        exports.push_back({dlsym(library, name.c_str()), of_one});
        if (exports.back().symbol == nullptr) {
            std::printf("%s: no export %s\n", group.name, name.c_str());
            return {};
        }
    }
    const char* region_of = group.states.region_of;
    const Export region{region_of != nullptr ? dlsym(library, region_of) : nullptr, false};

    std::uint64_t state = 1;
    const auto random = [&state] {  // splitmix64
        std::uint64_t z = state += 0x9e3779b97f4a7c15U;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return z ^ (z >> 31);
    };
    std::vector<double> results;
    while (results.size() < (group.tolerance > 0 ? compared : digested)) {
        const double x = group.states.x.at(random());
        const double y = group.states.y.at(random());
        if (region.symbol != nullptr && region(x, y) != group.states.region) continue;
        for (const Export& each : exports) results.push_back(each(x, y));
    }
    return results;
}

// FNV-1a of the bits.
std::string digest(const std::vector<double>& results) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const double result : results) {
        const auto bits = std::bit_cast<std::uint64_t>(result);
        for (unsigned shift = 0; shift < 64; shift += 8) {
            hash = (hash ^ ((bits >> shift) & 0xff)) * 0x100000001b3U;
        }
    }
    char text[17];
    std::snprintf(text, sizeof text, "%016" PRIx64, hash);
    return text;
}

double largest_difference(const std::vector<double>& a, const std::vector<double>& b) {
    double largest = 0;
    for (std::size_t k = 0; k < a.size(); ++k) {
        if (a[k] != b[k]) largest = std::max(largest, std::fabs(a[k] - b[k]) / std::fabs(b[k]));
    }
    return largest;
}

std::map<std::string, std::string> read_digests(const char* path) {
    std::map<std::string, std::string> digests;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::size_t comma = line.find(',');
        if (comma != std::string::npos) digests[line.substr(0, comma)] = line.substr(comma + 1);
    }
    return digests;
}

int write_digests(void* library, const char* path) {
    std::ofstream file(path);
    file << "group,FNV-1a of " << digested << " results or a few more\n";
    for (const Group& group : groups) {
        if (group.tolerance > 0) continue;
        const std::vector<double> results = evaluate(library, group);
        if (!results.empty()) file << group.name << ',' << digest(results) << '\n';
    }
    return file ? 0 : 1;
}

int compare(void* library, void* other, const std::map<std::string, std::string>& digests) {
    int failures = 0;
    for (const Group& group : groups) {
        const std::vector<double> results = evaluate(library, group);
        if (results.empty()) continue;
        bool good = false;
        if (group.tolerance > 0) {
            const double difference = largest_difference(results, evaluate(other, group));
            good = difference <= group.tolerance;
            std::printf("%-28s difference %.1e of %.0e", group.name, difference, group.tolerance);
        } else {
            const std::string own = digest(results);
            const auto found = digests.find(group.name);
            good = found != digests.end() && found->second == own;
            std::printf("%-28s %s", group.name, own.c_str());
        }
        std::puts(good ? "" : "  FAILED");
        failures += good ? 0 : 1;
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) return 2;
    const std::string mode = argc > 4 ? argv[4] : "";
#ifdef __x86_64__
    if (mode == "v3" && !(__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))) {
        std::puts("skipped: this processor has no AVX2 and FMA");
        return 77;
    }
#endif
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    void* other = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr || other == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    return mode == "--write" ? write_digests(library, argv[3])
                             : compare(library, other, read_digests(argv[3]));
}
