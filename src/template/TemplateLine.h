// The template language's rules for one line and for the texts of its parts, without files, boxes or trace.
//
// Used by: basNewTemplate, whose procedures are the doors to these and add what the outside asks for.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

// What a line consists of. Views into the line; code keeps its delimiters.
struct LineParts {
    std::string_view before;
    std::string_view code;
    std::string_view after;
    bool isStrayClose = false; // closes a tag that was never opened: the line means nothing
};

// Finds the parts by the first "{%" and the first "%}" behind it. `isInTag` tells whether an earlier line
// left a tag open, and afterwards whether this one does.
LineParts PartsOf(std::string_view line, bool& isInTag) noexcept;

// How the statements of a script read in its language.
struct ScriptForm {
    std::string_view beforeLiteral; // up to and with the opening quote
    std::string_view lineBreak;     // a whole statement with its line end
    std::string_view print;         // what an output call becomes
};
extern const ScriptForm VBScriptForm;
extern const ScriptForm JScriptForm;

// Appends a literal's text with each double quote as an expression of its own.
void AppendQuoted(std::string& body, std::string_view literal);

// Appends a line's share of code, rewritten as RewriteCode does it, and CR LF; nothing if only blanks are
// left.
void AppendCode(std::string& body, std::string_view code, const ScriptForm& form);

// Rewrites text in place: every "%}" goes, then every "{%", then output calls become appends to strVar. One
// pass each: what a removal brings together is not looked at again. RewriteCode also takes leading blanks
// off.
void RewriteTagsAndCalls(std::string& text, const ScriptForm& form);
void RewriteCode(std::string& text, const ScriptForm& form);

// Nothing but blanks, nothing but blanks and tabs.
bool IsBlank(std::string_view text) noexcept;
bool IsBlankWithoutTabs(std::string_view text) noexcept;

} // namespace quillon
