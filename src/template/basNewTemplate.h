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

#include "template/TemplateLine.h"

namespace quillon::basNewTemplate {

// The scratch files' paths.
std::string TemplateFile();
std::string OutputFile();

// Translates template.txt, writes output.txt and returns the body, each line ended by CR LF. Empty after a
// failure of either file.
std::string ProcessFile();

// Translates lines one after the other. Keeps from line to line whether a tag is open, and the form of the
// statements from its creation on.
class LineTranslator {
  public:
    LineTranslator();

    // Appends the line's statements to the body. Shows a box for a line that closes a tag that was never
    // opened; such a line yields nothing. A line longer than 32,767 characters is reported and yields
    // nothing.
    void Translate(std::string_view line, std::string& body);

  private:
    LineParts Classify(std::string_view line);
    void WriteLiteral(std::string_view text, std::string& body) const;

    const ScriptForm& m_form;
    bool m_isInTag = false;
};

// The body of a template's text, before the second pass.
std::string TranslateText(std::string_view templateText);

// Classifies a line. `isInTag` tells whether a tag is open, before and after. Code keeps its delimiters.
// After a failure the three texts and the flag are as they were.
void ProcessTags(std::string_view line, bool& isInTag, std::string_view& before, std::string_view& after,
                 std::string_view& code);

// The text with each double quote replaced by `" & Chr(34) & "`, in both forms alike.
std::string ProcessQuotes(std::string_view text);

// The form of the script's statements that the session's language asks for.
const ScriptForm& FormInForce();

// Rewrites code in place: delimiters go, "objAudit.Print" becomes an append to strVar, leading blanks go.
// A caller runs it over the whole body once more, so no delimiter is left in literal text either.
void ProcessScript(std::string& text);

} // namespace quillon::basNewTemplate
