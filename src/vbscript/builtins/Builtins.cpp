// Every intrinsic function, constant and creatable object of the language, in one place.
#include "vbscript/builtins/Dictionary.h"
#include "vbscript/builtins/Families.h"
#include "vbscript/builtins/RegExp.h"

namespace quillon::vbscript {

std::span<const FunctionTable> BuiltinFunctions() noexcept {
    static const FunctionTable tables[] = {
        StringFunctions(), StringSearchFunctions(), StringListFunctions(), CharacterFunctions(),
        ByteFunctions(),   ConversionFunctions(),   MathsFunctions(),      RoundingFunctions(),
        RandomFunctions(), FormatFunctions(),       DateFunctions(),       DateIntervalFunctions(),
        ArrayFunctions(),  InspectionFunctions(),   HostFunctions(),
    };
    return tables;
}

std::span<const ConstantTable> BuiltinConstants() noexcept {
    static const ConstantTable tables[] = {
        TextConstants(), CompareConstants(), ColourConstants(), DateConstants(),
        BoxConstants(),  TypeConstants(),    StateConstants(),
    };
    return tables;
}

std::span<const CreatableObject> CreatableObjects() noexcept {
    static constexpr CreatableObject objects[] = {
        {"RegExp", "VBScript.RegExp", RegExp::Create},
        {"", "Scripting.Dictionary", Dictionary::Create},
    };
    return objects;
}

} // namespace quillon::vbscript
