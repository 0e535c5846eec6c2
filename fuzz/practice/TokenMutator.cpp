#include "TokenMutator.h"

#include "practice/tsql/Lexer.h"
#include "practice/values/SqlError.h"

#include <algorithm>
#include <vector>

namespace quillon::practice::fuzz {

namespace {

using tsql::Token;

constexpr std::string_view words[] = {
    "SELECT",
    "FROM",
    "WHERE",
    "GROUP BY",
    "HAVING",
    "ORDER BY",
    "TOP 3",
    "DISTINCT",
    "JOIN",
    "LEFT JOIN",
    "ON",
    "CROSS APPLY",
    "UNION ALL",
    "EXCEPT",
    "INTERSECT",
    "OVER ()",
    "PARTITION BY",
    "INSERT",
    "VALUES",
    "DEFAULT VALUES",
    "UPDATE",
    "SET",
    "DELETE",
    "MERGE",
    "USING",
    "WHEN MATCHED THEN",
    "OUTPUT inserted.*",
    "INTO",
    "TRUNCATE TABLE",
    "CREATE",
    "ALTER",
    "DROP",
    "TABLE",
    "VIEW",
    "PROCEDURE",
    "FUNCTION",
    "TRIGGER",
    "INDEX",
    "SCHEMA",
    "DATABASE",
    "AFTER INSERT",
    "INSTEAD OF DELETE",
    "AS",
    "BEGIN",
    "END",
    "IF",
    "ELSE",
    "WHILE",
    "BREAK",
    "CONTINUE",
    "RETURN",
    "GOTO a",
    "a:",
    "DECLARE",
    "@i",
    "@t",
    "@@ROWCOUNT",
    "@@TRANCOUNT",
    "int",
    "varchar(max)",
    "nvarchar(10)",
    "decimal(38, 10)",
    "datetime",
    "datetimeoffset",
    "money",
    "float",
    "uniqueidentifier",
    "sql_variant",
    "varbinary(8)",
    "text",
    "bit",
    "xml",
    "NULL",
    "NOT",
    "IN",
    "EXISTS",
    "BETWEEN",
    "LIKE",
    "IS",
    "CASE WHEN",
    "THEN",
    "CAST(",
    "CONVERT(",
    "COUNT(*)",
    "SUM(",
    "ROW_NUMBER()",
    "t",
    "u",
    "v",
    "a",
    "b",
    "c",
    "dbo.",
    "#t",
    "sys.objects",
    "inserted",
    "deleted",
    "(",
    ")",
    ",",
    ";",
    "=",
    "<",
    "+",
    "-",
    "*",
    "/",
    "%",
    "0",
    "1",
    "-1",
    "2147483648",
    "1e308",
    "'x'",
    "N'ж'",
    "''",
    "0xFF",
    "'2020-02-30'",
    "EXEC",
    "sp_executesql",
    "PRINT",
    "RAISERROR",
    "THROW",
    "TRY",
    "CATCH",
    "BEGIN TRAN",
};

std::size_t Below(std::minstd_rand& random, std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

/// Without the end mark; empty where the text has no words or cannot be cut.
std::vector<Token> Words(std::string_view text) {
    try {
        std::vector<Token> tokens = tsql::Tokenize(text);
        tokens.pop_back();
        return tokens;
    } catch (const SqlError&) {
        return {};
    }
}

std::string_view TextOf(std::string_view text, const Token& token) {
    return text.substr(token.begin, token.end - token.begin);
}

std::string AnyWord(std::string_view other, std::minstd_rand& random) {
    const std::vector<Token> tokens = Words(other);
    if (tokens.empty() || Below(random, 2) == 0)
        return std::string(words[Below(random, std::size(words))]);
    return std::string(TextOf(other, tokens[Below(random, tokens.size())]));
}

std::string Replaced(std::string_view text, std::size_t begin, std::size_t end, std::string_view piece) {
    return std::string(text.substr(0, begin)).append(piece).append(text.substr(end));
}

} // namespace

std::string ChangeOneWord(std::string_view text, std::string_view other, std::minstd_rand& random) {
    const std::vector<Token> tokens = Words(text);
    if (tokens.empty())
        return std::string(text);
    const std::size_t at = Below(random, tokens.size());
    const Token& token = tokens[at];
    const std::string own(TextOf(text, token));
    switch (Below(random, 5)) {
    case 0: return Replaced(text, token.begin, token.end, "");
    case 1: return Replaced(text, token.end, token.end, " " + own);
    case 2: {
        const Token& next = tokens[std::min(at + 1, tokens.size() - 1)];
        return Replaced(text, token.begin, next.end, std::string(TextOf(text, next)) + " " + own);
    }
    case 3: return Replaced(text, token.begin, token.end, AnyWord(other, random));
    default: return Replaced(text, token.begin, token.begin, AnyWord(other, random) + " ");
    }
}

std::string Splice(std::string_view text, std::string_view other, std::minstd_rand& random) {
    const std::vector<Token> first = Words(text);
    const std::vector<Token> second = Words(other);
    if (first.empty() || second.empty())
        return std::string(text);
    const std::size_t end = first[Below(random, first.size())].end;
    const std::size_t begin = second[Below(random, second.size())].begin;
    return std::string(text.substr(0, end)).append("\n").append(other.substr(begin));
}

} // namespace quillon::practice::fuzz
