// The words of JScript that a change may put in.
#include "support/WordMutator.h"

namespace {

// clang-format off
constexpr std::string_view language[] = {
    "var", "function", "return", "if", "else", "for", "in", "while", "do", "break", "continue", "switch",
    "case", "default", "try", "catch", "finally", "throw", "new", "delete", "typeof", "instanceof", "void",
    "with", "this", "null", "true", "false", "undefined", "NaN", "arguments", "eval", "Function", "Array",
    "Object", "String", "Number", "Boolean", "Date", "RegExp", "Math", "Error", "RangeError", "URIError",
    "Enumerator", "VBArray", "ActiveXObject", "GetObject", "prototype", "constructor", "toString", "valueOf",
    "length", "call", "apply", "push", "splice", "sort", "join", "concat", "slice", "replace", "match",
    "split", "exec", "test", "compile", "lastIndex", "parse", "getVarDate", "toFixed", "toPrecision",
    "parseInt", "parseFloat", "encodeURI", "decodeURI", "escape", "unescape", "number", "description",
    "atEnd", "item", "moveNext", "moveFirst", "toArray", "ubound", "getItem", "library", "Of", "Items",
    "Make", "Kept", "Grid", "Fail", "Echo", "main", "result", "a", "b", "x", "(", ")", "[", "]", "{", "}",
    ",", ".", ";", ":", "?", "=", "==", "===", "!=", "+", "-", "*", "/", "%", "++", "--", "+=", "-=", ">>>=",
    "<", ">", "&&", "||", "!", "~", "0", "1", "-1", "4294967295", "1e308", "010", "0x1F", "''", "'a'",
    "/a/g", "/(a*)*b/", "\n",
};
// clang-format on

} // namespace

const std::span<const std::string_view> quillon::fuzz::words{language};
