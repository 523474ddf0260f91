// SPDX-License-Identifier: MIT
//
// The plans of all exports for packs of VAPRIX_LANES lanes, as VAPRIX_PLANS. Compiled for each instruction
// set: only what has a pack in its name may stay a function here, since the linker keeps one of each.
#include "pack.hpp"

#include "block.hpp"
#include "dense.hpp"
#include "divide.hpp"
#include "plan.hpp"
#include "solve.hpp"

namespace vaprix::arrays {

namespace {

using Lanes = Pack<VAPRIX_LANES>;

// A formula of p and T over a block, or of p, T and the volume or density of region 3.
template <auto formula>
void evaluate_block(const double* p, const double* t, [[maybe_unused]] const double* dense,
                    double* out, std::size_t count) noexcept {
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        const Lanes p_k = Lanes::load(p + k), t_k = Lanes::load(t + k);
        if constexpr (requires { formula(p_k, t_k); }) {
            formula(p_k, t_k).store(out + k);
        } else {
            formula(p_k, t_k, Lanes::load(dense + k)).store(out + k);
        }
    }
}

// What is solved for, by a formula of the given variables.
template <auto formula>
void solve_block(const double* x, const double* y, double* solved, double* /* dense */,
                 std::size_t count) noexcept {
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        formula(Lanes::load(x + k), Lanes::load(y + k)).store(solved + k);
    }
}

bool all_found(const Plan& plan, const double* p_of, const double* t_of,
               std::size_t count) noexcept {
    auto found = Lanes(0) == 0;
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        const Lanes p = Lanes::load(p_of + k), t = Lanes::load(t_of + k);
        found = found & (p > 0) & (t > 0) & (t >= plan.t_low) & (t <= plan.t_high);
    }
    return machine::none(!found);
}

template <const auto& property, Region region>
VAPRIX_INLINE Lanes by_equation(Lanes p, Lanes t) noexcept {
    if constexpr (region == Region::one) return property.region1(p, t);
    if constexpr (region == Region::two) return property.region2(p, t);
    if constexpr (region == Region::five) return property.region5(p, t);
}

template <const auto& property, Asked asked, Finish finish, Region region>
inline constexpr auto evaluated = [](Lanes p, Lanes t) noexcept {
    if constexpr (requires { property.equations; }) {
        return by_equation<property, region>(p, t);
    } else {
        StateOf<Lanes> state{.region = region, .p = p, .t = t};
        if constexpr (asked.density && finish != Finish::none) {
            state.v = by_equation<property::v, region>(p, t);
            state.d = 1 / state.v;
            if constexpr (finish == Finish::density) state.v = 1 / state.d;
        }
        return property.of(state);
    }
};

template <const auto& property, Finish finish>
inline constexpr auto evaluated_3 = [](Lanes p, Lanes t, Lanes dense) noexcept {
    StateOf<Lanes> state{.region = Region::three, .p = p, .t = t};
    (finish == Finish::volume ? state.v : state.d) = dense;
    (finish == Finish::volume ? state.d : state.v) = 1 / dense;
    if constexpr (requires { property.equations; }) {
        return property.equations(Kind<Lanes>{}).region3(state);
    } else {
        return property.of(state);
    }
};

// A property of the state alone.
template <const auto& property>
concept Plain = !requires(const State& at) {
    property.defined(at, 0.0);
};

template <const auto& property, Asked asked, Finish finish>
constexpr void set_evaluations(Plan& plan) {
    constexpr auto vapour = evaluate_block<evaluated<property, asked, finish, Region::two>>;
    constexpr auto dense = evaluate_block<evaluated_3<property, finish>>;
    plan.evaluate[region1] = evaluate_block<evaluated<property, asked, finish, Region::one>>;
    plan.evaluate[region2a] = plan.evaluate[region2b] = plan.evaluate[region2c] = vapour;
    plan.evaluate[region3] = plan.evaluate[region3a] = plan.evaluate[region3b] = dense;
    plan.evaluate[region5] = evaluate_block<evaluated<property, asked, finish, Region::five>>;
}

// Temperature from p and h or s, by the backward equation (B) and solved (O).
template <auto t_of, auto onto_end>
constexpr auto held = [](Lanes p, Lanes y) noexcept { return onto_end(t_of(p, y)); };
template <class Y>
constexpr std::array<Plan::Solve, parts> solved_b = [] {
    std::array<Plan::Solve, parts> solve{};
    using Backward = typename Y::template Backward<Lanes>;
    solve[region1] = solve_block<held<Backward::t1, onto_cold_limit<Lanes>>>;
    solve[region2a] = solve_block<held<Backward::t2a, onto_hot_limit<Lanes>>>;
    solve[region2b] = solve_block<held<Backward::t2b, onto_hot_limit<Lanes>>>;
    solve[region2c] = solve_block<held<Backward::t2c, onto_hot_limit<Lanes>>>;
    solve[region5] = solve_block<[](Lanes p, Lanes y) noexcept {
        return onto_limit(Backward::t5(p, y), T_25, T_max);
    }>;
    return solve;
}();

// Of region 3, whichever of them is asked for: the temperature, the volume of (p, y), or that of p and
// the temperature.
template <class Y, Asked asked, auto t3, auto v3>
void solve_dense_b(const double* p, const double* y, double* solved, double* dense,
                   std::size_t count) noexcept {
    if constexpr (asked.density) {
        solve_block<v3>(p, y, dense, nullptr, count);
        std::copy_n(dense, padded(count),
                    solved);  // there is no temperature, which nobody asks for
    } else {
        solve_block<t3>(p, y, solved, nullptr, count);
        if constexpr (asked.single) {
            alignas(64) double t[block_size];
            std::copy_n(solved, padded(count), t);
            solve_region3<Finish::volume, Lanes>(p, t, solved, dense, count);
        }
    }
}

// Of region 3 by the O-family, temperature and density together.
template <class Backward, auto t3, auto v3>
void solve_dense_o(const double* p_of, const double* y_of, double* solved, double* dense,
                   std::size_t count) noexcept {
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        const Lanes p = Lanes::load(p_of + k), y = Lanes::load(y_of + k);
        const auto at = newton([](Lanes d, Lanes t) noexcept { return Backward::tangents3(d, t); },
                               p, y, Point<Lanes>{1 / v3(p, y), t3(p, y)}, inverse::dense_step);
        at.y.store(solved + k);
        at.x.store(dense + k);
    }
}

template <class Y, auto start>
constexpr auto vapour_o = [](Lanes p, Lanes y) noexcept {
    return solve_gibbs<Y, Region2<Lanes>>(p, Y::along_isobar(p, y), start(p, y), T_min, T_25,
                                          inverse::gibbs_step);
};
template <class Y>
constexpr std::array<Plan::Solve, parts> solved_o = [] {
    std::array<Plan::Solve, parts> solve{};
    using Backward = typename Y::template Backward<Lanes>;
    solve[region1] = solve_block<[](Lanes p, Lanes y) noexcept {
        return solve_gibbs<Y, Region1<Lanes>>(p, y, Backward::t1(p, y), T_min, T_13,
                                              inverse::gibbs_step);
    }>;
    solve[region2a] = solve_block<vapour_o<Y, Backward::t2a>>;
    solve[region2b] = solve_block<vapour_o<Y, Backward::t2b>>;
    solve[region2c] = solve_block<vapour_o<Y, Backward::t2c>>;
    solve[region5] = solve_block<[](Lanes p, Lanes y) noexcept {
        const Lanes along = Y::along_isobar(p, y);
        return solve_gibbs<Y, Region5<Lanes>>(p, along, Y::t5_start(p, along), T_25, T_max,
                                              inverse::gibbs_step_5);
    }>;
    return solve;
}();

// How packs resolve a state; a resolver without one is left to the exports' own answers.
template <class Resolver>
struct Packed;

template <Finish finish_>
struct OfPt {
    static constexpr Finish finish = finish_;
    static constexpr ErrorCode refusal = ErrorCode::outside_range;
    template <Asked asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_pt<Lanes>;
        if constexpr (asked.single || asked.density) {
            plan.solve[region3] = solve_region3<finish, Lanes>;
        } else {
            plan.evaluate[region3] = nullptr;
        }
    }
};
template <>
struct Packed<resolvers::of_pt_b> : OfPt<Finish::volume> {};
template <>
struct Packed<resolvers::of_pt_o> : OfPt<Finish::density> {};

// What is not solved for in a part is left.
constexpr void leave_unsolved(Plan& plan) {
    for (std::size_t part = 0; part < parts; ++part) {
        if (plan.solve[part] == nullptr) plan.evaluate[part] = nullptr;
    }
}

template <class Y>
struct OfPyB {
    static constexpr Finish finish = Finish::volume;
    static constexpr ErrorCode refusal = ErrorCode::outside_range;
    template <Asked asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_py<Y, PhaseTest::by_backward_equation, Lanes>;
        plan.solve = solved_b<Y>;
        using Backward = typename Y::template Backward<Lanes>;
        plan.solve[region3a] = solve_dense_b<Y, asked, Backward::t3a, Backward::v3a>;
        plan.solve[region3b] = solve_dense_b<Y, asked, Backward::t3b, Backward::v3b>;
        leave_unsolved(plan);
    }
};
template <class Y>
struct OfPyO {
    static constexpr Finish finish = Finish::none;
    static constexpr ErrorCode refusal = ErrorCode::outside_range;
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_py<Y, PhaseTest::left, Lanes>;
        plan.solve = solved_o<Y>;
        using Backward = typename Y::template Backward<Lanes>;
        plan.solve[region3a] = solve_dense_o<Backward, Backward::t3a, Backward::v3a>;
        plan.solve[region3b] = solve_dense_o<Backward, Backward::t3b, Backward::v3b>;
        leave_unsolved(plan);
    }
};
template <>
struct Packed<resolvers::of_ph_b> : OfPyB<inverse::Enthalpy> {};
template <>
struct Packed<resolvers::of_ps_b> : OfPyB<inverse::Entropy> {};
template <>
struct Packed<resolvers::of_ph_o> : OfPyO<inverse::Enthalpy> {};
template <>
struct Packed<resolvers::of_ps_o> : OfPyO<inverse::Entropy> {};

template <Part phase>
struct OfLineT {
    static constexpr Finish finish = Finish::density;
    static constexpr ErrorCode refusal = ErrorCode::saturation_temperature_range;
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_line_t<phase, Lanes>;
        plan.solves_pressure = true;
        plan.solve[phase] = solve_block<[](Lanes t, Lanes) noexcept { return psat(t); }>;
    }
};
template <>
struct Packed<resolvers::liquid_of_t> : OfLineT<region1> {};
template <>
struct Packed<resolvers::vapour_of_t> : OfLineT<region2a> {};

template <Part phase>
struct OfLineP {
    static constexpr Finish finish = Finish::density;
    static constexpr ErrorCode refusal = ErrorCode::saturation_pressure_range;
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_line_p<phase, Lanes>;
        plan.solve[phase] = solve_block<[](Lanes p, Lanes) noexcept { return tsat(p); }>;
    }
};
template <>
struct Packed<resolvers::liquid_of_p_b> : OfLineP<region1> {};
template <>
struct Packed<resolvers::vapour_of_p_b> : OfLineP<region2a> {};

// The plan of an export. Packs answer where its rule has no word: of a single phase, by a property of
// the state alone, and of what is surely outside.
template <class Export>
constexpr Plan plan_of() {
    Plan plan;
    if constexpr (requires { sizeof(Packed<typename Export::resolver>); }) {
        using Resolved = Packed<typename Export::resolver>;
        constexpr const auto& rule = Export::rule;
        constexpr const auto& property = Export::property_asked;
        if constexpr (Plain<property> && !rule.of_any && !rule.only_wet) {
            set_evaluations<property, asked<rule, property>, Resolved::finish>(plan);
            Resolved::template set<asked<rule, property>>(plan);
            plan.all_found = all_found;
            plan.has_limits = rule.below.t > 0 || std::min(rule.above.t, rule.above_too.t) < T_max;
            plan.t_high = std::min(rule.above.t, rule.above_too.t);
            plan.t_low = rule.below.t;
            plan.outside_value = rule.outside.value;
            if constexpr (requires { property.factor; }) {
                if (rule.outside.scaled) plan.outside_value *= property.factor;
            }
            const ErrorCode code = rule.own_code ? Resolved::refusal : rule.outside.code;
            plan.outside_code = code == no_code ? 0 : static_cast<std::int32_t>(code);
        }
    }
    return plan;
}

constexpr std::array all_plans = []<class... Exports>(exports::All<Exports...>) {
    return std::array<Plan, sizeof...(Exports)>{plan_of<Exports>()...};
}(exports::all);

}  // namespace

extern const Plan* const VAPRIX_PLANS;
constinit const Plan* const VAPRIX_PLANS = all_plans.data();

}  // namespace vaprix::arrays
