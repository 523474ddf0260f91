// SPDX-License-Identifier: MIT
//
// The functions of the library as functions of LibreOffice Calc. Each takes numbers or ranges; a
// range is answered by a range. A failure is #N/A, an argument that is no number #VALUE!.
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/implbase2.hxx>
#include <cppuhelper/supportsservice.hxx>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <span>
#include <vector>

#include "vaprix.h"
#include "vaprix/XCalc.hpp"

using namespace com::sun::star;
using rtl::OUString;
using uno::Any;
using uno::Sequence;

namespace {

constexpr double not_finite = std::numeric_limits<double>::infinity();
constexpr int no_code = 1;

// A result that is a failure, the code that is stored with it, and why.
struct Refusal {
    double value;
    int code;
    const char* reason;
};

struct Function {
    const char* name;
    size_t arguments;
    double (*call)(const double* x);
    std::span<const Refusal> refusals;
    const char* range;
};

// A region as the library takes it; what cannot be one is -1, which has no equation.
int whole(double x) { return x >= 0 && x < 1e9 ? static_cast<int>(x) : -1; }

// Calc reads an error off the low bits of a number that is none.
constexpr double error(uint32_t number) {
    return std::bit_cast<double>(0x7ff8000000000000 | number);
}
constexpr double not_available = error(0x7fff), no_value = error(519);

bool fails(const Function& function, double result) {
    return !std::isfinite(result) || std::ranges::any_of(function.refusals, [&](const Refusal& r) {
        return r.value == result;
    });
}

// An argument: a number, or a range of cells of which a single row or column stands for all.
class Argument {
public:
    explicit Argument(const Any& given) : single{given} {
        if (given >>= cells) {
            rows = cells.getLength();
            columns = rows > 0 ? cells[0].getLength() : 0;
        }
    }
    double at(sal_Int32 row, sal_Int32 column) const {
        if (cells.getLength() == 0) {
            return number(single);
        }
        row = rows == 1 ? 0 : row;
        column = columns == 1 ? 0 : column;
        return row < rows && column < columns ? number(cells[row][column]) : not_available;
    }
    bool is_range() const { return cells.hasElements(); }

    sal_Int32 rows = 1, columns = 1;

private:
    static double number(const Any& cell) {
        double value = cell.hasValue() ? no_value : not_available;  // an error comes as no value
        cell >>= value;
        return value;
    }

    const Any& single;
    Sequence<Sequence<Any>> cells;
};

constexpr size_t most_arguments = 4;

// A cell of the result: the arguments are numbers or errors, of which the first is the answer.
double answer(const Function& function, const double* x) {
    const auto wrong = std::find_if(x, x + function.arguments, [](double v) { return v != v; });
    if (wrong != x + function.arguments) {
        return *wrong;
    }
    const double result = function.call(x);
    return fails(function, result) ? not_available : result;
}

Any over(const Function& function, std::initializer_list<const Any*> given) {
    double x[most_arguments]{};
    std::vector<Argument> arguments;
    sal_Int32 rows = 1, columns = 1;
    bool range = false;
    for (const Any* any : given) {
        const Argument& argument = arguments.emplace_back(*any);
        rows = std::max(rows, argument.rows);
        columns = std::max(columns, argument.columns);
        range |= argument.is_range();
    }
    const auto cell = [&](sal_Int32 row, sal_Int32 column) {
        std::ranges::transform(arguments, x, [=](const Argument& a) { return a.at(row, column); });
        return answer(function, x);
    };
    if (!range) {
        return Any{cell(0, 0)};
    }
    Sequence<Sequence<double>> result(rows);
    for (sal_Int32 row = 0; row < rows; ++row) {
        Sequence<double> line(columns);
        double* const values = line.getArray();
        for (sal_Int32 column = 0; column < columns; ++column) {
            values[column] = cell(row, column);
        }
        result.getArray()[row] = line;
    }
    return Any{result};
}

#include "functions.inc"

Any reason(const Any& name, const Sequence<Any>& given) {
    OUString asked;
    name >>= asked;
    const auto* const function = std::ranges::find_if(
        functions, [&](const Function& f) { return asked.equalsIgnoreAsciiCaseAscii(f.name); });
    if (function == std::end(functions) ||
        function->arguments != static_cast<size_t>(given.getLength())) {
        return Any{no_value};
    }
    double x[most_arguments]{};
    std::ranges::transform(given, x, [](const Any& any) { return Argument{any}.at(0, 0); });
    const auto* const wrong = std::find_if(x, std::end(x), [](double v) { return v != v; });
    if (wrong != std::end(x)) {
        return Any{*wrong};
    }
    reset_code();
    const double result = function->call(x);
    const int code = ECODETUL();
    const auto is_it = [&](const Refusal& r) {
        const bool same = std::isfinite(result) ? r.value == result : !std::isfinite(r.value);
        return same && r.code == (code == 0 ? no_code : code);
    };
    const auto refusal = std::ranges::find_if(function->refusals, is_it);
    if (!fails(*function, result)) {
        return Any{OUString{}};
    }
    const char* words = refusal != function->refusals.end() ? refusal->reason : "no finite value";
    return Any{OUString::createFromAscii(words) +
               "; range: " + OUString::createFromAscii(function->range)};
}

class Calc : public Methods {
    Any SAL_CALL VAPRIXREASON(const Any& function, const Sequence<Any>& arguments) override {
        return reason(function, arguments);
    }
    OUString SAL_CALL getImplementationName() override { return "vaprix.Calc"; }
    sal_Bool SAL_CALL supportsService(const OUString& name) override {
        return cppu::supportsService(this, name);
    }
    Sequence<OUString> SAL_CALL getSupportedServiceNames() override {
        const OUString names[] = {"vaprix.Calc", "com.sun.star.sheet.AddIn"};
        return {names, std::size(names)};
    }
};

}  // namespace

using Constructor = uno::XInterface*(uno::XComponentContext*, const Sequence<Any>&);
extern "C" SAL_DLLPUBLIC_EXPORT Constructor vaprix_calc;

uno::XInterface* vaprix_calc(uno::XComponentContext* /*context*/,
                             const Sequence<Any>& /*arguments*/) {
    return cppu::acquire(new Calc);
}
