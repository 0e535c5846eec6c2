#include "practice/tsql/ParseNames.h"

#include <charconv>

namespace quillon::practice::tsql {

namespace {

/// What the words of a type mean; the words that may follow the first one are part of the key.
const std::unordered_map<std::string_view, std::string_view>& TypeNames() {
    static const std::unordered_map<std::string_view, std::string_view> table = {
        {"BIT", "bit"},
        {"TINYINT", "tinyint"},
        {"SMALLINT", "smallint"},
        {"INT", "int"},
        {"INTEGER", "int"},
        {"BIGINT", "bigint"},
        {"DECIMAL", "decimal"},
        {"DEC", "decimal"},
        {"NUMERIC", "numeric"},
        {"MONEY", "money"},
        {"SMALLMONEY", "smallmoney"},
        {"FLOAT", "float"},
        {"DOUBLE PRECISION", "float"},
        {"REAL", "real"},
        {"DATE", "date"},
        {"TIME", "time"},
        {"DATETIME", "datetime"},
        {"DATETIME2", "datetime2"},
        {"SMALLDATETIME", "smalldatetime"},
        {"DATETIMEOFFSET", "datetimeoffset"},
        {"CHAR", "char"},
        {"CHARACTER", "char"},
        {"VARCHAR", "varchar"},
        {"CHAR VARYING", "varchar"},
        {"CHARACTER VARYING", "varchar"},
        {"TEXT", "text"},
        {"NCHAR", "nchar"},
        {"NATIONAL CHAR", "nchar"},
        {"NATIONAL CHARACTER", "nchar"},
        {"NVARCHAR", "nvarchar"},
        {"NATIONAL CHAR VARYING", "nvarchar"},
        {"NATIONAL CHARACTER VARYING", "nvarchar"},
        {"NTEXT", "ntext"},
        {"NATIONAL TEXT", "ntext"},
        {"BINARY", "binary"},
        {"VARBINARY", "varbinary"},
        {"BINARY VARYING", "varbinary"},
        {"IMAGE", "image"},
        {"UNIQUEIDENTIFIER", "uniqueidentifier"},
        {"TIMESTAMP", "timestamp"},
        {"ROWVERSION", "timestamp"},
        {"SQL_VARIANT", "sql_variant"},
        {"XML", "xml"},
        {"SYSNAME", "sysname"},
    };
    return table;
}

/// `DOUBLE PRECISION`, `NATIONAL CHARACTER VARYING`, `CHAR VARYING`: the words ahead that make up one type's
/// name.
std::string TakeWordsOfType(ParseState& state) {
    std::string words;
    if (state.Is(Keyword::Double)) {
        words = TakeWord(state) + " ";
        if (!state.Is("PRECISION"))
            state.FailHere();
        return words + TakeWord(state);
    }
    if (state.Is(Keyword::National))
        words = TakeWord(state) + " ";
    words += TakeWord(state);
    if (state.Is(Keyword::Varying))
        words += " " + TakeWord(state);
    return words;
}

int ParseTypeNumber(ParseState& state) {
    if (!state.Is(TokenKind::Integer))
        state.FailHere();
    const Token token = state.Take();
    const std::string digits = state.Value(token);
    int value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc())
        state.FailNear(token);
    return value;
}

void ParseTypeSizes(ParseState& state, DataType& type) {
    if (!state.Accept(Symbol::LeftParen))
        return;
    type.hasLength = true;
    if (state.Accept("MAX")) {
        type.isMax = true;
    } else if (type.name.Last() == "xml" && state.IsName()) {
        state.Refuse("typed xml", state.At());
    } else {
        type.length = ParseTypeNumber(state);
        if (state.Accept(Symbol::Comma)) {
            type.hasScale = true;
            type.scale = ParseTypeNumber(state);
        }
    }
    state.Expect(Symbol::RightParen);
}

bool StartsWordsOfType(const ParseState& state) {
    return state.Is(Keyword::Double) || state.Is(Keyword::National) ||
           (state.Is(TokenKind::Identifier) && state.Is(Keyword::Varying, 1));
}

} // namespace

DataType ParseDataType(ParseState& state) {
    DataType type;
    type.name.position = state.At();
    if (StartsWordsOfType(state)) {
        const Token first = state.Peek();
        const auto found = TypeNames().find(TakeWordsOfType(state));
        if (found == TypeNames().end())
            state.FailNear(first);
        type.name.parts = {std::string(found->second)};
    } else {
        type.name = ParseName(state, 2);
        const auto found = TypeNames().find(UpperWord(type.name.Last()));
        const bool systems = type.name.Schema().empty() || SameWord(type.name.Schema(), "sys");
        if (found != TypeNames().end() && systems)
            type.name.parts = {std::string(found->second)};
    }
    ParseTypeSizes(state, type);
    return type;
}

} // namespace quillon::practice::tsql
