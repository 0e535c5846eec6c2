// The CREATE TABLE of a table that stands on a server.
#include "adapters/catalogue/CatalogueLink.h"
#include "adapters/catalogue/ServerTable.h"

namespace quillon::adapters {
namespace {

constexpr const char* LineEnd = "\r\n";

bool IsOneOf(const std::string& type, std::initializer_list<const char*> types) {
    return std::ranges::any_of(types, [&](const char* each) { return type == each; });
}

// The length as a declaration has it: in characters, "max" for the types without a bound.
std::string LengthOf(const catalogue::Column& column, int bytesPerCharacter) {
    return "(" + (column.Length < 0 ? "max" : std::to_string(column.Length / bytesPerCharacter)) + ")";
}

std::string TypeOf(const catalogue::Column& column, const ColumnFacts& facts) {
    const std::string& type = column.Datatype;
    if (facts.isUserType)
        return Quoted(facts.typeSchema, type);
    if (IsOneOf(type, {"char", "varchar", "binary", "varbinary"}))
        return Quoted(type) + LengthOf(column, 1);
    if (IsOneOf(type, {"nchar", "nvarchar"}))
        return Quoted(type) + LengthOf(column, 2);
    if (IsOneOf(type, {"decimal", "numeric"}))
        return Quoted(type) + "(" + std::to_string(column.NumericPrecision) + ", " +
               std::to_string(column.NumericScale) + ")";
    if (IsOneOf(type, {"datetime2", "datetimeoffset", "time"}))
        return Quoted(type) + "(" + std::to_string(column.NumericScale) + ")";
    return Quoted(type);
}

std::string ComputedColumn(const catalogue::Column& column, const ColumnFacts& facts) {
    const std::string persisted = facts.isPersisted ? " PERSISTED" : "";
    // A computed column takes its nullability from its text; only a persisted one may narrow it.
    const std::string nullability = facts.isPersisted && !column.AllowNulls ? " NOT NULL" : "";
    return Quoted(column.Name) + " AS " + facts.computation + persisted + nullability;
}

std::string DefaultOf(const catalogue::Column& column, const ColumnFacts& facts) {
    if (column.DriDefaultText.empty())
        return {};
    return " CONSTRAINT " + Quoted(facts.defaultName) + " DEFAULT " + column.DriDefaultText;
}

std::string ColumnLine(const catalogue::Column& column, const ColumnFacts& facts) {
    if (facts.isComputed)
        return ComputedColumn(column, facts);
    std::string line = Quoted(column.Name) + " " + TypeOf(column, facts);
    if (!facts.collation.empty() && !facts.isUserType && column.Datatype != "sysname")
        line += " COLLATE " + facts.collation;
    if (column.Identity)
        line += " IDENTITY(" + facts.seed + ", " + facts.increment + ")";
    if (column.IsRowGuidCol)
        line += " ROWGUIDCOL";
    return line + (column.AllowNulls ? " NULL" : " NOT NULL") + DefaultOf(column, facts);
}

std::string Joined(const std::vector<std::string>& names) {
    std::string joined;
    for (const auto& name : names)
        joined += (joined.empty() ? "" : ", ") + name;
    return joined;
}

std::string KeyLine(const KeyFacts& key) {
    return "CONSTRAINT " + Quoted(key.name) + (key.isPrimary ? " PRIMARY KEY" : " UNIQUE") +
           (key.isClustered ? " CLUSTERED (" : " NONCLUSTERED (") + Joined(key.columns) + ")";
}

std::string ActionOf(const char* event, std::int32_t action) {
    static constexpr const char* actions[] = {"", " CASCADE", " SET NULL", " SET DEFAULT"};
    if (action < 1 || action > 3)
        return {};
    return std::string(" ON ") + event + actions[action];
}

std::string ForeignKeyLine(const ForeignKeyFacts& key) {
    return "CONSTRAINT " + Quoted(key.name) + " FOREIGN KEY (" + Joined(key.columns) + ") REFERENCES " +
           key.referencedTable + " (" + Joined(key.referencedColumns) + ")" +
           ActionOf("DELETE", key.onDelete) + ActionOf("UPDATE", key.onUpdate);
}

std::string CheckLine(const CheckFacts& check) {
    return "CONSTRAINT " + Quoted(check.name) + " CHECK " + check.condition;
}

// What is switched off on the server is switched off in the copy.
std::string DisablingScript(const std::string& table, const TableFacts& facts) {
    std::string script;
    const auto disable = [&](const auto& constraint) {
        if (constraint.isDisabled)
            script += "ALTER TABLE " + table + " NOCHECK CONSTRAINT " + Quoted(constraint.name) + LineEnd +
                      "GO" + LineEnd;
    };
    std::ranges::for_each(facts.foreignKeys, disable);
    std::ranges::for_each(facts.checks, disable);
    return script;
}

} // namespace

std::string CreateTableScript(const std::string& owner, const std::string& name,
                              const std::vector<catalogue::Column>& columns, const TableFacts& facts) {
    const std::string table = Quoted(owner, name);
    std::string script = "CREATE TABLE " + table + " (";
    const char* separator = LineEnd;
    const auto add = [&](const std::string& line) {
        script += separator + ("\t" + line);
        separator = ",\r\n";
    };
    for (std::size_t index = 0; index < columns.size(); ++index)
        add(ColumnLine(columns[index], facts.columns.at(index)));
    for (const KeyFacts& key : facts.keys)
        add(KeyLine(key));
    for (const ForeignKeyFacts& key : facts.foreignKeys)
        add(ForeignKeyLine(key));
    for (const CheckFacts& check : facts.checks)
        add(CheckLine(check));
    return script + LineEnd + ")" + LineEnd + "GO" + LineEnd + DisablingScript(table, facts);
}

} // namespace quillon::adapters
