// The tables of intrinsic functions and constants, one a family. Builtins.cpp gathers them; nobody else asks.
#pragma once

#include <span>

#include "vbscript/machine/Builtin.h"

namespace quillon::vbscript {

using FunctionTable = std::span<const Builtin>;
using ConstantTable = std::span<const BuiltinConstant>;

FunctionTable StringFunctions() noexcept;       // Strings.cpp
FunctionTable StringSearchFunctions() noexcept; // StringSearch.cpp
FunctionTable StringListFunctions() noexcept;   // StringLists.cpp
FunctionTable CharacterFunctions() noexcept;    // Characters.cpp
FunctionTable ByteFunctions() noexcept;         // Bytes.cpp
FunctionTable ConversionFunctions() noexcept;   // Conversions.cpp
FunctionTable MathsFunctions() noexcept;        // Maths.cpp
FunctionTable RoundingFunctions() noexcept;     // Rounding.cpp
FunctionTable RandomFunctions() noexcept;       // Random.cpp
FunctionTable FormatFunctions() noexcept;       // Formats.cpp
FunctionTable DateFunctions() noexcept;         // Dates.cpp
FunctionTable DateIntervalFunctions() noexcept; // DateIntervals.cpp
FunctionTable ArrayFunctions() noexcept;        // Arrays.cpp
FunctionTable InspectionFunctions() noexcept;   // Inspection.cpp
FunctionTable HostFunctions() noexcept;         // Host.cpp

ConstantTable TextConstants() noexcept;    // Constants.cpp
ConstantTable CompareConstants() noexcept; // likewise
ConstantTable ColourConstants() noexcept;
ConstantTable DateConstants() noexcept;
ConstantTable BoxConstants() noexcept;
ConstantTable TypeConstants() noexcept;
ConstantTable StateConstants() noexcept;

} // namespace quillon::vbscript
