#include "jscript/Errors.h"

#include <array>

#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

// The first row whose class is that of the error and whose words are in its message gives number and text. An
// empty text keeps the engine's own message, which says more.
struct Row {
    std::string_view errorClass, words;
    std::int32_t number;
    std::string_view description;
};

constexpr std::array Rows{
    Row{"ReferenceError", "invalid lvalue", 5008, "Illegal assignment"},
    Row{"ReferenceError", "", 5009, ""},
    Row{"TypeError", "not callable (property", 438, "Object doesn't support this property or method"},
    Row{"TypeError", "not callable", 5002, "Function expected"},
    Row{"TypeError", "not constructable", 445, "Object doesn't support this action"},
    Row{"TypeError", "of undefined", 5007, "'undefined' is null or not an object"},
    Row{"TypeError", "of null", 5007, "'null' is null or not an object"},
    Row{"TypeError", "expected Date", 5006, "Date object expected"},
    Row{"TypeError", "expected RegExp", 5016, "Regular Expression object expected"},
    Row{"TypeError", "RegExp required", 5016, "Regular Expression object expected"},
    Row{"TypeError", "invalid args", 5028, "Array or arguments object expected"},
    Row{"TypeError", "number expected", 5001, "Number expected"},
    Row{"TypeError", "invalid instanceof", 5002, "Function expected"},
    Row{"TypeError", "has no .prototype", 5023, "Function does not have a valid prototype object"},
    Row{"TypeError", "unexpected type", 5007, "Object expected"},
    Row{"TypeError", "object required", 5007, "Object expected"},
    Row{"TypeError", "not object coercible", 5007, "Object expected"},
    Row{"TypeError", "not writable", 5008, "Illegal assignment"},
    Row{"TypeError", "", 438, ""},
    Row{"RangeError", "callstack limit", numbers::OutOfStackSpace, "Out of stack space"},
    Row{"RangeError", "stack depth limit", numbers::OutOfStackSpace, "Out of stack space"},
    Row{"RangeError", "recursion limit", numbers::OutOfStackSpace, "Out of stack space"},
    Row{"RangeError", "stack limit", numbers::OutOfStackSpace, "Out of stack space"},
    Row{"RangeError", "too long", numbers::OutOfStringSpace, "Out of string space"},
    Row{"RangeError", "invalid array length", 5030, "Array length must be assigned a finite positive number"},
    Row{"RangeError", "invalid length", 5029, "Array length must be a finite positive integer"},
    Row{"RangeError", "", numbers::InvalidCall, ""},
    Row{"Error", "alloc failed", numbers::OutOfMemory, "Out of memory"},
    Row{"SyntaxError", "without preceding atom", 5018, "Unexpected quantifier"},
    Row{"SyntaxError", "unterminated character class", 5019, "Expected ']' in regular expression"},
    Row{"SyntaxError", "unexpected end of pattern", 5020, "Expected ')' in regular expression"},
    Row{"SyntaxError", "invalid quantifier", 5018, "Unexpected quantifier"},
    Row{"SyntaxError", "invalid character class range", 5021, "Invalid range in character set"},
    Row{"SyntaxError", "invalid range", 5021, "Invalid range in character set"},
    Row{"SyntaxError", "regexp", 5017, "Syntax error in regular expression"},
    Row{"SyntaxError", "invalid json", 1014, "Invalid character"},
    Row{"SyntaxError", "unterminated string", 1015, "Unterminated string constant"},
    Row{"SyntaxError", "unterminated comment", 1016, "Unterminated comment"},
    Row{"SyntaxError", "unterminated statement", 1004, "Expected ';'"},
    Row{"SyntaxError", "invalid variable declaration", 1010, "Expected identifier"},
    Row{"SyntaxError", "expected identifier", 1010, "Expected identifier"},
    Row{"SyntaxError", "invalid return", 1018, "'return' statement outside of function"},
    Row{"SyntaxError", "invalid label", 1026, "Label not found"},
    Row{"SyntaxError", "invalid token", 1014, "Invalid character"},
    Row{"SyntaxError", "invalid array literal", 1007, "Expected ']'"},
    Row{"SyntaxError", "invalid try", 1033, "Expected 'catch'"},
    Row{"SyntaxError", "name required", 1010, "Expected identifier"},
    Row{"SyntaxError", "duplicate label", 1025, "Label redefined"},
    Row{"SyntaxError", "invalid lvalue", 5008, "Illegal assignment"},
    Row{"SyntaxError", "invalid throw", 1002, "Syntax error"},
    Row{"SyntaxError", "", 1002, ""},
};

struct ExpectedRow {
    std::string_view what;
    std::int32_t number;
};

constexpr std::array ExpectedRows{
    ExpectedRow{":", 1003}, ExpectedRow{";", 1004}, ExpectedRow{"(", 1005}, ExpectedRow{")", 1006},
    ExpectedRow{"]", 1007}, ExpectedRow{"{", 1008}, ExpectedRow{"}", 1009}, ExpectedRow{"while", 1024},
};

constexpr std::uint32_t ScriptFacility = 0x800A0000;

// "(line 2, end of input)" at the end says what the error's line says.
std::string_view WithoutPlace(std::string_view message) {
    const auto place = message.rfind(" (line ");
    return place == std::string_view::npos ? message : message.substr(0, place);
}

std::string OwnText(std::int32_t number, std::string_view message) {
    constexpr std::string_view undefined = "identifier '";
    if (number == 5009 && message.starts_with(undefined)) {
        const auto end = message.find('\'', undefined.size());
        return std::string(message.substr(undefined.size() - 1, end - undefined.size() + 2)) +
               " is undefined";
    }
    if (number == 1002)
        return "Syntax error: " + std::string(WithoutPlace(message));
    return std::string(WithoutPlace(message));
}

} // namespace

KnownError KnownErrorOf(std::string_view errorClass, std::string_view message) {
    for (const Row& row : Rows) {
        if (row.errorClass != errorClass || message.find(row.words) == std::string_view::npos)
            continue;
        return {row.number,
                row.description.empty() ? OwnText(row.number, message) : std::string(row.description)};
    }
    return {numbers::InvalidCall, std::string(message)};
}

KnownError Expected(std::string_view what) {
    for (const ExpectedRow& row : ExpectedRows)
        if (row.what == what)
            return {row.number, "Expected '" + std::string(what) + "'"};
    return {0, {}};
}

std::int32_t WithFacility(std::int32_t number) {
    if (number < 0 || number > 0xFFFF)
        return number;
    return static_cast<std::int32_t>(ScriptFacility | static_cast<std::uint32_t>(number));
}

std::int32_t WithoutFacility(std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    return (bits & 0xFFFF0000U) == ScriptFacility ? static_cast<std::int32_t>(bits & 0xFFFFU) : number;
}

} // namespace quillon::jscript
