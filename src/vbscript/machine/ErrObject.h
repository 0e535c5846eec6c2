// Err: what the last run-time error was.
#pragma once

#include <memory>

#include "platform/Failure.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

inline constexpr std::string_view RuntimeSource = "Microsoft VBScript runtime error";

// The state behind Err, shared between the object and its machine.
struct ErrState {
    std::int32_t number = 0;
    std::string description;
    std::string source;
    std::string helpFile;
    std::int32_t helpContext = 0;
    bool isRaising = false; // Err.Raise is on its way, with a help topic of its own

    void Clear() { *this = {}; }
    void Take(const Failure& failure);
};

// Numbers of automation errors that stand for an error of the language (0x800A000D is 13, 0x8007000E is 7),
// others as they are.
std::int32_t LowNumber(std::int32_t number) noexcept;
// The text of an error that brings none.
std::string DescriptionOf(const Failure& failure);

ObjectRef MakeErr(std::shared_ptr<ErrState> state);
bool IsErr(const Variant& value) noexcept;

} // namespace quillon::vbscript
