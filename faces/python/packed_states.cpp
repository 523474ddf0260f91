// SPDX-License-Identifier: MIT
#include "packed_states.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "block.hpp"
#include "state/wet.hpp"
#include "storage.hpp"

namespace vaprix::arrays::states {

using bridge::Family;

struct Export {
    std::string_view name;
    std::size_t number;
    bool reads_density = false;

    [[nodiscard]] const Plan* plan() const noexcept {
        const Plan* const all = plans();
        return all == nullptr || all[number].divide == nullptr ? nullptr : &all[number];
    }
};

namespace {

static_assert(most == block_size);

template <class Named>
constexpr Export known() {
    Export made{Named::name, Named::number};
    if constexpr (requires { Named::property_asked; })
        made.reads_density = Named::property_asked.asked.density;
    return made;
}
constexpr std::array known_exports = []<class... Named>(exports::All<Named...>) {
    return std::array<Export, sizeof...(Named)>{known<Named>()...};
}(exports::all);

const Export* find(std::string_view symbol, Family family, std::string_view pair) noexcept {
    const auto* const found =
        std::find_if(known_exports.begin(), known_exports.end(), [=](const Export& each) noexcept {
            return each.name.size() == symbol.size() + 1 + pair.size() &&
                   each.name.starts_with(symbol) && each.name.ends_with(pair) &&
                   each.name[symbol.size()] == (family == Family::O ? 'O' : 'B');
        });
    return found == known_exports.end() ? nullptr : found;
}

// Of what is solved for, in place of a property.
void temperature(const double* /* p */, const double* t, const double* /* dense */, double* out,
                 std::size_t count) noexcept {
    std::copy_n(t, count, out);
}
void third(const double* /* p */, const double* /* t */, const double* dense, double* out,
           std::size_t count) noexcept {
    std::copy_n(dense, count, out);
}
template <int number>
void constant(const double* /* p */, const double* /* t */, const double* /* dense */, double* out,
              std::size_t count) noexcept {
    std::fill_n(out, count, number);
}

using Evaluations = std::array<Plan::Evaluate, parts>;
constexpr Evaluations temperatures = [] {
    Evaluations all{};
    all.fill(temperature);
    return all;
}();
constexpr Part parts_of_region3[] = {region3, region3a, region3b};
constexpr Evaluations regions = [] {
    Evaluations all{};
    all.fill(constant<2>);
    all[region1] = constant<1>;
    for (const Part part : parts_of_region3) all[part] = constant<3>;
    all[region5] = constant<5>;
    all[wet] = all[wet_dense] = constant<static_cast<int>(Region::wet)>;
    return all;
}();
// The density or volume of region 3, the quality of wet steam.
constexpr Evaluations thirds = [] {
    Evaluations all{};
    all.fill(constant<0>);
    for (const Part part : parts_of_region3) all[part] = third;
    all[wet] = all[wet_dense] = third;
    return all;
}();

// What a plan solves for, of all that has no constant answer.
Plan solution(const Plan& plan, const Evaluations& evaluations, bool has_region3) noexcept {
    Plan made = plan;
    made.constant = {};
    for (std::size_t part = 0; part < parts; ++part) {
        if (made.evaluate[part] != nullptr) made.evaluate[part] = evaluations[part];
    }
    if (!has_region3) {
        for (const Part part : parts_of_region3) made.evaluate[part] = nullptr;
    }
    return made;
}

// A state as the resolver of the C++ interface leaves it.
Resolved state_of(const Resolver& by, int region, double p, double t, double third) noexcept {
    const bool is_o = by.family == Family::O;
    State state = gibbs_state(static_cast<Region>(region), p, t);
    if (state.region == Region::wet) {
        state.ends = ends_at(p, t);
        state.x = third;
    }
    if (state.region == Region::three) {
        state.d = is_o ? third : 1 / third;
        state.v = is_o ? 1 / third : third;
    }
    return bridge::resolved(state, is_o ? bridge::by_density : bridge::by_volume,
                            by.of_pt ? bridge::Density3::found : bridge::Density3::of_volume);
}

// The variables of states that one plan evaluates.
struct Group {
    std::size_t size = 0;
    const Plan* plan = nullptr;
    std::size_t element[most];
    alignas(64) double p[most], t[most], dense[most];

    // False of a state that the plan leaves, or of one that another plan evaluates.
    bool add(std::size_t k, const Resolved& at, const Plan* by) noexcept {
        if (by == nullptr || (size > 0 && by != plan) || !(at.t >= by->t_low && at.t <= by->t_high))
            return false;
        plan = by;
        element[size] = k;
        p[size] = at.p;
        t[size] = at.t;
        dense[size++] = at.dense[0];
        return true;
    }
    void evaluate(Part part, double* out) noexcept {
        alignas(64) double results[most];
        for (std::size_t k = size; k < padded(size); ++k) {
            p[k] = p[size - 1];
            t[k] = t[size - 1];
            dense[k] = dense[size - 1];
        }
        plan->evaluate[part](p, t, dense, results, size);
        for (std::size_t k = 0; k < size; ++k) out[element[k]] = results[k];
    }
};

// The plan by which a property of a single phase is evaluated, or null. Region 3 is evaluated at the density, as the
// O-family does it; regions 1, 2 and 5 at p and T and, where the property reads the density, at what the family makes
// of the volume.
const Plan* plan_of(const Property& property, const Resolved& at) noexcept {
    const Export* by = property.of_o;
    const bool reads_density = by != nullptr && by->reads_density;
    if (at.region == 3) {
        if (reads_density && !(at.d == at.dense[0] && at.v == 1 / at.d)) return nullptr;
    } else if (by == nullptr || by->plan() == nullptr ||
               (reads_density && at.unformed == bridge::by_volume)) {
        by = property.of_b;
    } else if (reads_density && at.unformed == 0) {
        return nullptr;
    }
    return by == nullptr ? nullptr : by->plan();
}

}  // namespace

Resolver::Resolver(One resolves, Family of, std::string_view pair) noexcept
    : one(resolves), family(of), of_pt(pair == "PT") {
    solved_as = find(pair == "PS" ? "H" : pair == "PH" ? "S" : "CP", of, pair);
}

void Resolver::resolve(const double* x, const double* y, std::size_t count,
                       Resolved* out) const noexcept {
    alignas(64) double region[most]{}, t[most], third[most];
    if (const Plan* const plan = solved_as == nullptr ? nullptr : solved_as->plan()) {
        const bool has_region3 = of_pt || family == Family::O;
        const Plan solved[] = {solution(*plan, regions, has_region3),
                               solution(*plan, temperatures, has_region3),
                               solution(*plan, thirds, has_region3)};
        std::int32_t code[most];
        std::array<Wanted, 3> wanted{
            {{&solved[0], region, code}, {&solved[1], t, code}, {&solved[2], third, code}}};
        answer_packed(wanted, count, x, y);
        for_each(wanted[0].left, [&](std::size_t k) { region[k] = 0; });
    }
    for (std::size_t k = 0; k < count; ++k) {
        out[k] = region[k] > 0 ? state_of(*this, static_cast<int>(region[k]), x[k], t[k], third[k])
                               : one(x[k], y[k], family);
    }
}

Property::Property(One reads, std::string_view symbol) noexcept
    : one(reads), of_o(find(symbol, Family::O, "PT")), of_b(find(symbol, Family::B, "PT")) {}

void Property::read(const Resolved* states, std::size_t count, double* out) const noexcept {
    constexpr Part part_of[] = {parts, region1, region2a, region3, parts, region5};
    std::array<Group, std::size(part_of)> groups;
    for (std::size_t k = 0; k < count; ++k) {
        const Resolved& at = states[k];
        const auto region = static_cast<std::size_t>(at.region);
        // beyond the range, where (p, s) finds states of region 5, the C++ interface has fewer properties than the exports
        const bool single = part_of[region] != parts && at.saturated == 0 && at.t <= T_max;
        if (!single || !groups[region].add(k, at, plan_of(*this, at))) out[k] = one(at);
    }
    for (std::size_t region = 0; region < groups.size(); ++region) {
        if (groups[region].size > 0) groups[region].evaluate(part_of[region], out);
    }
}

}  // namespace vaprix::arrays::states
