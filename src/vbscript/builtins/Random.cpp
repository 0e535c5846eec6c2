// Rnd and Randomize: the documented generator, x1 = (x0 * 1140671485 + 12820163) mod 2^24, so that a script
// that seeds itself sees the sequence it always saw.
#include <bit>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Clock.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

constexpr std::uint32_t SeedMask = 0xFFFFFF;

// A negative argument seeds, zero repeats the last number, everything else goes on.
Variant Rnd(BuiltinContext& context, Arguments arguments) {
    RandomState& state = context.Random();
    const float choice = IsGiven(arguments, 0) ? ToSingle(arguments[0]) : 1.0F;
    if (choice < 0) {
        const auto bits = std::bit_cast<std::uint32_t>(choice);
        state.seed = (bits + (bits >> 24)) & SeedMask;
    }
    if (choice != 0)
        state.seed = (state.seed * 1140671485U + 12820163U) & SeedMask;
    return static_cast<float>(state.seed) / 16777216.0F;
}

// Replaces the middle sixteen bits of the seed only: the sequence depends on what went before.
Variant Randomize(BuiltinContext& context, Arguments arguments) {
    const double number = IsGiven(arguments, 0) ? ToDouble(arguments[0]) : SecondsSinceMidnight();
    const auto high = static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(number) >> 32);
    RandomState& state = context.Random();
    state.seed = (state.seed & 0xFF0000FFU) | (((high & 0xFFFFU) ^ (high >> 16)) << 8);
    return {};
}

constexpr Builtin Table[] = {{"Rnd", 0, 1, Rnd}, {"Randomize", 0, 1, Randomize, BuiltinUse::AsStatement}};

} // namespace

FunctionTable RandomFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
