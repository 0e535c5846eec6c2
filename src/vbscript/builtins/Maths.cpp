// Sqr, Exp, Log and the angles: doubles in, doubles out.
#include <cmath>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

template <double (*Function)(double)>
Variant Of(BuiltinContext&, Arguments arguments) {
    return Function(ToDouble(arguments[0]));
}

double Sine(double value) {
    return std::sin(value);
}
double Cosine(double value) {
    return std::cos(value);
}
double Tangent(double value) {
    return std::tan(value);
}
double ArcTangent(double value) {
    return std::atan(value);
}

double SquareRoot(double value) {
    if (value < 0)
        RaiseInvalidCall();
    return std::sqrt(value);
}

double Logarithm(double value) {
    if (value <= 0)
        RaiseInvalidCall();
    return std::log(value);
}

double Exponential(double value) {
    const double result = std::exp(value);
    if (std::isinf(result))
        throw Failure(numbers::Overflow);
    return result;
}

constexpr Builtin Table[] = {
    {"Sin", 1, 1, Of<Sine>},        {"Cos", 1, 1, Of<Cosine>},     {"Tan", 1, 1, Of<Tangent>},
    {"Atn", 1, 1, Of<ArcTangent>},  {"Sqr", 1, 1, Of<SquareRoot>}, {"Log", 1, 1, Of<Logarithm>},
    {"Exp", 1, 1, Of<Exponential>},
};

} // namespace

FunctionTable MathsFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
