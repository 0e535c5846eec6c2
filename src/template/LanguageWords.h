// The words of the four languages that the editors colour. Sources: the public documentation of each
// language; the model's words are its own vocabulary.
#pragma once

#include <string>
#include <vector>

namespace quillon::words {

// Reserved words and built-in functions of Transact-SQL.
std::vector<std::string> TransactSql();
// Statements, types, functions and constants of VBScript, and the constants of the database library that
// templates may use.
std::vector<std::string> VBScript();
// Statements, built-in objects and methods of JScript, words of conditional compilation.
std::vector<std::string> JScript();
std::vector<std::string> JScriptOperators();

} // namespace quillon::words
