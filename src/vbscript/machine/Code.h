// Compiled code: what the compiler writes and the machine runs.
//
// An instruction names its operands by two bits of space and fourteen of place: the registers of the running
// frame (parameters, result, variables, then temporaries), the constants of the code, the global variables of
// the engine, the fields of the instance that Me is. Global names keep their places as long as the engine
// lives, so code needs no linking when its text is added again.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "vbscript/machine/Builtin.h"
#include "vbscript/machine/Variant.h"
#include "vbscript/source/Names.h"
#include "vbscript/source/Place.h"
#include "vbscript/source/Tree.h"

namespace quillon::vbscript {

using Operand = std::uint16_t;
enum class Space : Operand { Register = 0, Constant = 1, Global = 2, Field = 3 };
inline constexpr int SpaceShift = 14;
inline constexpr Operand PlaceMask = (1u << SpaceShift) - 1;
inline constexpr std::size_t SpaceSize = std::size_t{1} << SpaceShift;

constexpr Operand MakeOperand(Space space, std::size_t place) noexcept {
    return static_cast<Operand>((static_cast<unsigned>(space) << SpaceShift) | place);
}
constexpr Space SpaceOf(Operand operand) noexcept {
    return static_cast<Space>(operand >> SpaceShift);
}

// a, b, c are operands unless said otherwise; `base` is a register from which on arguments lie one behind the
// other, and which receives the result. "word": the next instruction's a and b are a number, lower half
// first.
enum class Op : std::uint16_t {
    // --- moving ---
    Let,          // a = plain value of b
    LetTake,      // the same from a temporary, which becomes Empty
    Set,          // a = object b; 424 if it is none
    SetTake,      // the same from a temporary
    Copy,         // a = b as it is
    Take,         // the same from a temporary, which becomes Empty
    LoadConstant, // a = constant number word
    LoadName,     // base a: value of b, called if b is a procedure
    Refer,        // base a: a reference to variable b, or what calling b gives
    ReferElement, // register a = reference to an element of b; subscripts from register c on; word: their
                  // count, with the register in its c that keeps the array locked
    LoadMe,       // a = Me
    Clear,        // registers a to b - 1 become Empty
    // --- operators ---
    Add,
    Subtract,
    Multiply,
    Divide,
    WholeDivide,
    Modulo,
    Power,
    Concatenate, // a = b & c
    Join,        // a = c values from register b on, joined
    Negate,
    Not,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
    Equal, // in the order of Comparison
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Is,
    Test, // a = True or False, as a condition takes b
    // --- jumps; the target is word, a distance from the jump ---
    Jump,
    JumpBack,    // looks for a request to stop
    JumpIfFalse, // a
    JumpIfTrue,  // a
    UnlessEqual, // jumps unless a = b; in the order of Comparison
    UnlessNotEqual,
    UnlessLess,
    UnlessLessOrEqual,
    UnlessGreater,
    UnlessGreaterOrEqual,
    // --- loops ---
    ForBegin,  // a = register b + 2; limit in register b, step in b + 1; jumps if nothing to do
    ForNext,   // a += step; jumps back if not beyond the limit
    EachBegin, // register a = walk through b
    EachNext,  // a = next element of the walk in register b; jumps at the end
    // --- calls; base a ---
    Call,     // procedure in b, c arguments, result wanted
    CallSub,  // the same, no result
    CallName, // whatever b is, as site c says
    CallNameSub,
    CallBuiltin, // function number b, c arguments
    CallSelf,    // member number b of the running instance's class, c arguments
    CallSelfSub,
    Index,      // a = b(c)
    IndexMany,  // base a: b(arguments), c of them
    StoreIndex, // a(b) = c
    StoreMany,  // a(registers from b on) = the register behind them; c: count of subscripts
    SetIndex,   // as StoreIndex and StoreMany, with Set
    SetMany,
    GetMember,  // base a: member of b, as site c says
    CallMember, // the same as a statement
    LetMember,  // the new value is the last argument
    SetMember,
    LetName, // base a: the new value, last of the arguments, to what b is, as site c says
    SetName,
    New,          // register a = new object of the class that site c names
    Execute,      // base a: runs the text there; b: kind of ExecuteKind
    GetReference, // base a: the procedure named there
    // --- arrays ---
    DimArray, // a = new array of shape b, unless it is one
    ReDim,    // a, bounds from register b on, c of them
    ReDimPreserve,
    Erase, // a
    // --- the rest ---
    OnErrorResume,
    OnErrorStop,
    Raise, // error number word
    Return,
};

enum class ExecuteKind : std::uint16_t { Local, Global, Expression };

struct Instruction {
    Op op;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    std::uint16_t c = 0;

    std::uint32_t Word() const noexcept { return a | (std::uint32_t{b} << 16); }
    void SetWord(std::uint32_t word) noexcept {
        a = static_cast<std::uint16_t>(word);
        b = static_cast<std::uint16_t>(word >> 16);
    }
};
static_assert(sizeof(Instruction) == 8);

// A statement's part of the code: where an error in it is reported, and where Resume Next goes on.
struct StatementMark {
    std::uint32_t start;
    std::uint32_t resume;
    Place place;
    std::uint16_t temporaries; // registers from here on are let go of by an error
};

// A place of the program that names a member or an unknown procedure, with what was found there last.
struct CallSite {
    enum class Use : std::uint8_t {
        Plain,
        Self,     // on Me, where private members are open
        Brackets, // a name that is read, with empty brackets behind it
    };
    NameId name;
    std::uint16_t arguments;
    Use use = Use::Plain;
    const void* shape = nullptr;
    MemberId member = 0;
};

struct Code;

// A name that stands for a variable in a procedure but is declared nowhere in the text: the global variable
// if there is one when the procedure starts, else a variable of its own.
struct FreeName {
    std::uint16_t place; // register
    std::uint16_t global;
    NameId name;
    bool isWritten;  // a snippet writes to it or declares it
    bool isDeclared; // by ReDim
};

struct ArrayShape {
    std::vector<std::int32_t> bounds;
    bool isFixed;
};

struct Unit;

struct Code {
    NameId name = 0;
    ProcedureKind kind = ProcedureKind::Sub;
    bool isModule = false;   // the body of a unit: its variables are global
    bool isSnippet = false;  // the body of what Execute or Eval runs in a procedure
    bool isExplicit = false; // Option Explicit
    std::uint16_t parameterCount = 0;
    std::uint16_t valueCount = 0; // parameters that are ByVal among them
    std::int32_t result = -1;     // register of the result
    std::uint32_t registers = 0;  // parameters, variables and temporaries
    std::vector<bool> byValue;    // a parameter each
    std::vector<Instruction> instructions;
    std::vector<Variant> constants;
    std::vector<StatementMark> marks; // in order of start
    mutable std::vector<CallSite> sites;
    std::vector<FreeName> freeNames;
    std::vector<ArrayShape> shapes;
    std::vector<std::pair<NameId, std::uint16_t>> locals; // names of registers, for Execute and Eval
    const Unit* unit = nullptr;
};

// One member of a class: a field, a method, or up to three procedures of a property.
struct ClassMember {
    NameId name;
    std::int32_t field = -1;
    bool isPublic = true; // the field, or what reads
    bool isPublicLet = true;
    bool isPublicSet = true;
    std::unique_ptr<Code> get; // methods too
    std::unique_ptr<Code> let;
    std::unique_ptr<Code> set;
};

class Machine;

struct ClassInfo {
    NameId name;
    std::string spelling;
    Machine* machine = nullptr;
    std::size_t fieldCount = 0;
    std::vector<std::pair<std::uint32_t, ArrayShape>> arrays; // fields declared as arrays
    std::vector<ClassMember> members;
    std::unordered_map<NameId, std::uint32_t> byName;
    std::int32_t defaultMember = -1;
    const Code* initialize = nullptr;
    const Code* terminate = nullptr;

    const ClassMember* Find(NameId member) const {
        const auto found = byName.find(member);
        return found == byName.end() ? nullptr : &members[found->second];
    }
};

// What one text compiles to.
struct Unit {
    std::u16string text;
    std::vector<std::size_t> lineStarts;
    Code main;
    std::vector<std::pair<std::uint16_t, std::unique_ptr<Code>>> procedures; // by global place
    std::vector<std::pair<std::uint16_t, std::unique_ptr<ClassInfo>>> classes;
    std::vector<std::pair<std::uint16_t, Variant>> constants;
    std::vector<std::uint16_t> variables; // global places that the text declares
    std::vector<std::uint16_t> implied;   // that it writes to without declaring them

    bool Defines() const noexcept { return !procedures.empty() || !classes.empty() || !constants.empty(); }
};

} // namespace quillon::vbscript
