// From text to tree: the entry to this room.
//
// A text is parsed as a whole before anything of it runs, so a fault anywhere in a batch stops all of it.
// What the server does not do is refused here, by name and line, with 49999. Names are not looked up: that
// needs a catalogue.
#pragma once

#include "practice/tsql/Tree.h"
#include "practice/values/SqlError.h"

#include <span>

namespace quillon::practice::tsql {

/// All faults of a text: the first is the error itself.
class SyntaxErrors : public SqlError {
  public:
    explicit SyntaxErrors(std::vector<SqlError> errors);
    /// The second and later ones.
    const std::vector<SqlError>& Others() const { return m_others; }

  private:
    std::vector<SqlError> m_others;
};

struct ParseOptions {
    bool quotedIdentifiers = true;      // SET QUOTED_IDENTIFIER when the text arrives
    std::vector<std::string> variables; // declared outside of the text, with their @, of any kind
};

/// A batch. Throws SyntaxErrors with lines: 102, 105, 111, 137, 156, 191 and the others that need no
/// catalogue.
std::unique_ptr<Batch> ParseBatch(std::string text, const ParseOptions& options = {});

/// A list of parameters as sp_executesql takes it: `@a int, @b nvarchar(20) OUTPUT`. Empty for a blank text.
struct ParsedParameters {
    std::string source;
    std::vector<Parameter> parameters;
};
ParsedParameters ParseParameters(std::string text);

/// An expression that the catalogue keeps: a default, a check's condition, a computed column.
struct ParsedExpression {
    std::string source;
    ExpressionPtr expression;
};
std::unique_ptr<ParsedExpression> ParseStoredExpression(std::string text, const ParseOptions& options = {});

/// A name as procedures and functions take it in a text: `db..[my table]`. Nothing when it is none.
std::optional<Name> ParseObjectName(std::string_view text);

/// A type as a text names it: `decimal(10, 2)`. Nothing when it is none.
std::optional<DataType> ParseTypeText(std::string_view text);

/// Whether a name needs brackets in a script: it is reserved or is made of other characters than names have.
bool NeedsBrackets(std::string_view name);

} // namespace quillon::practice::tsql
