// SPDX-License-Identifier: MIT
//
// The states of the C++ interface as generalised ufuncs of NumPy. A resolver makes of two numbers the storage of a state,
// eight doubles that nobody looks into; properties, phases and derivatives are of those. Where a state has no such
// property the result is NaN with the invalid flag, which NumPy tells of; without it where a NaN was given.
#define PY_SSIZE_T_CLEAN
#define NPY_NO_DEPRECATED_API NPY_1_20_API_VERSION
#include <Python.h>
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>
#include <vaprix.hpp>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "frame/constants.hpp"
#include "loops.hpp"

namespace {

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
        if (inner == sizeof(double)) {
            std::memcpy(&state, &element<char>(k), sizeof state);
            return state;
        }
        for (std::size_t e = 0; e < stored; ++e)
            std::memcpy(reinterpret_cast<char*>(&state) + e * sizeof(double), part(k, e),
                        sizeof(double));
        return state;
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

Resolved marked(Resolved state, bool is_gap) noexcept {
    if (state.region == 0 && is_gap) state.saturated = gap;
    return state;
}

template <Resolved (*resolve)(double, double, Family) noexcept, Family family>
void resolver(char** at, const npy_intp* count, const npy_intp* steps, void* /*data*/) noexcept {
    const Strided first{at[0], steps[0]}, second{at[1], steps[1]};
    const States out{{at[2], steps[2]}, steps[3]};
    const QuietFlags quiet;
    for (std::size_t k = 0; k < static_cast<std::size_t>(*count); ++k) {
        const double a = first.element<const double>(k), b = second.element<const double>(k);
        out.store(k, marked(resolve(a, b, family), std::isnan(a) || std::isnan(b)));
    }
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

// Reads one number of each state: read(state, k).
template <class Read>
void numbers(const States& states, const Strided& out, std::size_t n, const Read& read) noexcept {
    bool fails = false;
    {
        const QuietFlags quiet;
        for (std::size_t k = 0; k < n; ++k) {
            const Resolved state = states.load(k);
            const double value = state.region == 0 ? nan : read(state, k);
            fails = fails || (std::isnan(value) && !(state.region == 0 && state.saturated == gap));
            out.element<double>(k) = value;
        }
    }
    if (fails) std::feraiseexcept(FE_INVALID);
}

template <auto read>
void property(char** at, const npy_intp* count, const npy_intp* steps, void* /*data*/) noexcept {
    numbers({{at[0], steps[0]}, steps[2]}, {at[1], steps[1]}, static_cast<std::size_t>(*count),
            [](const Resolved& state, std::size_t) noexcept { return read(state); });
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

// As vaprix.Phase counts them. Below the critical temperature the critical density parts liquid and vapour.
enum Phase : std::int8_t { none, liquid, vapour, wet, supercritical };
std::int8_t phase(const Resolved& state) noexcept {
    if (state.region == 0) return none;
    if (state.region == 4) return wet;
    if (state.t >= vaprix::T_crit) return state.p >= vaprix::p_crit ? supercritical : vapour;
    return vaprix::bridge::d(state) > vaprix::d_crit ? liquid : vapour;
}

Property named(npy_intp number) noexcept { return static_cast<Property>(number); }

// (dz/dx)_y of state, z, x, y, which are numbers of Property; where y is none of them, along the saturation line.
void derivative(char** at, const npy_intp* count, const npy_intp* steps, void* /*data*/) noexcept {
    const Strided z{at[1], steps[1]}, x{at[2], steps[2]}, y{at[3], steps[3]};
    numbers({{at[0], steps[0]}, steps[5]}, {at[4], steps[4]}, static_cast<std::size_t>(*count),
            [&](const Resolved& resolved, std::size_t k) noexcept {
                const vaprix::State state(resolved);
                const Property of = named(z.element<npy_intp>(k)),
                               by = named(x.element<npy_intp>(k));
                const npy_intp kept = y.element<npy_intp>(k);
                return kept < vaprix::bridge::properties ? state.derivative(of, by, named(kept))
                                                         : state.along_line(of, by);
            });
}

// Second derivatives of state, z, y, which: by p twice, by p and y, by y twice.
void second_derivative(char** at, const npy_intp* count, const npy_intp* steps,
                       void* /*data*/) noexcept {
    const Strided z{at[1], steps[1]}, y{at[2], steps[2]}, which{at[3], steps[3]};
    numbers({{at[0], steps[0]}, steps[5]}, {at[4], steps[4]}, static_cast<std::size_t>(*count),
            [&](const Resolved& resolved, std::size_t k) noexcept {
                const auto second = vaprix::State(resolved)
                                        .curvatures(named(y.element<npy_intp>(k)))
                                        .of(named(z.element<npy_intp>(k)));
                const npy_intp by = which.element<npy_intp>(k);
                return by == 0 ? second.pp : by == 1 ? second.py : second.yy;
            });
}

// A generalised ufunc of one loop.
struct Function {
    const char* name;
    PyUFuncGenericFunction loop;
    std::array<char, 5> types;  // inputs, then the output
    int inputs;
    const char* signature;
};

constexpr std::array<char, 5> of_two{NPY_DOUBLE, NPY_DOUBLE, NPY_DOUBLE};
constexpr std::array<char, 5> of_state{NPY_DOUBLE, NPY_DOUBLE};
constexpr std::array<char, 5> of_numbers{NPY_DOUBLE, NPY_INTP, NPY_INTP, NPY_INTP, NPY_DOUBLE};

#define VAPRIX_RESOLVER(of)                                                          \
    {#of "_O", resolver<vaprix::bridge::of, Family::O>, of_two, 2, "(),()->(8)"}, {  \
#of "_B", resolver < vaprix::bridge::of, Family::B>, of_two, 2, "(),()->(8)" \
    }
#define VAPRIX_PROPERTY(name) \
    { #name, property < vaprix::bridge::name>, of_state, 1, "(8)->()" }

constexpr Function functions[] = {
    VAPRIX_RESOLVER(of_pt),
    VAPRIX_RESOLVER(of_ph),
    VAPRIX_RESOLVER(of_ps),
    VAPRIX_RESOLVER(of_pv),
    VAPRIX_RESOLVER(of_pd),
    VAPRIX_RESOLVER(of_px),
    VAPRIX_RESOLVER(of_tx),
    VAPRIX_RESOLVER(of_td),
    VAPRIX_RESOLVER(of_tv),
    VAPRIX_RESOLVER(of_th),
    VAPRIX_RESOLVER(of_ts),
    VAPRIX_RESOLVER(of_hs),
    VAPRIX_RESOLVER(of_vh),
    VAPRIX_RESOLVER(of_vs),
    VAPRIX_RESOLVER(of_dh),
    VAPRIX_RESOLVER(of_ds),
    {"p", property<pressure>, of_state, 1, "(8)->()"},
    {"T", property<temperature>, of_state, 1, "(8)->()"},
    {"x", property<quality>, of_state, 1, "(8)->()"},
    VAPRIX_PROPERTY(v),
    VAPRIX_PROPERTY(d),
    VAPRIX_PROPERTY(h),
    VAPRIX_PROPERTY(s),
    VAPRIX_PROPERTY(u),
    VAPRIX_PROPERTY(f),
    VAPRIX_PROPERTY(g),
    VAPRIX_PROPERTY(cp),
    VAPRIX_PROPERTY(cv),
    VAPRIX_PROPERTY(w),
    VAPRIX_PROPERTY(z),
    VAPRIX_PROPERTY(kappa),
    VAPRIX_PROPERTY(cp_per_cv),
    VAPRIX_PROPERTY(mu),
    VAPRIX_PROPERTY(alpha_v),
    VAPRIX_PROPERTY(alpha_p),
    VAPRIX_PROPERTY(beta_p),
    VAPRIX_PROPERTY(kappa_T),
    VAPRIX_PROPERTY(fugacity),
    VAPRIX_PROPERTY(g_ideal),
    VAPRIX_PROPERTY(eta),
    VAPRIX_PROPERTY(nu),
    VAPRIX_PROPERTY(Pr),
    VAPRIX_PROPERTY(a),
    VAPRIX_PROPERTY(epsilon),
    VAPRIX_PROPERTY(sigma),
    {"lambda_", property<vaprix::bridge::lambda>, of_state, 1, "(8)->()"},
    {"region", label<std::int8_t, region>, {NPY_DOUBLE, NPY_INT8}, 1, "(8)->()"},
    {"phase", label<std::int8_t, phase>, {NPY_DOUBLE, NPY_INT8}, 1, "(8)->()"},
    {"code", label<std::int32_t, code>, {NPY_DOUBLE, NPY_INT32}, 1, "(8)->()"},
    {"liquid", phase_states<vaprix::bridge::liquid_of>, of_state, 1, "(8)->(8)"},
    {"vapour", phase_states<vaprix::bridge::vapour_of>, of_state, 1, "(8)->(8)"},
    {"derivative", derivative, of_numbers, 4, "(8),(),(),()->()"},
    {"second_derivative", second_derivative, of_numbers, 4, "(8),(),(),()->()"},
};

bool fill(PyObject* dictionary) {
    static std::array<PyUFuncGenericFunction, std::size(functions)> loops;
    static std::array<std::array<char, 5>, std::size(functions)> types;
    static void* no_data[] = {nullptr};
    bool done = true;
    for (std::size_t k = 0; done && k < std::size(functions); ++k) {
        const Function& function = functions[k];
        loops[k] = function.loop;
        types[k] = function.types;
        done = add(dictionary, function.name,
                   PyUFunc_FromFuncAndDataAndSignature(
                       &loops[k], no_data, types[k].data(), 1, function.inputs, 1, PyUFunc_None,
                       function.name, nullptr, 0, function.signature));
    }
    return done;
}

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "_states", nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};

}  // namespace

PyMODINIT_FUNC PyInit__states();

PyMODINIT_FUNC PyInit__states() {
    import_array();
    import_umath();
    PyObject* module = PyModule_Create(&definition);
    if (module != nullptr && !fill(PyModule_GetDict(module))) Py_CLEAR(module);
    return module;
}
