// Turns a template into the body of a script: every literal line becomes a statement that appends it to
// strVar, code between "{%" and "%}" is copied through.
//
// The template language is decided line by line from the first "{%", the first "%}" after it, and whether a
// tag was left open by an earlier line; there is no escape, no nesting and no second tag on a line. The form
// of the statements, VBScript's or JScript's, is chosen by the session's g_bolJScript.
//
// The channel of a session's translations is a pair of scratch files in the application folder, template.txt
// and output.txt; they are overwritten at every run and left behind. Not re-entrant. Failures end in the
// trace of the procedure in which they arise.
#pragma once

#include <string>
#include <string_view>

namespace quillon {

class LineReader;

namespace basNewTemplate {

// The scratch files' paths.
std::string TemplateFile();
std::string OutputFile();

// Translates template.txt, writes output.txt and returns the body, each line ended by CR LF. Empty after a
// failure of either file.
std::string ProcessFile();

// The body of the template that `input` holds, without the second pass. Shows a box for a line that closes a
// tag that was never opened; such a line yields nothing. A line longer than 32,767 characters is reported and
// yields nothing.
std::string TranslateLines(LineReader& input);

// Classifies a line. `isInTag` tells whether a tag is open, before and after. The three texts come in empty;
// code keeps its delimiters. They are left empty, and the flag as it was, for a line that cannot be read.
void ProcessTags(std::string_view line, bool& isInTag, std::string_view& before, std::string_view& after,
                 std::string_view& code);

// The text with each double quote replaced by `" & Chr(34) & "`, in both forms alike.
std::string ProcessQuotes(std::string_view text);

// Rewrites code in place: delimiters go, "objAudit.Print" becomes an append to strVar, leading blanks go.
// A caller runs it over the whole body once more, so no delimiter is left in literal text either.
void ProcessScript(std::string& text);

} // namespace basNewTemplate
} // namespace quillon
