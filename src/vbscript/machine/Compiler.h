// Compiles a program text to code.
//
// Names are bound as far as the text itself tells: its own variables, procedures, classes and constants, then
// the language's functions. What it does not declare is looked up when it runs, since other texts of the
// module, and the host's objects, may bring it.
//
// Raises CompileFailure.
#pragma once

#include <memory>
#include <string_view>
#include <unordered_map>

#include "vbscript/machine/GlobalMembers.h"
#include "vbscript/machine/Globals.h"
#include "vbscript/source/Parser.h"

namespace quillon::vbscript {

// Where the language's own names lead.
struct BuiltinNames {
    enum class Special : std::uint8_t { Execute, ExecuteGlobal, Eval, GetRef };

    explicit BuiltinNames(Names& names);

    std::vector<const Builtin*> functions;
    std::unordered_map<NameId, std::uint16_t> functionsByName;
    std::unordered_map<NameId, Variant> constants;
    std::unordered_map<NameId, Special> specials;
    std::unordered_map<NameId, const CreatableObject*> creatables; // by the name that New takes
    NameId err;                                                    // a name that assignments leave what it is
};

struct CompileContext {
    Names& names;
    Globals& globals;
    const BuiltinNames& builtins;
    const GlobalMembers& members; // of the host's objects, as far as they are known when the text comes
    Machine* machine;
    bool localScope = false; // the text runs within a procedure, and its names are that procedure's
};

std::shared_ptr<Unit> Compile(std::u16string_view text, ProgramKind kind, const CompileContext& context);

} // namespace quillon::vbscript
