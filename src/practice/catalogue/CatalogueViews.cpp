#include "practice/catalogue/CatalogueViews.h"

#include "practice/catalogue/ViewDefinitions.h"
#include "practice/storage/Catalogue.h"

#include <charconv>
#include <deque>
#include <stdexcept>

namespace quillon::practice {

namespace {

std::string TypeDescription(const std::string& code) {
    return "CASE " + code +
           " WHEN 'U' THEN 'USER_TABLE' WHEN 'V' THEN 'VIEW' WHEN 'P' THEN 'SQL_STORED_PROCEDURE' "
           "WHEN 'FN' THEN 'SQL_SCALAR_FUNCTION' WHEN 'IF' THEN 'SQL_INLINE_TABLE_VALUED_FUNCTION' "
           "WHEN 'TF' THEN 'SQL_TABLE_VALUED_FUNCTION' WHEN 'TR' THEN 'SQL_TRIGGER' WHEN 'D' THEN "
           "'DEFAULT_CONSTRAINT' "
           "WHEN 'R' THEN 'RULE' WHEN 'SN' THEN 'SYNONYM' WHEN 'PK' THEN 'PRIMARY_KEY_CONSTRAINT' "
           "WHEN 'UQ' THEN 'UNIQUE_CONSTRAINT' WHEN 'F' THEN 'FOREIGN_KEY_CONSTRAINT' "
           "WHEN 'C' THEN 'CHECK_CONSTRAINT' WHEN 'TT' THEN 'TYPE_TABLE' END";
}

std::string ObjectColumns(const std::string& alias) {
    std::string text =
        "@.name, @.object_id, NULL, @.schema_id, @.parent_object_id, substr(@.type || ' ', 1, 2), " +
        TypeDescription("@.type") + ", @.create_date, @.modify_date, @.is_ms_shipped, 0, 0";
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at))
        text.replace(at, 1, alias);
    return text;
}

// Precision as the older catalogue counts it: characters for texts, digits for numbers.
std::string OlderPrecision(const std::string& a) {
    return "CASE WHEN " + a + ".system_type_id IN (231, 239) AND " + a + ".max_length > 0 THEN " + a +
           ".max_length / 2 WHEN " + a + ".system_type_id IN (165, 167, 173, 175, 231, 36, 189) THEN " + a +
           ".max_length WHEN " + a + ".system_type_id IN (34, 35) THEN 2147483647 WHEN " + a +
           ".system_type_id = 99 THEN 1073741823 ELSE " + a + ".precision END";
}

template <typename Value>
std::string CaseOfTypes(const std::string& subject, Value value) {
    int count = 0;
    const TypeRow* rows = BuiltInTypes(count);
    std::string text = "CASE " + subject;
    for (int index = 0; index < count; ++index)
        text += " WHEN " + std::to_string(rows[index].systemTypeId) + " THEN " + value(rows[index]);
    return text + " END";
}

std::string UserTypeNumber(const std::string& alias) {
    return "CASE WHEN " + alias + ".user_type_id = " + alias + ".system_type_id THEN " +
           CaseOfTypes(alias + ".system_type_id",
                       [](const TypeRow& row) {
                           return std::to_string(SimpleType(row.id).LegacyTypeNumber() % 100);
                       }) +
           " WHEN " + alias + ".user_type_id = 256 THEN 18 ELSE 100 END";
}

// The type columns of INFORMATION_SCHEMA: name and lengths.
std::string InformationTypeText(const std::string& a) {
    const std::string type = a + ".system_type_id";
    const std::string isText = type + " IN (35, 99, 167, 175, 231, 239, 34, 165, 173, 241)";
    return CaseOfTypes(type, [](const TypeRow& row) { return "'" + std::string(row.name) + "'"; }) +
           ", CASE WHEN " + type + " IN (34, 35) THEN 2147483647 WHEN " + type +
           " = 99 THEN 1073741823 WHEN " + isText + " AND " + type + " IN (231, 239) AND " + a +
           ".max_length > 0 THEN " + a + ".max_length / 2 WHEN " + isText + " THEN " + a +
           ".max_length END, CASE WHEN " + type + " IN (34, 35) THEN 2147483647 WHEN " + type +
           " = 99 THEN 2147483646 WHEN " + isText + " THEN " + a + ".max_length END";
}

// Its columns for numbers and clocks: precision, radix, scale, precision of the clock.
std::string InformationTypeNumber(const std::string& a) {
    const std::string type = a + ".system_type_id";
    return "CASE WHEN " + type + " IN (48, 52, 56, 59, 60, 62, 106, 108, 122, 127) THEN " + a +
           ".precision END, CASE WHEN " + type + " IN (59, 62) THEN 2 WHEN " + type +
           " IN (48, 52, 56, 60, 106, 108, 122, 127) THEN 10 END, CASE WHEN " + type +
           " IN (48, 52, 56, 60, 106, 108, 122, 127) THEN " + a + ".scale END, CASE WHEN " + type +
           " IN (40, 58) THEN 0 WHEN " + type + " IN (41, 42, 43, 61) THEN " + a + ".scale END";
}

// ODBC's type number, name, precision, length in bytes, scale and radix of a column.
std::string OdbcType(const std::string& a) {
    const std::string type = a + ".system_type_id";
    const std::string number = CaseOfTypes(
        type, [](const TypeRow& row) { return std::to_string(SimpleType(row.id).OdbcTypeNumber()); });
    const std::string name =
        CaseOfTypes(type, [](const TypeRow& row) { return "'" + std::string(row.name) + "'"; });
    const std::string sized = CaseOfTypes(type, [](const TypeRow& row) {
        const SqlType plain = SimpleType(row.id);
        const bool isString = (plain.IsCharacter() || plain.IsBinary()) && !plain.IsLegacyLob() &&
                              plain.id != TypeId::RowVersion;
        const bool usesOwn =
            isString || plain.IsDecimal() || (plain.IsMoment() && plain.id != TypeId::DateTime);
        return usesOwn ? std::string("-1") : std::to_string(plain.OdbcColumnSize());
    });
    const std::string precision = "CASE WHEN " + sized + " >= 0 THEN " + sized + " WHEN " + a +
                                  ".max_length < 0 THEN 2147483647 WHEN " + type + " IN (231, 239) THEN " +
                                  a + ".max_length / 2 WHEN " + type + " IN (165, 167, 173, 175) THEN " + a +
                                  ".max_length ELSE " + a + ".precision END";
    const std::string length = "CASE WHEN " + type + " IN (106, 108) THEN " + a + ".precision + 2 WHEN " +
                               type + " IN (60) THEN 21 WHEN " + type + " IN (122) THEN 12 WHEN " + type +
                               " IN (58, 61) THEN 16 WHEN " + type + " IN (34, 35, 99) OR " + a +
                               ".max_length < 0 THEN 2147483647 ELSE " + a + ".max_length END";
    const std::string isExact = type + " IN (48, 52, 56, 60, 106, 108, 122, 127)";
    return number + ", " + name + " || CASE WHEN " + a + ".is_identity THEN ' identity' ELSE '' END, " +
           precision + ", " + length + ", CASE WHEN " + isExact + " OR " + type +
           " IN (58, 61, 41, 42, 43) THEN " + a + ".scale END, CASE WHEN " + isExact + " OR " + type +
           " IN (59, 62) THEN 10 END";
}

// The sixteen columns of a foreign key that the older catalogue has room for, 0 where there are fewer.
std::string ForeignKeyColumns(const std::string& column) {
    std::string text;
    for (int number = 1; number <= 16; ++number)
        text += (number > 1 ? ", " : "") + std::string("coalesce((SELECT c.") + column +
                " FROM q_foreign_key_column c WHERE c.constraint_object_id = f.object_id AND "
                "c.constraint_column_id = " +
                std::to_string(number) + "), 0)";
    return text;
}

std::string Option(const std::string& name) {
    return "(SELECT x.value FROM q_database_option x WHERE x.database_id = d.database_id AND x.name = '" +
           name + "')";
}

std::string LoginPart(const std::string& part) {
    return "json_extract(value, '$." + part + "')";
}

// From text_size to deadlock_priority, as the views of sessions have them.
std::string SessionSettingsColumns() {
    const auto on = [](int bits) {
        return "(" + LoginPart("options") + " & " + std::to_string(bits) + ") = " + std::to_string(bits) +
               ", ";
    };
    constexpr int ansiDefaults = 2 + 4 + 8 + 16 + 32 + 256 + 1024;
    return LoginPart("text_size") + ", " + LoginPart("language") + ", " + LoginPart("date_format") + ", " +
           LoginPart("date_first") + ", " + on(256) + on(64) + on(1024) + on(ansiDefaults) + on(8) + on(16) +
           on(32) + on(4096) + LoginPart("isolation") + ", " + LoginPart("lock_timeout") + ", " +
           LoginPart("deadlock_priority");
}

std::string Expand(const std::string& fragment) {
    const std::size_t colon = fragment.find(':');
    const std::string key = fragment.substr(0, colon);
    const std::string argument = colon == std::string::npos ? "" : fragment.substr(colon + 1);
    if (key == "type_desc")
        return TypeDescription(argument);
    if (key == "object")
        return ObjectColumns(argument);
    if (key == "action")
        return "CASE " + argument +
               " WHEN 0 THEN 'NO_ACTION' WHEN 1 THEN 'CASCADE' WHEN 2 THEN 'SET_NULL' ELSE "
               "'SET_DEFAULT' END";
    if (key == "int") // the stored form of a variant that holds an int
        return "'" + std::string(1, static_cast<char>('A' + static_cast<int>(TypeId::Int))) +
               "10,0,0,;' || " + argument;
    if (key == "references")
        return "WITH r(id, in_database, in_schema, name, is_changed, target) AS (SELECT m.object_id, "
               "nullif(json_extract(n.value, '$[0]'), ''), nullif(json_extract(n.value, '$[1]'), ''), "
               "json_extract(n.value, '$[2]'), json_extract(n.value, '$[3]'), "
               "(SELECT t.object_id FROM q_object t JOIN q_schema s ON s.database_id = t.database_id AND "
               "s.schema_id = t.schema_id WHERE t.database_id = o.database_id AND t.type IN ('U', 'V', 'P', "
               "'FN', 'IF', 'TF', 'SN') AND json_extract(n.value, '$[0]') = '' AND t.name = "
               "json_extract(n.value, '$[2]') COLLATE {order} AND s.name = "
               "coalesce(nullif(json_extract(n.value, '$[1]'), ''), 'dbo') COLLATE {order}) "
               "FROM q_module m JOIN q_object o ON o.object_id = m.object_id AND o.database_id = {db} "
               "JOIN json_each(quillon_references(m.definition, {collation})) n)";
    if (key == "keys")
        return ForeignKeyColumns(argument);
    if (key == "scope")
        return "JOIN q_database d ON d.database_id = o.database_id "
               "JOIN q_schema s ON s.database_id = o.database_id AND s.schema_id = o.schema_id";
    if (key == "type_text")
        return InformationTypeText(argument);
    if (key == "type_number")
        return InformationTypeNumber(argument);
    if (key == "type")
        return InformationTypeText(argument) + ", " + InformationTypeNumber(argument);
    if (key == "odbc")
        return OdbcType(argument);
    if (key == "prec")
        return OlderPrecision(argument);
    if (key == "usertype")
        return UserTypeNumber(argument);
    if (key == "legacy_type")
        return CaseOfTypes(argument, [](const TypeRow& row) {
            return std::to_string(SimpleType(row.id).LegacyTypeNumber());
        });
    if (key == "trigger")
        return "(SELECT t.object_id FROM q_trigger t JOIN q_trigger_event e ON e.object_id = t.object_id "
               "WHERE "
               "t.parent_object_id = o.object_id AND e.type = " +
               argument + " LIMIT 1)";
    if (key == "settings")
        return SessionSettingsColumns();
    if (key == "option")
        return Option(argument);
    if (key == "on")
        return "coalesce(" + Option(argument) + " = 'ON', 0)";
    if (key == "sid")
        return "unhex_bytes(json_extract(value, '$.sid'))";
    if (key == "principal_sid") // dbo is sa; others have the number of their login
        return "CASE WHEN p.principal_id = 1 THEN x'01' WHEN p.sid <> x'' THEN p.sid ELSE (SELECT "
               "unhex_bytes(json_extract(value, '$.sid')) FROM json_each(quillon_logins()) WHERE "
               "json_extract(value, '$.name') = p.login COLLATE CI_AS) END";
    if (key == "login" || key == "session" || key == "lock")
        return LoginPart(argument);
    return {};
}

std::string ExpandAll(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t open = text.find('{');
        result += text.substr(0, open);
        if (open == std::string_view::npos)
            break;
        const std::size_t close = text.find('}', open);
        const std::string fragment(text.substr(open + 1, close - open - 1));
        const std::string expanded = Expand(fragment);
        result += expanded.empty() ? "{" + fragment + "}" : expanded; // {db} is the binder's
        text.remove_prefix(close + 1);
    }
    return result;
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

SqlType TypeOfDeclaration(std::string_view declaration) {
    const std::size_t open = declaration.find('(');
    std::optional<int> length;
    if (open != std::string_view::npos) {
        const std::string_view inside = declaration.substr(open + 1);
        int number = maxLength;
        std::from_chars(inside.data(), inside.data() + inside.size(), number);
        length = number;
    }
    const auto type = TypeFromName(declaration.substr(0, open), length);
    if (!type)
        throw std::logic_error("a system view has a column of an unknown type: " + std::string(declaration));
    return *type;
}

std::vector<SystemColumn> ParseColumns(std::string_view text) {
    std::vector<SystemColumn> columns;
    while (!text.empty()) {
        const std::size_t comma = text.find(',');
        std::string_view item = Trim(text.substr(0, comma));
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
        const bool isNeverNull = item.front() == '!';
        item.remove_prefix(isNeverNull);
        const std::size_t blank = item.find(' ');
        const std::string_view type = Trim(item.substr(blank));
        columns.push_back({item.substr(0, blank), TypeOfDeclaration(type), !isNeverNull, type == "sysname"});
    }
    return columns;
}

// sys.types and systypes come from the table of types, and from the user's own.
struct TypeViews {
    std::string modern, legacy;
};

TypeViews MakeTypeViews() {
    int count = 0;
    const TypeRow* rows = BuiltInTypes(count);
    TypeViews views;
    const auto add = [&](const TypeRow& row, std::string_view name, int userTypeId, int bytes) {
        const SqlType type = SimpleType(row.id);
        const std::string sizes =
            std::to_string(bytes) + ", " + std::to_string(row.precision) + ", " + std::to_string(row.scale);
        const std::string collation = type.IsCharacter() ? "'" + DefaultCollation()->name + "'" : "NULL";
        const std::string union_ = views.modern.empty() ? "" : " UNION ALL ";
        views.modern += union_ + "SELECT '" + std::string(name) + "', " + std::to_string(row.systemTypeId) +
                        ", " + std::to_string(userTypeId) + ", 4, NULL, " + sizes + ", " + collation +
                        ", 1, 0, 0, 0, 0, 0";
        views.legacy += union_ + "SELECT '" + std::string(name) + "', " + std::to_string(row.systemTypeId) +
                        ", 0, " + std::to_string(userTypeId) + ", " + sizes + ", 0, 0, 4, 0, NULL, " +
                        std::to_string(type.LegacyTypeNumber() % 100) + ", " +
                        (type.IsFixedLength() ? "0" : "1") + ", 1, " +
                        std::to_string(type.LegacyTypeNumber()) + ", NULL, " + std::to_string(row.precision) +
                        ", " + std::to_string(row.scale) + ", " + collation;
    };
    for (int index = 0; index < count; ++index) {
        add(rows[index], rows[index].name, rows[index].systemTypeId, rows[index].maxLength);
        if (rows[index].id == TypeId::NVarChar)
            add(rows[index], "sysname", 256, 256);
    }
    views.modern +=
        " UNION ALL SELECT o.name, c.system_type_id, o.object_id, o.schema_id, NULL, c.max_length, "
        "c.precision, "
        "c.scale, c.collation_name, c.is_nullable, 1, 0, c.default_object_id, c.rule_object_id, 0 "
        "FROM q_object o JOIN q_column c ON c.object_id = o.object_id "
        "WHERE o.database_id = {db} AND o.type = 'AT' UNION ALL "
        "SELECT o.name, 243, o.object_id, o.schema_id, NULL, -1, 0, 0, NULL, 0, 1, 0, 0, 0, 1 "
        "FROM q_object o WHERE o.database_id = {db} AND o.type = 'TT'";
    views.legacy +=
        " UNION ALL SELECT o.name, c.system_type_id, 0, o.object_id, c.max_length, c.precision, c.scale, 0, "
        "0, "
        "o.schema_id, 0, NULL, 100, 0, c.is_nullable, 39, NULL, c.precision, c.scale, c.collation_name "
        "FROM q_object o JOIN q_column c ON c.object_id = o.object_id "
        "WHERE o.database_id = {db} AND o.type = 'AT'";
    return views;
}

class Views final : public SystemViews {
  public:
    Views() {
        for (const auto part : {ObjectViews(), ConstraintViews(), SecurityViews(), ServerViews(),
                                SessionViews(), LegacyViews(), LegacyServerViews(), InformationViews()})
            for (const ViewDefinition& definition : part)
                Add(definition);
        static const TypeViews types = MakeTypeViews();
        Add({"sys", "types",
             "!name sysname, !system_type_id tinyint, !user_type_id int, !schema_id int, principal_id int, "
             "!max_length smallint, !precision tinyint, !scale tinyint, collation_name sysname, is_nullable "
             "bit, "
             "!is_user_defined bit, !is_assembly_type bit, !default_object_id int, !rule_object_id int, "
             "!is_table_type bit",
             types.modern});
        Add({"dbo", "systypes",
             "!name sysname, !xtype tinyint, !status tinyint, !xusertype smallint, !length smallint, !xprec "
             "tinyint, "
             "!xscale tinyint, !tdefault int, !domain int, !uid smallint, !reserved smallint, collationid "
             "int, "
             "usertype smallint, variable bit, allownulls bit, !type tinyint, printfmt varchar(255), prec "
             "smallint, "
             "scale tinyint, collation sysname",
             types.legacy});
    }

    const SystemView* Find(std::string_view schema, std::string_view name,
                           const NameRule& rule) const override {
        for (const SystemView& view : m_views) {
            const bool isOlder = view.schema == "dbo";
            const bool fits = schema.empty()
                                  ? isOlder
                                  : rule.Same(schema, view.schema) || (isOlder && rule.Same(schema, "sys"));
            if (fits && rule.Same(name, view.name))
                return &view;
        }
        return nullptr;
    }

    const std::deque<SystemView>& All() const { return m_views; }

  private:
    void Add(const ViewDefinition& definition) {
        const std::string& select = m_selects.emplace_back(ExpandAll(definition.select));
        m_views.push_back({definition.schema, definition.name, ParseColumns(definition.columns), select});
    }

    std::deque<std::string> m_selects; // deques, since the views point into them
    std::deque<SystemView> m_views;
};

const Views& TheViews() {
    static const Views views;
    return views;
}

} // namespace

const SystemViews& CatalogueViews() {
    return TheViews();
}

std::vector<const SystemView*> AllCatalogueViews() {
    std::vector<const SystemView*> all;
    for (const SystemView& view : TheViews().All())
        all.push_back(&view);
    return all;
}

} // namespace quillon::practice
