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
        const Lanes t = Lanes::load(t_of + k);
        found = found & (t >= plan.t_low) & (t <= plan.t_high);
    }
    if (plan.solves == Solved::t) return machine::none(!found);
    for (std::size_t k = 0; k < count; k += Lanes::lanes)
        found = found & (Lanes::load(p_of + k) > 0);
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

// Of a saturated phase above 623.15 K.
template <const auto& property, Part phase>
inline constexpr auto evaluated_line = [](Lanes p, Lanes t) noexcept {
    const CoexistingDensities<Lanes> both(coexisting_root(t));
    constexpr std::size_t asked = phase == region1 ? both.liquid : both.vapour;
    return single<property>(dense_state(p, t, both.template density<asked>()));
};

template <const auto& property>
inline constexpr auto evaluated_wet = [](Lanes p, Lanes t, Lanes x) noexcept {
    auto state = wet_state<Asked{.wet = true}>(p, t);
    state.x = x;
    return mixed<property>(state);
};

// A property of the state alone.
template <const auto& property>
concept Plain = !requires(const State& at) {
    property.defined(at, 0.0);
};

template <const auto& property>
constexpr Constant constant(const Refusal& refusal) {
    Constant answer{true, refusal.value,
                    refusal.code == no_code ? 0 : static_cast<std::int32_t>(refusal.code)};
    if constexpr (requires { property.factor; }) {
        if (refusal.scaled) answer.value *= property.factor;
    }
    return answer;
}

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

// Wet steam of p and h or s, and its quality where it is asked for.
template <class Y, Asked asked, auto t_of>
void solve_wet(const double* p_of, const double* y_of, double* solved, double* quality_of,
               std::size_t count) noexcept {
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        const Lanes p = Lanes::load(p_of + k), t = t_of(p);
        t.store(solved + k);
        wet_state_by<asked, Y::y>(p, t, Lanes::load(y_of + k)).x.store(quality_of + k);
    }
}

// Of the saturation line and of wet steam of given quality, by one variable of the line.
template <auto other_of>
void solve_line(const double* given, const double* x_of, double* solved, double* quality_of,
                std::size_t count) noexcept {
    solve_block<[](Lanes of, Lanes) noexcept { return other_of(of); }>(given, x_of, solved, nullptr,
                                                                       count);
    std::copy_n(x_of, padded(count), quality_of);
}
// The pressure, not found where the temperature that gives it back is not, and that temperature.
void solve_line_o(const double* t_of, const double* /* again */, double* p_of, double* exact_t_of,
                  std::size_t count) noexcept {
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        const Lanes p = psat(Lanes::load(t_of + k)), t = tsat_corrected(p);
        machine::select(t > 0, p, Lanes(0)).store(p_of + k);
        t.store(exact_t_of + k);
    }
}

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

// Of region 3 by the O-family, temperature and density together, as solve_dense() has them; not found
// where the saturation line is so close that the state may be kept beside it.
template <class Y, auto t3, auto v3>
void solve_dense_o(const double* p_of, const double* y_of, double* solved, double* dense,
                   std::size_t count) noexcept {
    const auto tangents = Y::template Backward<Lanes>::tangents3;
    for (std::size_t k = 0; k < count; k += Lanes::lanes) {
        const Lanes p = Lanes::load(p_of + k), y = Lanes::load(y_of + k);
        auto [at, settled] = inverse::correct_dense_patch<Y>(p, y);
        if (!machine::none(!settled)) {
            const auto searched =
                newton(tangents, p, y, {1 / v3(p, y), t3(p, y)}, inverse::dense_step);
            at = {machine::select(settled, at.x, searched.x),
                  machine::select(settled, at.y, searched.y)};
        }
        const auto beside = p <= p_crit;
        if (!machine::none(beside)) {
            const auto left = beside & !inverse::is_well_on_side<Y>(p, y, at.y);
            at.y = machine::select(left, Lanes(0), at.y);
        }
        at.y.store(solved + k);
        at.x.store(dense + k);
    }
}

template <class Y, auto start>
constexpr auto liquid_o = [](Lanes p, Lanes y) noexcept {
    return solve_gibbs<Y, Region1<Lanes>, start>(p, y, T_min, T_13);
};
template <class Y, auto start>
constexpr auto vapour_o = [](Lanes p, Lanes y) noexcept {
    return solve_gibbs<Y, Region2<Lanes>, start>(p, y, T_min, T_25);
};
template <class Y>
constexpr std::array<Plan::Solve, parts> solved_o = [] {
    std::array<Plan::Solve, parts> solve{};
    using Backward = typename Y::template Backward<Lanes>;
    solve[region1] = solve_block<liquid_o<Y, Backward::t1>>;
    solve[region2a] = solve_block<vapour_o<Y, Backward::t2a>>;
    solve[region2b] = solve_block<vapour_o<Y, Backward::t2b>>;
    solve[region2c] = solve_block<vapour_o<Y, Backward::t2c>>;
    solve[region5] = solve_block<[](Lanes p, Lanes y) noexcept {
        const Lanes along = Y::along_isobar(p, y);
        const Lanes t =
            search_gibbs<Y, Region5<Lanes>>(p, along, Y::t5_start(p, along), inverse::gibbs_step_5);
        return onto_limit(t, T_25, T_max);
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
        }
    }
};
template <>
struct Packed<resolvers::of_pt_b> : OfPt<Finish::volume> {};
template <>
struct Packed<resolvers::of_pt_o> : OfPt<Finish::density> {};

template <class Y>
struct OfPyB {
    static constexpr Finish finish = Finish::volume;
    static constexpr ErrorCode refusal = ErrorCode::outside_range;
    template <Asked asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_py<Y, Family::b, Lanes>;
        plan.solve = solved_b<Y>;
        using Backward = typename Y::template Backward<Lanes>;
        plan.solve[region3a] = solve_dense_b<Y, asked, Backward::t3a, Backward::v3a>;
        plan.solve[region3b] = solve_dense_b<Y, asked, Backward::t3b, Backward::v3b>;
        plan.solve[wet] = plan.solve[wet_dense] = solve_wet<Y, asked, tsat<Lanes>>;
    }
};
template <class Y>
struct OfPyO {
    static constexpr Finish finish = Finish::none;
    static constexpr ErrorCode refusal = ErrorCode::outside_range;
    template <Asked asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_py<Y, Family::o, Lanes>;
        plan.solve = solved_o<Y>;
        using Backward = typename Y::template Backward<Lanes>;
        plan.solve[region3a] = solve_dense_o<Y, Backward::t3a, Backward::v3a>;
        plan.solve[region3b] = solve_dense_o<Y, Backward::t3b, Backward::v3b>;
        plan.solve[wet] = plan.solve[wet_dense] = solve_wet<Y, asked, tsat_corrected<Lanes>>;
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

// Saturated phases, the line with both of them and wet steam of given quality.
template <Part phase_, ErrorCode refusal_>
struct OfLine {
    static constexpr Part phase = phase_;
    static constexpr Finish finish = Finish::density;
    static constexpr ErrorCode refusal = refusal_;
};
template <Part phase>
struct OfLineT : OfLine<phase, ErrorCode::saturation_temperature_range> {
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_line_t<phase, Lanes>;
        plan.solve[phase] = plan.solve[dense_part<phase>] = solve_line<psat<Lanes>>;
        plan.solves = Solved::p;
    }
};
template <>
struct Packed<resolvers::liquid_of_t> : OfLineT<region1> {};
template <>
struct Packed<resolvers::vapour_of_t> : OfLineT<region2a> {};
template <>
struct Packed<resolvers::line_of_t> : OfLineT<wet> {};

template <Part phase>
struct OfLineExactT : OfLine<phase, ErrorCode::saturation_temperature_range> {
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_line_t<phase, Lanes>;
        plan.solve[phase] = plan.solve[region3] = solve_line_o;
        plan.solves = Solved::both;
    }
};
template <>
struct Packed<resolvers::liquid_of_t_o> : OfLineExactT<region1> {};
template <>
struct Packed<resolvers::vapour_of_t_o> : OfLineExactT<region2a> {};

template <Part phase, Family family, auto t_of>
struct OfLineP : OfLine<phase, ErrorCode::saturation_pressure_range> {
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_line_p<phase, family, Lanes>;
        plan.solve[phase] = plan.solve[region3] = solve_line<t_of>;
    }
};
template <>
struct Packed<resolvers::liquid_of_p_b> : OfLineP<region1, Family::b, tsat<Lanes>> {};
template <>
struct Packed<resolvers::vapour_of_p_b> : OfLineP<region2a, Family::b, tsat<Lanes>> {};
template <>
struct Packed<resolvers::liquid_of_p_o> : OfLineP<region1, Family::o, tsat_corrected<Lanes>> {};
template <>
struct Packed<resolvers::vapour_of_p_o> : OfLineP<region2a, Family::o, tsat_corrected<Lanes>> {};

template <>
struct Packed<resolvers::wet_of_tx> : OfLine<wet, ErrorCode::saturation_temperature_range> {
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_tx<Lanes>;
        plan.solve[wet] = plan.solve[wet_dense] = solve_line<psat<Lanes>>;
        plan.solves = Solved::p;
    }
};
template <Family family, ErrorCode refusal, auto t_of>
struct OfPx : OfLine<wet, refusal> {
    template <Asked>
    static constexpr void set(Plan& plan) {
        plan.divide = divide_px<family, Lanes>;
        plan.solve[wet] = plan.solve[wet_dense] = solve_line<t_of>;
    }
};
template <>
struct Packed<resolvers::wet_of_px_b> : OfPx<Family::b, no_code, tsat<Lanes>> {};
template <>
struct Packed<resolvers::wet_of_px_o>
    : OfPx<Family::o, ErrorCode::saturation_pressure_range, tsat_corrected<Lanes>> {};

template <class Resolved, Asked all>
constexpr Plan resolved_by() {
    Plan plan;
    Resolved::template set<all>(plan);
    return plan;
}

// The plan of an export. Packs answer where its rule has no word or a constant: by a property of the state
// alone, and of what is surely outside.
template <class Export>
constexpr Plan plan_of() {
    Plan plan;
    if constexpr (requires { sizeof(Packed<typename Export::resolver>); }) {
        using Resolved = Packed<typename Export::resolver>;
        constexpr const auto& rule = Export::rule;
        constexpr const auto& property = Export::property_asked;
        if constexpr (Plain<property> && !rule.of_any) {
            constexpr Asked all = asked<rule, property>;
            constexpr Plan resolved = resolved_by<Resolved, all>();
            plan = resolved;
            if constexpr (rule.of_wet == OfWet::mixed && resolved.solve[wet] != nullptr)
                plan.evaluate[wet] = plan.evaluate[wet_dense] =
                    evaluate_block<evaluated_wet<property>>;
            if (rule.of_wet == OfWet::refused) {
                plan.constant[wet] = plan.constant[wet_dense] = constant<property>(rule.wet);
            }
            if constexpr (rule.only_wet) {
                for (std::size_t part = 0; part < wet; ++part)
                    plan.constant[part] = {.is_given = true, .value = failed};
            } else {
                set_evaluations<property, all, Resolved::finish>(plan);
                if constexpr (requires { Resolved::phase; }) {
                    if constexpr (Resolved::phase != wet)
                        plan.evaluate[region3] =
                            evaluate_block<evaluated_line<property, Resolved::phase>>;
                }
            }
            plan.all_found = all_found;
            plan.above = {{{rule.above.t, constant<property>(rule.above.refusal)},
                           {rule.above_too.t, constant<property>(rule.above_too.refusal)}}};
            plan.t_high = std::min(rule.above.t, rule.above_too.t);
            plan.t_low = std::max(rule.below.t, std::numeric_limits<double>::min());
            plan.has_limits = rule.below.t > 0 || plan.t_high < T_max;
            Refusal refusal = rule.outside;
            if (rule.own_code) refusal.code = Resolved::refusal;
            plan.constant[outside] = constant<property>(refusal);
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
