// SPDX-License-Identifier: MIT
//
// Fits the inverses of (p, h) and (p, s) by patches, in region 2 of (p, s + R ln p), and prints
// inverse/tables/inverse_patches.hpp: the temperature of regions 1 and 2, temperature and density of
// region 3. Likewise those of (h, s): pressure and temperature of region 1, of region 2 s + R ln p, which
// with p has the temperature.
//
// A block of the grid is divided until one step from the patches leaves an error of rounding: in regions
// 1 and 2 by the basic equation and the slope of the patch, in region 3 by Newton's method.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <numbers>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frame/constants.hpp"
#include "frame/newton.hpp"
#include "frame/patches.hpp"
#include "inverse/liquid_h_near.hpp"
#include "least_squares.hpp"
#include "regions/b23.hpp"
#include "regions/region1.hpp"
#include "regions/region1_backward.hpp"
#include "regions/region2.hpp"
#include "regions/region2_backward.hpp"
#include "regions/region3.hpp"
#include "regions/saturation_line.hpp"

namespace {

using namespace vaprix;

constexpr std::size_t terms = patch_terms, wide_terms = 4 * wide_quads;
constexpr std::size_t u_powers = 6, w_powers = 8;
constexpr double coarse = 0x1p4;  // of the constants: they may be large, and do not enter the slope
constexpr double narrow = 0x1p4;  // of those of higher order: they are small
constexpr double last_step = 4e-6;     // K, to which a patch of regions 1 and 2 is held
constexpr double dense_error = 1e-8;   // relative, those of region 3
constexpr double liquid_error = 4e-6;  // MPa and K, of (h, s) in region 1
constexpr double vapour_error = 4e-8;  // of s + R ln p, kJ/(kg K), in region 2
constexpr int divisions = 7;           // of a block, at most: halvings

using Coefficients = std::array<std::int32_t, terms>;

// The powers of u and w of a term.
constexpr auto powers = [] {
    std::array<PatchPowers, terms> of{};
    for (std::size_t k = 0; k < terms; ++k) {
        const auto [i, j] = patch_quads[k / 4];
        of[k] = {i + k % 4 / 2, j + k % 2};
    }
    return of;
}();

struct Limits {
    double low, high;
};

// What is fitted.
struct Surface {
    const char* name;
    // at a pressure and h or s, of (h, s) at s and h, as far as the equation is trusted beyond the region
    std::function<std::optional<double>(double p, double y)> z;
    std::function<Limits(double p)> limits;                    // of y in the region
    std::function<bool(double p, double y, double z)> within;  // or close to the region
    // how bad a value and its slope are: from 1 not good enough
    std::function<double(double p, double z, double value, double slope)> fault;
    Patches grid;
    double p_low, p_high;
};

// Region 1 or 2.
struct Gibbs {
    Tangent<double> (*y)(double p, double t) noexcept;  // along an isobar
    Limits (*t)(double p);
};

Limits liquid(double p) { return {T_min, p < psat_13 ? tsat(std::max(p, p_min)) : T_13}; }
Limits vapour(double p) { return {p < psat_13 ? tsat(std::max(p, p_min)) : t_b23(p), T_25}; }

// The temperature, by Newton's method in a bracket; none beyond the margins.
std::optional<double> inverse(const Gibbs& region, double p, double y) {
    constexpr double margin = 10;  // K
    auto [low, high] = region.t(p);
    low -= margin;
    high += margin;
    const double left_low = region.y(p, low).y - y, left_high = region.y(p, high).y - y;
    if (!(left_low <= 0 && left_high >= 0)) return {};
    double t = low + (high - low) * left_low / (left_low - left_high);
    for (int round = 0; round < 100; ++round) {
        const Tangent<double> at = region.y(p, t);
        (at.y < y ? low : high) = t;
        double next = t + (y - at.y) / at.y_x;
        if (!(next > low && next < high)) next = 0.5 * (low + high);
        const bool settled = std::fabs(next - t) < 1e-11;
        t = next;
        if (settled) break;
    }
    return t;
}

// Its patches, `rounding` being the error of t, relative, that they may leave.
Surface gibbs_surface(const char* name, const Gibbs& region, double rounding, const Patches& grid) {
    return {.name = name,
            .z = [region](double p, double y) { return inverse(region, p, y); },
            .limits =
                [region](double p) {
                    const auto [low, high] = region.t(p);
                    return Limits{region.y(p, low).y, region.y(p, high).y};
                },
            .within =
                [region](double p, double /* y */, double t) {
                    constexpr double beside = 0.05;  // K
                    const auto [low, high] = region.t(p);
                    return t >= low - beside && t <= high + beside;
                },
            .fault =
                [region, rounding](double p, double t, double value, double slope) {
                    const double error = std::fabs(value - t);
                    const double slope_error = std::fabs(slope * region.y(p, t).y_x - 1);
                    return std::max(error / last_step, error * slope_error / (rounding * t));
                },
            .grid = grid,
            .p_low = p_min,
            .p_high = p_max};
}

// Region 3: p and y of (density, T), where Newton's method starts, and y at the ends of an isobar.
struct Dense {
    TangentPair<double> (*tangents)(double d, double t) noexcept;
    double (*v)(double p, double y) noexcept;
    double (*t)(double p, double y) noexcept;
    double (*p_saturated)(double y) noexcept;
    double (*y1)(double p, double t) noexcept;
    double (*y2)(double p, double t) noexcept;
};

// Density and temperature, in wet steam too, whose states the equation goes through without a singularity.
std::optional<Point<double>> inverse(const Dense& region, double p, double y) {
    constexpr Limits densities{50, 850}, temperatures{605, 900};  // where the equation is trusted
    if (p < 16.4) return {};
    const auto [at, converged] =
        newton(region.tangents, p, y, {1 / region.v(p, y), region.t(p, y)}, 1e-9);
    const bool trusted = converged && at.x > densities.low && at.x < densities.high &&
                         at.y > temperatures.low && at.y < temperatures.high;
    return trusted ? std::optional(at) : std::nullopt;
}

Surface dense_surface(const char* name, const Dense& region, double Point<double>::*z,
                      const Patches& grid) {
    const auto limits = [region](double p) {
        return Limits{region.y1(p, T_13), region.y2(p, t_b23(p))};
    };
    return {
        .name = name,
        .z = [region, z](double p, double y) -> std::optional<double> {
            const auto at = inverse(region, p, y);
            return at ? std::optional(*at.*z) : std::nullopt;
        },
        .limits = limits,
        .within =
            [region, limits](double p, double y, double /* z */) {
                constexpr double beside = 1e-3;  // relative, of y and p
                const auto [low, high] = limits(p);
                return y >= low * (1 - beside) && y <= high * (1 + beside) &&
                       (p >= p_crit || p >= (1 - beside) * region.p_saturated(y));
            },
        .fault = [](double /* p */, double z_exact, double value,
                    double /* slope */) { return std::fabs(value / z_exact - 1) / dense_error; },
        .grid = grid,
        .p_low = psat_13,
        .p_high = p_max};
}

// Region 1 or 2 of s and h, in region 1 of s and h less liquid_h_near(s).
struct GibbsOfHs {
    TangentPair<double> (*tangents)(double p, double t) noexcept;
    double (*p)(double h, double s) noexcept;  // where Newton's method starts
    double (*t)(double p, double h) noexcept;
    Gibbs along_isobar;  // s, of vapour s + R ln p
    bool is_vapour;
    Limits of_s;

    [[nodiscard]] double h_0(double s) const { return is_vapour ? 0 : inverse::liquid_h_near(s); }
};

// Pressure and temperature, by Newton's method; none far beyond the region.
std::optional<Point<double>> inverse(const GibbsOfHs& region, double h, double s) {
    constexpr Limits pressures{-25, 130}, temperatures{230, 1200};
    constexpr double settled = 1e-10;
    const double start = std::clamp(region.p(h, s), p_min, p_max);
    Point<double> at{start, std::clamp(region.t(start, h), T_min, T_25)};
    for (int round = 0; round < 50; ++round) {
        const TangentPair<double> f = region.tangents(at.x, at.y);
        const Point<double> step = newton_step(f, h - f.a, s - f.b);
        const double unit = region.is_vapour ? at.x : 1;
        at.x = region.is_vapour ? at.x * std::exp(std::clamp(step.x / at.x, -0.5, 0.5))
                                : at.x + std::clamp(step.x, -20.0, 20.0);
        at.y += std::clamp(step.y, -50.0, 50.0);
        if (!(at.x > pressures.low && at.x < pressures.high && at.y > temperatures.low &&
              at.y < temperatures.high)) {
            return {};
        }
        if (std::fabs(step.x) < settled * unit && std::fabs(step.y) < settled) return at;
    }
    return {};
}

// Least and greatest h at s in the region.
Limits isentrope(const GibbsOfHs& region, double s) {
    constexpr int pressures = 1000;
    static std::map<std::pair<bool, double>, Limits> known;
    const auto [at, is_new] = known.try_emplace({region.is_vapour, s}, Limits{1e9, -1e9});
    auto& [low, high] = at->second;
    for (int i = 0; is_new && i <= pressures; ++i) {
        const double p = p_min * std::pow(p_max / p_min, static_cast<double>(i) / pressures);
        const double y = region.is_vapour ? s + R * std::log(p) : s;
        const auto t = inverse(region.along_isobar, p, y);
        const auto [t_low, t_high] = region.along_isobar.t(p);
        if (!t || *t < t_low || *t > t_high) continue;
        const double h = region.tangents(p, *t).a;
        low = std::min(low, h);
        high = std::max(high, h);
    }
    return at->second;
}

// `z` of pressure and temperature at s, `allowed` being its error.
Surface hs_surface(const char* name, const GibbsOfHs& region,
                   const std::function<double(Point<double> at, double s)>& z, double allowed,
                   const Patches& grid) {
    const auto exact = [region](double s, double y) {
        return inverse(region, y + region.h_0(s), s);
    };
    return {.name = name,
            .z = [exact, z](double s, double y) -> std::optional<double> {
                const auto at = exact(s, y);
                return at ? std::optional(z(*at, s)) : std::nullopt;
            },
            .limits =
                [region](double s) {
                    const auto [low, high] = isentrope(region, s);
                    return Limits{low - region.h_0(s), high - region.h_0(s)};
                },
            .within =
                [region, exact](double s, double y, double /* z */) {
                    constexpr double beside = 0.05;    // K
                    constexpr double p_beside = 1e-4;  // relative
                    const auto [p, t] = *exact(s, y);
                    if (p < p_min * (1 - p_beside) || p > p_max * (1 + p_beside)) return false;
                    const auto [low, high] = region.along_isobar.t(std::clamp(p, p_min, p_max));
                    return t >= low - beside && t <= high + beside;
                },
            .fault = [allowed](double /* s */, double z_exact, double value,
                               double /* slope */) { return std::fabs(value - z_exact) / allowed; },
            .grid = grid,
            .p_low = region.of_s.low,
            .p_high = region.of_s.high};
}

// Values of T_0 to T_7, the Chebyshev polynomials, at x.
std::array<double, w_powers> chebyshev(double x) {
    std::array<double, w_powers> value{1, x};
    for (std::size_t k = 2; k < value.size(); ++k) value[k] = 2 * x * value[k - 1] - value[k - 2];
    return value;
}

// Their coefficients.
constexpr auto chebyshev_terms = [] {
    std::array<std::array<double, w_powers>, w_powers> c{};
    c[0][0] = c[1][1] = 1;
    for (std::size_t k = 2; k < w_powers; ++k) {
        for (std::size_t i = 0; i < w_powers; ++i)
            c[k][i] = (i > 0 ? 2 * c[k - 1][i - 1] : 0) - c[k - 2][i];
    }
    return c;
}();

// The coefficient that the product of them which is of the powers of one term has of those of another.
Real chebyshev_product(std::size_t product, std::size_t term) {
    const auto [a, b] = powers[product];
    const auto [i, j] = powers[term];
    return Real(chebyshev_terms[a][i] * chebyshev_terms[b][j]);
}

// The terms, those of higher order first.
constexpr auto by_falling_order = [] {
    std::array<std::size_t, terms> order{};
    for (std::size_t k = 0; k < terms; ++k) order[k] = k;
    std::ranges::sort(order, std::ranges::greater{},
                      [](std::size_t k) { return powers[k].i + powers[k].j; });
    return order;
}();

// The unit of a coefficient, in that of the wide ones.
double units(const Patches& grid, std::size_t term) {
    if (term == 0) return grid.coarse;
    return term < wide_terms ? 1 : grid.narrow;
}

struct Cell {
    double p_low, p_high, y_low, y_high;
    [[nodiscard]] double p(double u) const { return p_low + (p_high - p_low) * (u + 1) / 2; }
    [[nodiscard]] double y(double w) const { return y_low + (y_high - y_low) * (w + 1) / 2; }
};

// Coefficients of the Chebyshev products that fit the samples best, held small where these leave the
// cell open.
Row fitted(const std::vector<Row>& samples, bool complete) {
    Row found(terms);
    if (complete) {  // orthogonal
        for (std::size_t k = 0; k < terms; ++k) {
            Real product = 0, square = 0;
            for (const Row& row : samples) {
                product += row[k] * row.back();
                square += row[k] * row[k];
            }
            found[k] = product / square;
        }
        return found;
    }
    std::vector<Row> normal(terms, Row(terms + 1));
    for (const Row& row : samples) {
        for (std::size_t r = 0; r < terms; ++r) {
            for (std::size_t c = 0; c <= terms; ++c) normal[r][c] += row[r] * row[c];
        }
    }
    for (std::size_t k = 0; k < terms; ++k) {
        Real damping = 1e-18L;
        for (std::size_t order = powers[k].i + powers[k].j; order > 0; --order) damping *= 60;
        normal[k][k] += damping;
    }
    return solve(normal);
}

Coefficients fit_cell(const Surface& f, const Cell& cell) {
    constexpr std::size_t u_nodes = u_powers + 3, w_nodes = w_powers + 3;
    const auto node = [](std::size_t k, std::size_t nodes) {
        return std::cos(std::numbers::pi * (static_cast<double>(k) + 0.5) /
                        static_cast<double>(nodes));
    };
    std::vector<Row> samples;
    for (std::size_t i = 0; i < u_nodes; ++i) {
        for (std::size_t j = 0; j < w_nodes; ++j) {
            const double u = node(i, u_nodes), w = node(j, w_nodes);
            const std::optional<double> z = f.z(cell.p(u), cell.y(w));
            if (!z) continue;
            const auto of_u = chebyshev(u), of_w = chebyshev(w);
            Row row;
            for (const auto& [a, b] : powers) row.push_back(Real(of_u[a] * of_w[b]));
            row.push_back(Real(*z - f.grid.base));
            samples.push_back(row);
        }
    }
    constexpr std::int32_t wide_largest = 2147483647, narrow_largest = 32767;
    Coefficients found{};
    if (samples.empty()) {
        // far from any state, with a slope, so that no state is taken for settled
        found[0] = found[1] = wide_largest;
        return found;
    }
    const Row of_products = fitted(samples, samples.size() == u_nodes * w_nodes);
    std::array<Real, terms> of_powers{};
    for (std::size_t a = 0; a < terms; ++a) {
        for (std::size_t k = 0; k < terms; ++k)
            of_powers[k] += of_products[a] * chebyshev_product(a, k);
    }
    // From the highest order down, so that lower ones take over of a rounding all but its Chebyshev product.
    for (const std::size_t k : by_falling_order) {
        const auto [i, j] = powers[k];
        const Real unit = Real(f.grid.unit * units(f.grid, k));
        const Real most = k < wide_terms ? wide_largest : narrow_largest;
        found[k] =
            static_cast<std::int32_t>(std::lround(std::clamp(of_powers[k] / unit, -most, most)));
        const Real product =
            (of_powers[k] - unit * found[k]) / Real(chebyshev_terms[i][i] * chebyshev_terms[j][j]);
        for (std::size_t lower = 0; lower < terms; ++lower)
            of_powers[lower] -= product * chebyshev_product(k, lower);
    }
    return found;
}

// How far a cell is from what is asked of it; from 1 it is not good enough.
double fault_of(const Surface& f, const Cell& cell, const Coefficients& c) {
    constexpr int samples = 16;
    const double p_low = std::max(cell.p_low, f.p_low), p_high = std::min(cell.p_high, f.p_high);
    if (!(p_low < p_high)) return 0;
    double worst = 0;
    const auto look = [&](double p, double w) {
        const double u = 2 * (p - cell.p_low) / (cell.p_high - cell.p_low) - 1;
        const std::optional<double> z = f.z(p, cell.y(w));
        if (!z || !f.within(p, cell.y(w), *z)) return;
        std::array<double, u_powers> of_u{1};
        std::array<double, w_powers> of_w{1};
        for (std::size_t i = 1; i < u_powers; ++i) of_u[i] = of_u[i - 1] * u;
        for (std::size_t j = 1; j < w_powers; ++j) of_w[j] = of_w[j - 1] * w;
        double sum = 0, slope = 0;
        for (std::size_t k = 0; k < terms; ++k) {
            const auto [i, j] = powers[k];
            const double of_term = c[k] * units(f.grid, k) * of_u[i];
            sum += of_term * of_w[j];
            if (j > 0) slope += of_term * static_cast<double>(j) * of_w[j - 1];
        }
        slope *= f.grid.unit * 2 / (cell.y_high - cell.y_low);
        worst = std::max(worst, f.fault(p, *z, f.grid.base + f.grid.unit * sum, slope));
    };
    for (int i = 0; i <= samples; ++i) {
        // crowded towards low pressures, where the limits of the region are steep
        const double p = p_low + (p_high - p_low) * i * i / (samples * samples);
        for (int j = 0; j <= samples; ++j) look(p, -1 + 2.0 * j / samples);
        const auto [low, high] = f.limits(p);
        for (const double y : {low, high}) {
            const double w = 2 * (y - cell.y_low) / (cell.y_high - cell.y_low) - 1;
            if (std::fabs(w) <= 1) look(p, w);
        }
    }
    return worst;
}

bool touches(const Surface& f, const Cell& cell) {
    constexpr int samples = 12;
    for (int i = 0; i <= samples; ++i) {
        const double p = std::clamp(cell.p(-1 + 2.0 * i / samples), f.p_low, f.p_high);
        const auto [low, high] = f.limits(p);
        if (low <= cell.y_high && high >= cell.y_low) return true;
    }
    return false;
}

// Functions whose patches have the same blocks.
using Surfaces = std::vector<Surface>;

struct Block {
    int p_halvings = 0, y_halvings = 0;
    std::vector<std::vector<Coefficients>> cells;  // of each function
    double fault = 1e300;
};

Block divided(const Surfaces& all, const Cell& whole, int p_halvings, int y_halvings) {
    Block block{p_halvings, y_halvings, {}, 0};
    const int p_cells = 1 << p_halvings, y_cells = 1 << y_halvings;
    for (const Surface& f : all) {
        std::vector<Coefficients>& cells = block.cells.emplace_back();
        for (int i = 0; i < p_cells; ++i) {
            for (int j = 0; j < y_cells; ++j) {
                const double u = 2.0 / p_cells, w = 2.0 / y_cells;
                const Cell cell{whole.p(-1 + u * i), whole.p(-1 + u * (i + 1)), whole.y(-1 + w * j),
                                whole.y(-1 + w * (j + 1))};
                cells.push_back(fit_cell(f, cell));
                block.fault = std::max(block.fault, fault_of(f, cell, cells.back()));
                if (block.fault >= 1 && p_halvings + y_halvings < divisions) return {};
            }
        }
    }
    return block;
}

// With as few cells as will do.
Block fitted_block(const Surfaces& all, const Cell& whole) {
    Block best;
    if (!touches(all[0], whole)) return best;
    for (int halvings = 0; halvings <= divisions; ++halvings) {
        for (int of_p = 0; of_p <= halvings; ++of_p) {
            Block block = divided(all, whole, of_p, halvings - of_p);
            if (block.fault < best.fault) best = std::move(block);
        }
        if (best.fault < 1) return best;
    }
    std::fprintf(stderr, "%s: a block needs more divisions\n", all[0].name);
    std::exit(1);
}

void print(const Surfaces& all) {
    const Surface& any = all[0];
    const int dropped = 52 - any.grid.octave_bits;
    const auto row_of = [&](double p) {
        return std::bit_cast<std::uint64_t>(p + any.grid.shift) >> dropped;
    };
    const auto pressure = [&](std::uint64_t row) {
        return std::bit_cast<double>(row << dropped) - any.grid.shift;
    };
    const double width = (any.grid.y_high - any.grid.y_low) / any.grid.columns;
    std::vector<std::vector<Coefficients>> cells(all.size());
    std::string blocks;
    for (std::uint64_t row = row_of(any.p_low); row <= row_of(any.p_high); ++row) {
        for (int column = 0; column < any.grid.columns; ++column) {
            const double y = any.grid.y_low + width * column;
            const Block block = fitted_block(all, {pressure(row), pressure(row + 1), y, y + width});
            char text[80];
            std::snprintf(text, sizeof text, "    {%zu, %d, %d, 0},\n",
                          block.cells.empty() ? 0 : cells[0].size(), 1 << block.p_halvings,
                          1 << block.y_halvings);
            blocks += text;
            for (std::size_t of = 0; of < block.cells.size(); ++of)
                cells[of].insert(cells[of].end(), block.cells[of].begin(), block.cells[of].end());
        }
    }
    std::printf("\ninline constexpr PatchBlock %s_blocks[] = {\n%s};\n", any.name, blocks.c_str());
    for (std::size_t of = 0; of < all.size(); ++of) {
        const Surface& f = all[of];
        const Patches& grid = f.grid;
        std::printf("alignas(64) inline constexpr PatchRow %s_rows[] = {\n", f.name);
        for (const Coefficients& cell : cells[of]) {
            std::printf("    {{");
            for (std::size_t k = 0; k < terms; ++k) {
                const char* after = k + 1 == wide_terms ? "}, {" : k + 1 == terms ? "}},\n" : ", ";
                std::printf("%d%s", cell[k], after);
            }
        }
        std::printf(
            "};\ninline constexpr Patches %s{\n"
            "    %g, %d, %.17g, %g, %g, %d, %g, %.17g, %g, %g, %s_blocks, %s_rows};\n",
            f.name, grid.shift, grid.octave_bits, f.p_low, grid.y_low, grid.y_high, grid.columns,
            grid.base, grid.unit, grid.coarse, grid.narrow, any.name, f.name);
    }
}

Patches grid(double shift, int octave_bits, double y_low, double y_high, int columns, double base,
             double unit, double of_narrow = narrow) {
    return {shift, octave_bits, 0,      y_low,     y_high,  columns,
            base,  unit,        coarse, of_narrow, nullptr, nullptr};
}

}  // namespace

int main() {
    std::printf(R"(// SPDX-License-Identifier: MIT
// Generated by tools/inverse_patches, do not edit.
//
// Patches of (p, h) and (p, s), in MPa, kJ/kg and kJ/(kg K): T of regions 1, 2 and 3, K, density of
// region 3, kg/m3. Of s and h: p and T of region 1 of s and h less liquid_h_near(s), s + R ln p of
// region 2.
#pragma once

#include "frame/patches.hpp"

namespace vaprix::tables {

inline constexpr double last_patch_step = %g;  // K, of regions 1 and 2
inline constexpr double dense_patch_step = %g;  // relative, of region 3
inline constexpr double liquid_hs_patch_step = %g;  // MPa and K, of (h, s) in region 1
inline constexpr double vapour_hs_patch_step = %.1g;  // relative, of p of (h, s) in region 2
)",
                last_step, 2 * dense_error, 2 * liquid_error, 2 * vapour_error / R);
    const Gibbs liquid_h{region1::h_tangent_t, liquid}, liquid_s{region1::s_tangent_t, liquid};
    const Gibbs vapour_h{region2::h_tangent_t, vapour};
    const Gibbs vapour_s{region2::s_plus_r_ln_p_tangent_t, vapour};
    const Dense dense_h{region3::ph_tangents, region3::v_ph, region3::t_ph,
                        region3::p3sat_h,     region1::h,    region2::h};
    const Dense dense_s{region3::ps_tangents, region3::v_ps, region3::t_ps,
                        region3::p3sat_s,     region1::s,    region2::s};
    constexpr auto d = &Point<double>::x, t = &Point<double>::y;
    const GibbsOfHs liquid_hs{region1::hs_tangents, region1::p_hs, region1::t_ph, liquid_s, false,
                              {-0.0086, 3.7783}};
    const GibbsOfHs vapour_hs{region2::hs_tangents, region2::p_hs, region2::t_ph, vapour_s, true,
                              {5.048, 11.9211}};
    // the grids: those of a few hundred tried that need the fewest cells
    constexpr double fine = 0x1p-25, coarser = 0x1p-24, dense = 0x1p-23;
    const Patches grid_3_ph = grid(-12, 1, 1500, 2900, 6, 720, dense);
    const Patches grid_3_ps = grid(-12, 1, 3.3, 5.4, 6, 720, dense);
    print({gibbs_surface("t1_of_ph", liquid_h, 4e-16, grid(23.9995, 1, -0.1, 1680, 8, 448, fine))});
    print({gibbs_surface("t1_of_ps", liquid_s, 4e-16, grid(23.9995, 1, -0.01, 3.8, 9, 448, fine))});
    print({gibbs_surface("t2_of_ph", vapour_h, 3e-15,
                         grid(0.0045, 0, 2490, 4165, 12, 673, coarser))});
    print(
        {gibbs_surface("t2_of_ps", vapour_s, 3e-15, grid(0.0014, 0, 5.73, 8.52, 9, 673, coarser))});
    print({dense_surface("d3_of_ph", dense_h, d, grid_3_ph),
           dense_surface("t3_of_ph", dense_h, t, grid_3_ph)});
    print({dense_surface("d3_of_ps", dense_s, d, grid_3_ps),
           dense_surface("t3_of_ps", dense_s, t, grid_3_ps)});
    const auto p_of = [](Point<double> at, double /* s */) { return at.x; };
    const auto t_of = [](Point<double> at, double /* s */) { return at.y; };
    const auto s_plus_r_ln_p = [](Point<double> at, double s) { return s + R * std::log(at.x); };
    const auto grid_1_hs = [](double base, double unit) {
        return grid(4.1, 3, -2, 138, 1, base, unit);
    };
    print({hs_surface("p1_of_hs", liquid_hs, p_of, liquid_error, grid_1_hs(50, 0x1p-24)),
           hs_surface("t1_of_hs", liquid_hs, t_of, liquid_error, grid_1_hs(448, 0x1p-23))});
    print({hs_surface("s_plus_r_ln_p2_of_hs", vapour_hs, s_plus_r_ln_p, vapour_error,
                      grid(-4.9, 1, 2490, 4165, 8, 6.5, 0x1p-30, 32))});
    std::printf("\n}  // namespace vaprix::tables\n");
}
