#include "practice/statements/change/TableWriter.h"

#include "practice/statements/change/BoundRules.h"
#include "practice/statements/translate/Translator.h"
#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

#include <sqlite3.h>

namespace quillon::practice {

TableWriter::TableWriter(Engine& engine, std::shared_ptr<const Table> table)
    : m_engine(engine)
    , m_table(std::move(table)) {
    std::string names;
    std::string places;
    for (const Column& column : m_table->columns) {
        if (!column.stored)
            continue;
        if (column.identity)
            m_identityPlace = static_cast<int>(m_columns.size());
        if (column.IsRowVersion())
            m_rowVersionPlace = static_cast<int>(m_columns.size());
        m_columns.push_back(&column);
        names += (names.empty() ? "" : ", ") + ColumnStorage(column.id);
        places += (places.empty() ? "?" : ", ?") + std::to_string(m_columns.size());
    }
    const auto view = engine.store.View();
    const Database* database = view->FindDatabase(m_table->database);
    m_databaseName = database == nullptr ? "tempdb" : database->name;
    const std::string schema(database == nullptr ? "dbo" : database->SchemaName(m_table->schema));
    m_twoPartName = m_table->variable ? m_table->name : schema + "." + m_table->name;
    m_fullName = m_table->variable ? m_table->name : m_databaseName + "." + m_twoPartName;
    if (m_table->hollow)
        return;
    const std::string& storage = m_table->storage;
    sqlite3* connection = engine.Connection();
    const std::string rowIdPlace = "?" + std::to_string(m_columns.size() + 1);
    m_insert =
        Prepared(connection, "INSERT INTO " + storage + "(" + names + ") VALUES(" + places + ")", true);
    m_insertAt = Prepared(connection,
                          "INSERT INTO " + storage + "(" + names + (names.empty() ? "" : ", ") +
                              "rowid) VALUES(" + places + (places.empty() ? "" : ", ") + rowIdPlace + ")",
                          true);
    m_delete = Prepared(connection, "DELETE FROM " + storage + " WHERE rowid = ?", true);
    m_read = Prepared(connection, "SELECT " + names + " FROM " + storage + " WHERE rowid = ?", true);
}

int TableWriter::PlaceOf(int columnId) const {
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i]->id == columnId)
            return static_cast<int>(i);
    return -1;
}

std::int64_t TableWriter::GiveIdentity(StoredRow& row) {
    const Column& column = *m_columns[static_cast<std::size_t>(m_identityPlace)];
    const auto next = m_engine.store.Shared().Identities().Next(m_table->id, *column.identity);
    const auto overflow = [&] { return SqlError(8115, {"IDENTITY", column.type.Name()}); };
    if (!next)
        throw overflow();
    try {
        const SqlType type = column.type;
        const Datum value = Convert(Datum::BigInt(*next), type);
        row[static_cast<std::size_t>(m_identityPlace)] =
            StorageClassOf(type) == StorageClass::Integer && !type.IsDecimal() ? StoredValue(*next)
                                                                               : StoredOf(value, type);
    } catch (const SqlError&) {
        throw overflow();
    }
    if (!m_table->temporary)
        m_engine.store.NoteIdentity(m_table->id);
    return *next;
}

std::optional<std::int64_t> TableWriter::GivenIdentity(const StoredRow& row) const {
    const StoredValue& given = row[static_cast<std::size_t>(m_identityPlace)];
    if (given.IsNull())
        return std::nullopt;
    Prepared echo(m_engine.Connection(), "SELECT ?1");
    given.Bind(echo, 1);
    echo.Step();
    const SqlType& type = m_columns[static_cast<std::size_t>(m_identityPlace)]->type;
    return Convert(LoadValue(echo.Value(0), type), IntType(TypeId::BigInt)).Integer();
}

// Through SQLite itself, which knows the form best; for the rare types of identity columns alone.
StoredValue TableWriter::StoredOf(const Datum& value, const SqlType& type) const {
    Prepared echo(m_engine.Connection(), "SELECT ?1");
    BindDatum(echo.Handle(), 1, value, type);
    echo.Step();
    return StoredValue::Column(echo, 0);
}

void TableWriter::PrepareRules() {
    m_rulesReady = true;
    Translator translator(m_engine, Surroundings(*m_table));
    Scope scope;
    auto source = std::make_unique<Source>();
    source->exposed = m_table->name;
    source->nameRule = source->columnRule = m_table->nameRule;
    source->table = m_table;
    int place = 0;
    for (const Column& column : m_table->columns) {
        SourceColumn one;
        one.name = column.name;
        one.definition = &column;
        one.type = translator.WithCollation(column.type);
        // The row stands in the parameters; a stored computed column is worked out from them again.
        if (column.stored)
            ++place;
        if (!column.IsComputed())
            one.sql = "?" + std::to_string(place);
        source->columns.push_back(std::move(one));
    }
    scope.sources.push_back(std::move(source));
    std::string list;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (!m_columns[i]->IsComputed())
            continue;
        const auto parsed = m_engine.StoredExpression(m_columns[i]->computed);
        const Scalar value =
            translator.ConvertTo(translator.Value(*parsed->expression, &scope), m_columns[i]->type);
        list += (list.empty() ? "" : ", ") + value.sql;
        m_rules.push_back({nullptr, nullptr, static_cast<int>(i)});
    }
    for (const CheckConstraint& check : m_table->checks) {
        if (check.disabled)
            continue;
        const auto parsed = m_engine.StoredExpression(check.text);
        list += (list.empty() ? "" : ", ") + translator.Condition(*parsed->expression, &scope);
        m_rules.push_back({&check, nullptr, -1});
    }
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (const auto rule = std::dynamic_pointer_cast<const TextObject>(
                m_engine.store.View()->FindObject(m_columns[i]->ruleObject))) {
            Scalar value;
            value.sql = "?" + std::to_string(i + 1);
            value.type = translator.WithCollation(m_columns[i]->type);
            list +=
                (list.empty() ? "" : ", ") + RuleCondition(m_engine, Surroundings(*m_table), *rule, value);
            m_rules.push_back({nullptr, m_columns[i], -1});
        }
    if (!list.empty())
        m_ruleRow = Prepared(m_engine.Connection(), "SELECT " + list, true);
}

void TableWriter::Complete(StoredRow& row, const char* verb, bool checks) {
    if (!m_rulesReady)
        PrepareRules();
    if (m_rowVersionPlace >= 0) {
        std::uint64_t number = m_engine.store.NextRowVersion();
        std::string bytes(8, '\0');
        for (std::size_t i = 8; i-- > 0; number >>= 8)
            bytes[i] = static_cast<char>(number & 0xFF);
        row[static_cast<std::size_t>(m_rowVersionPlace)] = StoredValue::Blob(std::move(bytes));
    }
    const Rule* broken = nullptr;
    if (m_ruleRow) {
        const ResetGuard guard(m_ruleRow);
        BindRow(m_ruleRow, row);
        m_engine.Step(m_ruleRow);
        for (std::size_t i = 0; i < m_rules.size(); ++i) {
            const int column = static_cast<int>(i);
            if (m_rules[i].place >= 0)
                row[static_cast<std::size_t>(m_rules[i].place)] = StoredValue::Column(m_ruleRow, column);
            else if (broken == nullptr && !m_ruleRow.IsNull(column) && m_ruleRow.Integer(column) == 0)
                broken = &m_rules[i];
        }
    }
    for (std::size_t i = 0; i < row.size(); ++i)
        if (row[i].IsNull() && !m_columns[i]->nullable)
            throw SqlError(515, {m_columns[i]->name, m_fullName, verb}, 2);
    if (broken != nullptr && checks)
        Refuse(*broken, verb);
}

void TableWriter::Refuse(const Rule& broken, const char* verb) const {
    if (broken.ruled != nullptr)
        throw SqlError(513, {m_databaseName, m_twoPartName, broken.ruled->name}, 0);
    const CheckConstraint& check = *broken.check;
    std::string column;
    if (const Column* of = check.columnId == 0 ? nullptr : m_table->FindColumn(check.columnId))
        column = ", column '" + of->name + "'";
    throw SqlError(547, {verb, "CHECK", check.name, m_databaseName, m_twoPartName, column}, 0);
}

std::string TableWriter::ValueText(const StoredRow& row, int place) const {
    const StoredValue& value = row[static_cast<std::size_t>(place)];
    if (value.IsNull())
        return "<NULL>";
    Prepared echo(m_engine.Connection(), "SELECT ?1");
    value.Bind(echo, 1);
    echo.Step();
    return ToText(LoadColumn(echo.Handle(), 0, m_columns[static_cast<std::size_t>(place)]->type));
}

void TableWriter::RefuseDuplicate(const Index& index, const StoredRow& row) const {
    std::string key;
    for (const IndexKey& part : index.keys)
        key += (key.empty() ? "(" : ", ") + ValueText(row, PlaceOf(part.columnId));
    key += ")";
    if (index.IsConstraint())
        throw SqlError(2627,
                       {index.primaryKey ? "PRIMARY KEY" : "UNIQUE KEY", index.name, m_twoPartName, key});
    throw SqlError(2601, {m_twoPartName, index.name, key});
}

// SQLite names the index by its columns (t5.c1, t5.c2), or, where it is over expressions, by its own name.
const Index* TableWriter::ViolatedIndex(const std::string& sqliteText) const {
    for (const Index& index : m_table->indexes) {
        if (!index.unique)
            continue;
        const std::string suffix = std::to_string(m_table->id) + "_" + std::to_string(index.id) + "'";
        if (sqliteText.ends_with("'g" + suffix) || sqliteText.ends_with("'i" + suffix))
            return &index;
        std::string columns;
        const std::string table = m_table->storage.substr(m_table->storage.find('.') + 1);
        for (const IndexKey& key : index.keys)
            columns += (columns.empty() ? "" : ", ") + table + "." + ColumnStorage(key.columnId);
        if (sqliteText == "UNIQUE constraint failed: " + columns)
            return &index;
    }
    return nullptr;
}

// True when written; false when the row is a duplicate that its index passes over.
bool TableWriter::Write(Prepared& statement, const StoredRow& row) {
    try {
        statement.Run();
        return true;
    } catch (const StoreFailure& failure) {
        if (failure.code != SQLITE_CONSTRAINT_UNIQUE)
            throw;
        const Index* index = ViolatedIndex(failure.what());
        if (index == nullptr)
            throw;
        if (!index->ignoreDuplicates)
            RefuseDuplicate(*index, row);
        return false;
    }
}

std::optional<std::int64_t> TableWriter::Insert(const StoredRow& row) {
    BindRow(m_insert, row);
    if (!Write(m_insert, row))
        return std::nullopt;
    return sqlite3_last_insert_rowid(m_engine.Connection());
}

void TableWriter::InsertAt(std::int64_t rowId, const StoredRow& row) {
    BindRow(m_insertAt, row);
    m_insertAt.Bind(static_cast<int>(row.size()) + 1, rowId);
    Write(m_insertAt, row);
}

void TableWriter::Delete(std::int64_t rowId) {
    m_delete.Bind(1, rowId).Run();
}

void TableWriter::Update(std::int64_t rowId, const StoredRow& row, const std::vector<int>& places) {
    Prepared& update = m_updates[places];
    if (!update) {
        std::string sets;
        for (const int place : places)
            sets += (sets.empty() ? "" : ", ") +
                    ColumnStorage(m_columns[static_cast<std::size_t>(place)]->id) + " = ?" +
                    std::to_string(place + 1);
        update = Prepared(m_engine.Connection(),
                          "UPDATE " + m_table->storage + " SET " + sets + " WHERE rowid = ?" +
                              std::to_string(m_columns.size() + 1),
                          true);
    }
    for (const int place : places)
        row[static_cast<std::size_t>(place)].Bind(update, place + 1);
    update.Bind(static_cast<int>(m_columns.size()) + 1, rowId);
    Write(update, row);
}

bool TableWriter::Read(std::int64_t rowId, StoredRow& row) {
    const ResetGuard guard(m_read);
    if (!m_read.Bind(1, rowId).Step())
        return false;
    row = RowOf(m_read);
    return true;
}

} // namespace quillon::practice
