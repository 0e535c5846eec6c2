// The preferences of the system: their names, types and defaults as one table, and the wrappers through which
// every room reads and writes them.
//
// Used by: all screens and modules with a preference. Stored by: the platform's settings store, under
// application "Harrowgate", section "Quillon"; the remembered servers stand in a section of their own.
// Values are text; numbers and booleans are stored as their digits. A key that was never written gives the
// default and no failure. A value that cannot be converted raises 13 (type mismatch) or 6 (overflow) in the
// typed reader; a store that cannot be read or written raises its own failure.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::settings {

inline constexpr const char* Application = "Harrowgate";
inline constexpr const char* Section = "Quillon";
inline constexpr const char* ServersSection = "Servers";

enum class Type { Text, Integer, Boolean };

struct Setting {
    const char* Key;
    Type ValueType;
    const char* Default;
    const char* Meaning;
};

inline constexpr Setting DefaultArch{
    "DefaultArch", Type::Text, "Harrowgate.qlnx",
    "default architecture profile; a bare name means the application's folder"};
inline constexpr Setting Editor{"Editor", Type::Integer, "0",
                                "hand-off of generated scripts: 0 Query Analyzer, 1 own editor, 2 execute"};
inline constexpr Setting QueryProgram{
    "QueryProgram", Type::Text, "",
    "program that opens generated scripts in place of the Query Analyzer; it gets the file as its argument"};
inline constexpr Setting AuditTablePrefix{"AuditTablePrefix", Type::Text, "AUDIT",
                                          "tables so named are left out of the model"};
inline constexpr Setting ExcludeSysTables{"ExcludeSysTables", Type::Boolean, "1",
                                          "system databases are left out of the list"};
inline constexpr Setting ShowTips{"Show Tips at Startup", Type::Integer, "1",
                                  "show the tip of the day at start"};
inline constexpr Setting ScriptingLanguage{"ScriptingLanguage", Type::Integer, "0", "0 VBScript, 1 JScript"};
// Picking a database reads it without a default: by then the login has written it.
inline constexpr Setting LoginType{"logintype", Type::Boolean, "1", "1 Windows authentication, 0 SQL Server"};
inline constexpr Setting Server{"server", Type::Text, "", "last server"};
inline constexpr Setting UserId{"uid", Type::Text, "", "last user"};
inline constexpr Setting Password{"pwd", Type::Text, "", "last password, plain"};
inline constexpr Setting LeftMargin{"leftmargin", Type::Integer, "0", "editor shows its left margin"};
inline constexpr Setting LineNumbers{"linenumbers", Type::Integer, "1", "editor numbers its lines"};
inline constexpr Setting Normalize{"normalize", Type::Integer, "0", "editor normalises the case of words"};
inline constexpr Setting PropertyPage{"propertypage", Type::Integer, "1",
                                      "template editor shows its properties"};

inline constexpr std::array All{DefaultArch,      Editor,    QueryProgram,      AuditTablePrefix,
                                ExcludeSysTables, ShowTips,  ScriptingLanguage, LoginType,
                                Server,           UserId,    Password,          LeftMargin,
                                LineNumbers,      Normalize, PropertyPage};

// --- the wrappers ---
std::string Read(const std::string& key, const std::string& defaultValue);
void Write(const std::string& value, const std::string& key);

// --- with the defaults of the table ---
std::string Read(const Setting& setting);
void Write(const std::string& value, const Setting& setting);

// --- typed ---
std::int32_t ReadLong(const std::string& key, const std::string& defaultValue);
std::int32_t ReadLong(const Setting& setting);
bool ReadBoolean(const std::string& key, const std::string& defaultValue);
bool ReadBoolean(const Setting& setting);

// --- values for this process alone ---
// A value that was given on a command line: it outranks the stored one and is never stored.
void SetForProcess(const Setting& setting, const std::string& value);
void ForgetProcessValues();

// --- the remembered servers, numbered from 1; empty for one that was never written ---
std::string ReadServer(int number);
void WriteServer(const std::string& name, int number);

} // namespace quillon::settings
