// STRING_SPLIT(text, separator): the parts of a text as rows.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

namespace {

void AppendJson(std::string& json, std::string_view text) {
    json += json.size() > 1 ? ",\"" : "\"";
    for (const char c : text) {
        constexpr const char* digits = "0123456789abcdef";
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20) {
            json += "\\u00";
            json += digits[byte >> 4];
            json += digits[byte & 15U];
            continue;
        }
        if (c == '"' || c == '\\')
            json += '\\';
        json += c;
    }
    json += '"';
}

// As an array, which SQLite reads row by row.
std::string PartsOf(std::string_view text, std::string_view separator) {
    std::string json = "[";
    for (std::size_t from = 0;;) {
        const std::size_t end = text.find(separator, from);
        AppendJson(json, text.substr(from, end == std::string_view::npos ? end : end - from));
        if (end == std::string_view::npos)
            return json + "]";
        from = end + separator.size();
    }
}

} // namespace

QuerySql Translator::StringSplit(const tsql::ExpressionList& arguments, const Scope* outer) {
    if (arguments.size() == 3)
        throw SqlError::NotSupported("the ordinal of STRING_SPLIT");
    if (arguments.size() != 2)
        throw SqlError(arguments.size() < 2 ? 313 : 8144, {"STRING_SPLIT"});
    Scalar text = Value(*arguments[0], outer);
    if (!text.type.IsCharacter())
        text = ConvertTo(std::move(text), NVarChar(4000));
    const Scalar separator = ConvertTo(Value(*arguments[1], outer), NVarChar(4000));
    const SqlType type = text.type;
    Engine& engine = m_engine;
    const std::string name = engine.laterals.Name("STRING_SPLIT " + TypeKey(type), [&] {
        LateralNode node;
        node.columns = 1;
        node.arguments = 2;
        node.release = [](const Prepared&) {};
        node.rows = [&engine, type](std::span<sqlite3_value* const> given) {
            const Datum whole = LoadValue(given[0], type);
            const Datum part = LoadValue(given[1], NVarChar(4000));
            if (part.IsNull() || CountCharacters(part.Text()) != 1)
                throw SqlError(214, {"separator", "nchar(1)/nvarchar(1)"}, 11);
            Prepared rows(engine.Connection(), "SELECT value FROM json_each(?1)");
            rows.Bind(1, whole.IsNull() ? std::string("[]") : PartsOf(whole.Text(), part.Text()));
            return rows;
        };
        return node;
    });
    QuerySql query;
    OutputColumn column;
    column.name = "value";
    column.type = WithCollation(type.IsUnicode() ? NVarChar(type.IsMax() ? maxLength : 4000)
                                                 : VarChar(type.IsMax() ? maxLength : 8000));
    if (type.length > 0)
        column.type.length = type.length;
    column.type.collation = type.collation;
    query.columns.push_back(std::move(column));
    query.sql = "SELECT * FROM " + LateralTables::CallOf(name, {text.sql, separator.sql});
    return query;
}

} // namespace quillon::practice
