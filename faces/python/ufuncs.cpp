// SPDX-License-Identifier: MIT
//
// The exports as ufuncs of NumPy, over the functions over arrays. Blocks of doubles go to them as NumPy has them; other
// numbers, regions and codes through blocks on the stack.
#define VAPRIX_IMPORTS_NUMPY
#include "loops.hpp"

#include <vaprix_arrays.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "operand.hpp"

namespace {

using vaprix::Operand;

// An export: of `numbers` numbers and, after them, perhaps a region, which it writes back.
struct Function {
    const char* name;
    const char* documentation;
    int numbers;
    bool region;
    void (*over)(std::size_t n, const Operand* at, std::int32_t* code);

    [[nodiscard]] int inputs() const noexcept { return numbers + (region ? 1 : 0); }
};

constexpr Function functions[] = {
#include "ufunc_table.inc"
};

constexpr std::size_t block_size = 256;
constexpr int most_inputs = 4;
constexpr double unwritten =
    -99999;  // what an export that answers by an argument leaves where it fails
constexpr std::ptrdiff_t size_of_double = sizeof(double);

// A number that is no int is no region either.
int region_of(npy_long number) noexcept {
    return number == static_cast<int>(number) ? static_cast<int>(number) : -1;
}

// The elements through blocks of contiguous doubles. Result is what NumPy has for results, or for codes alone.
template <class Number, bool codes>
void through_blocks(const Function& function, const Strided* operand, std::size_t n,
                    std::size_t block) noexcept {
    alignas(64) double number[most_inputs][block_size];
    alignas(64) double result[block_size];
    alignas(64) std::int32_t code[block_size];
    alignas(64) int region[block_size];
    const auto inputs = static_cast<std::size_t>(function.inputs());
    const auto numbers = static_cast<std::size_t>(function.numbers);
    std::array<Operand, most_inputs + 2> at;
    for (std::size_t k = 0; k < numbers; ++k) at[k] = {number[k], 1};
    at[numbers] = {region, 1};
    at[inputs] = {result, 1};

    for (std::size_t first = 0; first < n; first += block) {
        const std::size_t count = std::min(n - first, block);
        for (std::size_t k = 0; k < numbers; ++k) {
            for (std::size_t e = 0; e < count; ++e)
                number[k][e] = static_cast<double>(operand[k].element<const Number>(first + e));
        }
        if (function.region) {
            for (std::size_t e = 0; e < count; ++e)
                region[e] = region_of(operand[numbers].element<const npy_long>(first + e));
        }
        std::fill_n(result, count, unwritten);
        {
            const QuietFlags quiet;
            function.over(count, at.data(), codes ? code : nullptr);
        }
        for (std::size_t e = 0; e < count; ++e) {
            if constexpr (codes) {
                operand[inputs].element<std::int32_t>(first + e) = code[e];
            } else {
                operand[inputs].element<Number>(first + e) = static_cast<Number>(result[e]);
                if (function.region) operand[inputs + 1].element<npy_long>(first + e) = region[e];
            }
        }
    }
}

// Whether the elements of the result are arguments of those after them, as they are where NumPy reduces.
bool is_reduction(const Strided& first, const Strided& result) noexcept {
    return result.at == first.at + first.step;
}

template <class Number, bool codes>
void loop(char** at, const npy_intp* count, const npy_intp* steps, void* data) noexcept {
    const Function& function = *static_cast<const Function*>(data);
    const int inputs = function.inputs();
    Strided operand[most_inputs + 2];
    Operand straight[most_inputs + 2];
    bool whole = std::is_same_v<Number, double> && !codes && !function.region;
    for (int k = 0; k < inputs + (function.region && !codes ? 2 : 1); ++k) {
        operand[k] = {at[k], steps[k]};
        straight[k] = {at[k], steps[k] / size_of_double};
        whole = whole && steps[k] % size_of_double == 0;
    }
    const auto n = static_cast<std::size_t>(*count);
    if (n > 1 && is_reduction(operand[0], operand[inputs]))
        return through_blocks<Number, codes>(function, operand, n, 1);
    if (!whole) return through_blocks<Number, codes>(function, operand, n, block_size);
    const QuietFlags quiet;
    function.over(n, straight, nullptr);
}

// What NumPy keeps for a ufunc as long as that lives, which is as long as the module.
struct Kept {
    std::array<void*, 2> data;
    std::array<char, 2 * (most_inputs + 2)> types;
};

PyUFuncGenericFunction value_loops[] = {loop<float, false>, loop<double, false>};
PyUFuncGenericFunction code_loops[] = {loop<double, true>};

// The protocol of calls with positional arguments in an array, of which the stable ABI has only the entry.
using Call = PyObject* (*)(PyObject* self, PyObject* const* arguments, std::size_t flagged_count,
                           PyObject* names);
constexpr std::size_t flag = std::size_t{1} << (8 * sizeof(std::size_t) - 1);

Call call_of_ufunc;  // NumPy's own

// The double that NumPy makes of a number of Python, or of its own float64.
bool is_number(PyObject* object, double* number) {
    if (PyFloat_CheckExact(object) || Py_TYPE(object) == &PyDoubleArrType_Type) {
        *number = PyFloat_AsDouble(object);
        return true;
    }
    if (!PyLong_CheckExact(object)) return false;
    int overflow = 0;
    *number = static_cast<double>(PyLong_AsLongLongAndOverflow(object, &overflow));
    return overflow == 0;
}

// A call with numbers needs nothing of what NumPy does for arrays.
PyObject* call(PyObject* self, PyObject* const* arguments, std::size_t flagged_count,
               PyObject* names) {
    const auto* ufunc = reinterpret_cast<PyUFuncObject*>(self);
    const auto count = static_cast<Py_ssize_t>(flagged_count & ~flag);
    const Function& function = *static_cast<const Function*>(ufunc->data[0]);
    bool numbers = names == nullptr && !function.region && count == function.numbers;
    double number[most_inputs];
    for (Py_ssize_t k = 0; numbers && k < count; ++k) numbers = is_number(arguments[k], number + k);
    if (!numbers) return call_of_ufunc(self, arguments, flagged_count, names);
    double result = unwritten;
    Operand at[most_inputs + 1];
    for (Py_ssize_t k = 0; k < count; ++k) at[k] = {number + k, 1};
    at[count] = {&result, 1};
    function.over(1, at, nullptr);
    static PyArray_Descr* const kind = PyArray_DescrFromType(NPY_DOUBLE);
    return PyArray_Scalar(&result, kind, nullptr);
}

// A ufunc of the loops given; `kept` is filled for it.
template <std::size_t loops>
PyObject* ufunc(const Function& function, PyUFuncGenericFunction (&loop)[loops],
                const char (&number)[loops], Kept& kept, bool codes) {
    const int outputs = function.region && !codes ? 2 : 1;
    char* type = kept.types.data();
    for (std::size_t l = 0; l < loops; ++l) {
        kept.data[l] = const_cast<Function*>(&function);
        type = std::fill_n(type, function.numbers, number[l]);
        if (function.region) *type++ = NPY_LONG;
        *type++ = codes ? static_cast<char>(NPY_INT32) : number[l];
        if (outputs == 2) *type++ = NPY_LONG;
    }
    return PyUFunc_FromFuncAndData(loop, kept.data.data(), kept.types.data(), loops,
                                   function.inputs(), outputs, PyUFunc_None, function.name,
                                   function.documentation, 0);
}

bool add_function(PyObject* values, PyObject* codes, const Function& function) {
    if (function.inputs() == 0) {
        double constant = 0;
        const Operand at{&constant, 1};
        function.over(1, &at, nullptr);
        return add(values, function.name, PyFloat_FromDouble(constant));
    }
    static std::array<Kept, 2 * std::size(functions)> every;
    Kept* kept = &every[static_cast<std::size_t>(2 * (&function - functions))];
    PyObject* made = ufunc(function, value_loops, {NPY_FLOAT, NPY_DOUBLE}, kept[0], false);
    if (made != nullptr) {
        void*& of_numpy = reinterpret_cast<PyUFuncObject*>(made)->vectorcall;
        call_of_ufunc = reinterpret_cast<Call>(of_numpy);
        if (of_numpy != nullptr) of_numpy = reinterpret_cast<void*>(call);
    }
    return add(values, function.name, made) &&
           add(codes, function.name, ufunc(function, code_loops, {NPY_DOUBLE}, kept[1], true));
}

bool append(PyObject* list, const char* text) {
    PyObject* owned = PyUnicode_FromString(text);
    const bool done = owned != nullptr && PyList_Append(list, owned) == 0;
    Py_XDECREF(owned);
    return done;
}

// The exports, which are public, and beside them what water() needs.
bool fill(PyObject* values) {
    PyObject *names = PyList_New(0), *codes = PyDict_New();
    bool done = names != nullptr && codes != nullptr;
    for (const Function& function : functions)
        done = done && append(names, function.name) && add_function(values, codes, function);
    done = done && add_states(values) &&
           add(values, "__version__", PyUnicode_FromString(VAPRIX_VERSION_TEXT));
    return add(values, "__all__", names) && add(values, "_codes", codes) && done;
}

PyModuleDef definition = {
    PyModuleDef_HEAD_INIT, "_ufuncs", nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};

}  // namespace

PyMODINIT_FUNC PyInit__ufuncs();

PyMODINIT_FUNC PyInit__ufuncs() {
    import_array();
    import_umath();
    PyObject* module = PyModule_Create(&definition);
    if (module != nullptr && !fill(PyModule_GetDict(module))) Py_CLEAR(module);
    return module;
}
