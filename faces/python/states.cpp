// SPDX-License-Identifier: MIT
//
// The states of the C++ interface as generalised ufuncs of NumPy. A resolver makes of two numbers the storage of a state,
// eight doubles that nobody looks into; properties, phases and derivatives are of those. Where a state has no such
// property the result is NaN with the invalid flag, which NumPy tells of; without it where a NaN was given.
#include "loops.hpp"

#include <vaprix.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "frame/constants.hpp"
#include "packed_states.hpp"

namespace {

using vaprix::arrays::states::most;
using vaprix::bridge::Family;
using vaprix::bridge::Property;
using vaprix::bridge::Resolved;

constexpr std::size_t stored = sizeof(Resolved) / sizeof(double);
static_assert(sizeof(Resolved) == 8 * sizeof(double) && std::is_trivially_copyable_v<Resolved>);
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
// In place of Resolved::saturated, of no state because a NaN was given.
constexpr signed char gap = -1;

// Storage as an operand of a loop, with the step from double to double.
struct States : Strided {
    npy_intp inner;

    [[nodiscard]] Resolved load(std::size_t k) const noexcept {
        Resolved state;
        for (std::size_t e = 0; e < stored; ++e)
            std::memcpy(reinterpret_cast<char*>(&state) + e * sizeof(double), part(k, e),
                        sizeof(double));
        return state;
    }
    // A block from `first`, in place where it is as Resolved has it.
    const Resolved* load(std::size_t first, std::size_t count, Resolved* copied) const noexcept {
        if (inner == sizeof(double) && step == sizeof(Resolved))
            return &element<const Resolved>(first);
        for (std::size_t k = 0; k < count; ++k) copied[k] = load(first + k);
        return copied;
    }
    void store(std::size_t k, const Resolved& state) const noexcept {
        for (std::size_t e = 0; e < stored; ++e)
            std::memcpy(part(k, e), reinterpret_cast<const char*>(&state) + e * sizeof(double),
                        sizeof(double));
    }

private:
    [[nodiscard]] char* part(std::size_t k, std::size_t e) const noexcept {
        return &element<char>(k) + static_cast<npy_intp>(e) * inner;
    }
};

// Calls `of` with the first element of each block and the number of elements there.
template <class Of>
void each_block(npy_intp n, const Of& of) noexcept {
    const auto all = static_cast<std::size_t>(n);
    for (std::size_t first = 0; first < all; first += most) of(first, std::min(all - first, most));
}

void resolve(char** at, const npy_intp* n, const npy_intp* steps, void* data) noexcept {
    const auto& resolver = *static_cast<const vaprix::arrays::states::Resolver*>(data);
    const Strided given[] = {{at[0], steps[0]}, {at[1], steps[1]}};
    const States out{{at[2], steps[2]}, steps[3]};
    const QuietFlags quiet;
    alignas(64) double number[2][most];
    Resolved states[most];
    each_block(*n, [&](std::size_t first, std::size_t count) noexcept {
        for (std::size_t g = 0; g < 2; ++g) {
            for (std::size_t k = 0; k < count; ++k)
                number[g][k] = given[g].element<const double>(first + k);
            std::fill(number[g] + count, number[g] + most, number[g][count - 1]);
        }
        resolver.resolve(number[0], number[1], count, states);
        for (std::size_t k = 0; k < count; ++k) {
            const bool is_gap = std::isnan(number[0][k]) || std::isnan(number[1][k]);
            if (states[k].region == 0 && is_gap) states[k].saturated = gap;
            out.store(first + k, states[k]);
        }
    });
}

// The phase of wet steam, or a saturated one.
template <Resolved (*phase_of)(const Resolved&) noexcept>
void phase_states(char** at, const npy_intp* count, const npy_intp* steps,
                  void* /*data*/) noexcept {
    const States in{{at[0], steps[0]}, steps[2]}, out{{at[1], steps[1]}, steps[3]};
    const QuietFlags quiet;
    for (std::size_t k = 0; k < static_cast<std::size_t>(*count); ++k) {
        const Resolved state = in.load(k);
        out.store(k, state.region == 0 ? state : phase_of(state));
    }
}

// Numbers of states, block by block: read(states, first, count, out). No number is a failure.
template <class Read>
void numbers(const States& in, const Strided& out, npy_intp n, const Read& read) noexcept {
    bool fails = false;
    {
        const QuietFlags quiet;
        Resolved copied[most];
        double values[most];
        each_block(n, [&](std::size_t first, std::size_t count) noexcept {
            const Resolved* const states = in.load(first, count, copied);
            read(states, first, count, values);
            for (std::size_t k = 0; k < count; ++k) {
                const double value = states[k].region == 0 ? nan : values[k];
                const bool is_gap = states[k].region == 0 && states[k].saturated == gap;
                fails = fails || (std::isnan(value) && !is_gap);
                out.element<double>(first + k) = value;
            }
        });
    }
    if (fails) std::feraiseexcept(FE_INVALID);
}

void property(char** at, const npy_intp* n, const npy_intp* steps, void* data) noexcept {
    const auto& property = *static_cast<const vaprix::arrays::states::Property*>(data);
    numbers({{at[0], steps[0]}, steps[2]}, {at[1], steps[1]}, *n,
            [&](const Resolved* states, std::size_t, std::size_t count, double* out) noexcept {
                property.read(states, count, out);
            });
}

// Numbers of each state by itself: read(state, k).
template <class Read>
void numbers_one_by_one(const States& in, const Strided& out, npy_intp n,
                        const Read& read) noexcept {
    numbers(
        in, out, n,
        [&](const Resolved* states, std::size_t first, std::size_t count, double* values) noexcept {
            for (std::size_t k = 0; k < count; ++k) values[k] = read(states[k], first + k);
        });
}

template <class Number, Number (*read)(const Resolved&) noexcept>
void label(char** at, const npy_intp* count, const npy_intp* steps, void* /*data*/) noexcept {
    const States states{{at[0], steps[0]}, steps[2]};
    const Strided out{at[1], steps[1]};
    for (std::size_t k = 0; k < static_cast<std::size_t>(*count); ++k)
        out.element<Number>(k) = read(states.load(k));
}

double pressure(const Resolved& state) noexcept { return state.p; }
double temperature(const Resolved& state) noexcept { return state.t; }
double quality(const Resolved& state) noexcept { return state.x; }
std::int8_t region(const Resolved& state) noexcept { return state.region; }
std::int32_t code(const Resolved& state) noexcept { return state.code; }

// As vaprix.Phase counts them. Below the critical temperature the critical density parts liquid and vapour, which region
// 1 and region 2 are on either side of.
enum Phase : std::int8_t { none, liquid, vapour, wet, supercritical };
std::int8_t phase(const Resolved& state) noexcept {
    if (state.region == 0) return none;
    if (state.region == 4) return wet;
    if (state.t >= vaprix::T_crit) return state.p >= vaprix::p_crit ? supercritical : vapour;
    if (state.region != 3) return state.region == 1 ? liquid : vapour;
    return vaprix::bridge::d(state) > vaprix::d_crit ? liquid : vapour;
}

Property named(npy_intp number) noexcept { return static_cast<Property>(number); }

// (dz/dx)_y of state, z, x, y, which are numbers of Property; where y is none of them, along the saturation line.
void derivative(char** at, const npy_intp* count, const npy_intp* steps, void* /*data*/) noexcept {
    const Strided z{at[1], steps[1]}, x{at[2], steps[2]}, y{at[3], steps[3]};
    numbers_one_by_one(
        {{at[0], steps[0]}, steps[5]}, {at[4], steps[4]}, *count,
        [&](const Resolved& resolved, std::size_t k) noexcept {
            const vaprix::State state(resolved);
            const Property of = named(z.element<npy_intp>(k)), by = named(x.element<npy_intp>(k));
            const npy_intp kept = y.element<npy_intp>(k);
            return kept < vaprix::bridge::properties ? state.derivative(of, by, named(kept))
                                                     : state.along_line(of, by);
        });
}

// Second derivatives of state, z, y, which: by p twice, by p and y, by y twice.
void second_derivative(char** at, const npy_intp* count, const npy_intp* steps,
                       void* /*data*/) noexcept {
    const Strided z{at[1], steps[1]}, y{at[2], steps[2]}, which{at[3], steps[3]};
    numbers_one_by_one({{at[0], steps[0]}, steps[5]}, {at[4], steps[4]}, *count,
                       [&](const Resolved& resolved, std::size_t k) noexcept {
                           const auto second = vaprix::State(resolved)
                                                   .curvatures(named(y.element<npy_intp>(k)))
                                                   .of(named(z.element<npy_intp>(k)));
                           const npy_intp by = which.element<npy_intp>(k);
                           return by == 0 ? second.pp : by == 1 ? second.py : second.yy;
                       });
}

constexpr int most_operands = 5;  // with the output

// A generalised ufunc of one loop, and what that is given.
struct Function {
    const char* name;
    PyUFuncGenericFunction loop;
    std::array<char, most_operands> types;  // inputs, then the output
    int inputs;
    const char* signature;
    const void* data = nullptr;
};

struct NamedResolver {
    const char* name;
    vaprix::arrays::states::Resolver by;
};
#define VAPRIX_RESOLVER(of, pair)                         \
    {#of "_O", {vaprix::bridge::of, Family::O, pair}}, {  \
#of "_B", { vaprix::bridge::of, Family::B, pair } \
    }
const NamedResolver resolvers[] = {
    VAPRIX_RESOLVER(of_pt, "PT"), VAPRIX_RESOLVER(of_ph, "PH"), VAPRIX_RESOLVER(of_ps, "PS"),
    VAPRIX_RESOLVER(of_pv, ""),   VAPRIX_RESOLVER(of_pd, ""),   VAPRIX_RESOLVER(of_px, ""),
    VAPRIX_RESOLVER(of_tx, ""),   VAPRIX_RESOLVER(of_td, ""),   VAPRIX_RESOLVER(of_tv, ""),
    VAPRIX_RESOLVER(of_th, ""),   VAPRIX_RESOLVER(of_ts, ""),   VAPRIX_RESOLVER(of_hs, ""),
    VAPRIX_RESOLVER(of_vh, ""),   VAPRIX_RESOLVER(of_vs, ""),   VAPRIX_RESOLVER(of_dh, ""),
    VAPRIX_RESOLVER(of_ds, ""),
};

struct NamedProperty {
    const char* name;
    vaprix::arrays::states::Property by;
};
#define VAPRIX_PROPERTY(name, symbol)           \
    {                                           \
#name, { vaprix::bridge::name, symbol } \
    }
const NamedProperty properties[] = {
    {"p", {pressure, ""}},
    {"T", {temperature, ""}},
    {"x", {quality, ""}},
    VAPRIX_PROPERTY(v, "V"),
    VAPRIX_PROPERTY(d, "D"),
    VAPRIX_PROPERTY(h, "H"),
    VAPRIX_PROPERTY(s, "S"),
    VAPRIX_PROPERTY(u, "U"),
    VAPRIX_PROPERTY(f, "F"),
    VAPRIX_PROPERTY(g, "G"),
    VAPRIX_PROPERTY(cp, "CP"),
    VAPRIX_PROPERTY(cv, "CV"),
    VAPRIX_PROPERTY(w, "W"),
    VAPRIX_PROPERTY(z, "Z"),
    VAPRIX_PROPERTY(kappa, "CAP"),
    VAPRIX_PROPERTY(cp_per_cv, "GAM"),
    VAPRIX_PROPERTY(mu, "RJT"),
    VAPRIX_PROPERTY(alpha_v, "ALV"),
    VAPRIX_PROPERTY(alpha_p, "ALP"),
    VAPRIX_PROPERTY(beta_p, "BET"),
    VAPRIX_PROPERTY(kappa_T, "CAPT"),
    VAPRIX_PROPERTY(fugacity, "FUG"),
    VAPRIX_PROPERTY(g_ideal, ""),
    VAPRIX_PROPERTY(eta, "ETA"),
    VAPRIX_PROPERTY(nu, "VNU"),
    {"lambda_", {vaprix::bridge::lambda, "TCO"}},
    VAPRIX_PROPERTY(Pr, "PR"),
    VAPRIX_PROPERTY(a, "A"),
    VAPRIX_PROPERTY(epsilon, "EPS"),
    VAPRIX_PROPERTY(sigma, ""),
};

constexpr std::array<char, most_operands> of_two{NPY_DOUBLE, NPY_DOUBLE, NPY_DOUBLE};
constexpr std::array<char, most_operands> of_state{NPY_DOUBLE, NPY_DOUBLE};
constexpr std::array<char, most_operands> of_numbers{NPY_DOUBLE, NPY_INTP, NPY_INTP, NPY_INTP,
                                                     NPY_DOUBLE};

constexpr Function functions[] = {
    {"region", label<std::int8_t, region>, {NPY_DOUBLE, NPY_INT8}, 1, "(8)->()"},
    {"phase", label<std::int8_t, phase>, {NPY_DOUBLE, NPY_INT8}, 1, "(8)->()"},
    {"code", label<std::int32_t, code>, {NPY_DOUBLE, NPY_INT32}, 1, "(8)->()"},
    {"liquid", phase_states<vaprix::bridge::liquid_of>, of_state, 1, "(8)->(8)"},
    {"vapour", phase_states<vaprix::bridge::vapour_of>, of_state, 1, "(8)->(8)"},
    {"derivative", derivative, of_numbers, 4, "(8),(),(),()->()"},
    {"second_derivative", second_derivative, of_numbers, 4, "(8),(),(),()->()"},
};

// What NumPy keeps for a ufunc as long as that lives, which is as long as the module.
struct Kept {
    PyUFuncGenericFunction loop;
    std::array<char, most_operands> types;
    void* data;
};

PyObject* ufunc(const Function& function) {
    static std::array<Kept, std::size(resolvers) + std::size(properties) + std::size(functions)>
        every;
    static std::size_t made = 0;
    Kept& kept = every[made++];
    kept = {function.loop, function.types, const_cast<void*>(function.data)};
    return PyUFunc_FromFuncAndDataAndSignature(&kept.loop, &kept.data, kept.types.data(), 1,
                                               function.inputs, 1, PyUFunc_None, function.name,
                                               nullptr, 0, function.signature);
}

}  // namespace

bool add_states(PyObject* dictionary) {
    bool done = true;
    const auto adds = [&](const Function& function) {
        done = done && add(dictionary, function.name, ufunc(function));
    };
    for (const auto& [name, by] : resolvers) adds({name, resolve, of_two, 2, "(),()->(8)", &by});
    for (const auto& [name, by] : properties) adds({name, property, of_state, 1, "(8)->()", &by});
    for (const Function& function : functions) adds(function);
    return done;
}
