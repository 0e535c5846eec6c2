// How intrinsic functions, constants and creatable objects join the language: rows of tables.
//
// Written in: builtins/, one file a family with its own table, gathered by builtins/Builtins.cpp. Used by:
// the compiler, which finds names here after the script's own, and the machine, which calls them.
//
// What a function may rely on: arguments are plain values (never references; objects as they are, arrays
// shared and not to be written), as many as its row allows (the machine raises 450 otherwise). An argument
// left out in the middle (`f(1, , 3)`) is Missing; those left out at the end are not in the span. Conversions
// of arguments: machine/Convert.h, which reads default properties of objects, raises 13, 6, 94 ... as
// Failure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/ScriptHost.h"
#include "vbscript/machine/Variant.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {

// What Rnd and Randomize keep between calls: 24 bits of a linear congruential generator.
struct RandomState {
    std::uint32_t seed = 0x50000;
};

// What an intrinsic function may ask of the run it is part of.
class BuiltinContext : public Work::Watcher {
  public:
    virtual ScriptSite* Site() noexcept = 0; // null: no boxes, the functions raise 5
    virtual RandomState& Random() noexcept = 0;

  protected:
    ~BuiltinContext() = default;
};

using BuiltinFunction = Variant (*)(BuiltinContext& context, std::span<const Variant> arguments);

// Where a call may stand. Elsewhere its arguments are looked at, and then it is an error.
enum class BuiltinUse : std::uint8_t {
    Anywhere,
    AsValue,     // 458 as a statement
    AsStatement, // 13 as a value
};

struct Builtin {
    static constexpr std::uint8_t AnyCount = 255;

    std::string_view name; // as the documentation spells it
    std::uint8_t minArguments;
    std::uint8_t maxArguments; // AnyCount: no limit
    BuiltinFunction function;
    BuiltinUse use = BuiltinUse::Anywhere;
};

// An Integer, a Long if `isLong`, or a text where `text` is set.
struct BuiltinConstant {
    std::string_view name;
    std::int32_t number = 0;
    std::optional<std::u16string_view> text = std::nullopt;
    bool isLong = false;
};

// What New and CreateObject can make. `name` as New takes it ("RegExp"), `programId` as CreateObject does
// ("VBScript.RegExp"); either may be empty.
struct CreatableObject {
    std::string_view name;
    std::string_view programId;
    ObjectRef (*create)();
};

// --- the gathered tables (builtins/Builtins.cpp); the spans live for the process's life ---
std::span<const std::span<const Builtin>> BuiltinFunctions() noexcept;
std::span<const std::span<const BuiltinConstant>> BuiltinConstants() noexcept;
std::span<const CreatableObject> CreatableObjects() noexcept;

} // namespace quillon::vbscript
