#include "template/basLanguages.h"

#include <array>

#include "platform/Editor.h"
#include "shell/Session.h"
#include "template/LanguageWords.h"
#include "template/ScriptLanguage.h"
#include "template/WordList.h"

namespace quillon::basLanguages {
namespace {

constexpr const char* bothQuotes = "\"'";

std::vector<std::string> ScopeTags() {
    return {"{%", "%}", "<%", "%>", "?>", "<?", "<?PHP"};
}

EditorLanguage Named(const char* name) {
    EditorLanguage language;
    language.Name = name;
    return language;
}

EditorLanguage Sql() {
    EditorLanguage language = Named("sqlfull");
    language.SingleLineComment = "--";
    language.MultiLineCommentStart = "/*";
    language.MultiLineCommentEnd = "*/";
    language.StringDelimiters = bothQuotes;
    language.Keywords = words::TransactSql();
    return language;
}

EditorLanguage VBScript() {
    EditorLanguage language = Named("vbscript");
    language.SingleLineComment = "'";
    language.StringDelimiters = "\"";
    language.Keywords = words::VBScript();
    language.TagElementNames = GetTagElementNames();
    language.ScopeTags = ScopeTags();
    return language;
}

EditorLanguage JScript() {
    EditorLanguage language = Named("jscript");
    language.SingleLineComment = "//";
    language.MultiLineCommentStart = "/*";
    language.MultiLineCommentEnd = "*/";
    language.StringDelimiters = bothQuotes;
    language.Terminator = ';';
    language.Keywords = words::JScript();
    language.Operators = words::JScriptOperators();
    language.TagElementNames = GetTagElementNames();
    language.ScopeTags = ScopeTags();
    return language;
}

// Run logs have no comments: the comment's colour is what makes a warning stand out, to the end of its line,
// and a failed trigger from its name to the reason.
EditorLanguage Output() {
    EditorLanguage language = Named("output");
    language.SingleLineComment = "Warning";
    language.MultiLineCommentStart = "Trigger Failed:";
    language.MultiLineCommentEnd = "Error on Creation";
    language.StringDelimiters = bothQuotes;
    language.Keywords = {"Server: Msg", "Trigger Created", "Trigger Dropped"};
    return language;
}

constexpr std::array languages{&Sql, &VBScript, &JScript, &Output};

} // namespace

void RegisterLanguages(bool force) {
    static std::array<bool, languages.size()> isRegistered{};
    for (std::size_t i = 0; i < languages.size(); ++i) {
        if (isRegistered[i] && !force)
            continue;
        Editor::RegisterLanguage(languages[i]());
        isRegistered[i] = true;
    }
}

std::vector<std::string> GetTagElementNames() {
    return WordList(R"(
.ActiveTable .Add .AnsiNULLsStatus .Audit4Delete .Audit4Insert .Audit4Update .Author .Cancel .Cancelled
.Connection_String .Count .CreateDate .Database .Default .Enabled .Fields .Include .IsActive .IsDelete .IsGUID
.IsIdentity .IsInPrimaryKey .IsInsert .IsNullable .IsOneAuditOperationSelected .IsOneFieldSelectedForAudit .IsChecked
.IsSelectedForAudit .IsTimeStamp .IsUpdate .Keys .Language .Languages .Legal .Length .Name .NumericPrecision
.NumericScale .Operations .Ordinal_Position .Owner .Parent .ParentName .ParentOwner .PrimaryKeyFields .Print
.QuotedIdentifierStatus .Remove .Script .ScriptLanguage .Server .SQL_Datatype .SQL_Datatype_And_Length .Tables
.Template .Text .Triggers .TypeOfTrigger .User objAudit .IsFirstAuditedTable
)");
}

} // namespace quillon::basLanguages
