// How a database takes in the rows of the catalogue's answers.
#include "adapters/catalogue/Questions.h"
#include "adapters/catalogue/ServerDatabase.h"

namespace quillon::adapters {
namespace {

constexpr int ClusteredIndex = 1;

// The element of this identifier at the end of the list, where the order of the rows puts it; added if it is
// new.
template <class Element>
Element& LastWithId(std::vector<Element>& list, std::int32_t id) {
    if (list.empty() || list.back().id != id)
        list.emplace_back().id = id;
    return list.back();
}

std::int16_t TriggerBit(std::int32_t event) {
    switch (event) {
    case 1: return catalogue::TriggerInsert;
    case 2: return catalogue::TriggerUpdate;
    case 3: return catalogue::TriggerDelete;
    default: return 0;
    }
}

} // namespace

void ServerDatabase::LoadColumns() {
    for (ServerTable& table : m_tables) {
        table.columns.clear();
        table.facts = {};
    }
    std::unordered_map<std::int32_t, TypeFacts> types;
    const auto readType = [&types](AnswerRow& row) {
        TypeFacts& type = types[row.Number()];
        type.name = row.Text();
        type.isUserDefined = row.Flag();
        type.schema = row.Text();
    };
    Ask(questions::Columns,
        {readType, [&](AnswerRow& row) { ReadColumn(row, types); },
         [this](AnswerRow& row) { ReadDeclaredDefault(row); },
         [this](AnswerRow& row) { ReadBoundDefault(row); }, [this](AnswerRow& row) { ReadKeyColumn(row); },
         [this](AnswerRow& row) { ReadForeignKeyColumn(row); }});
}

void ServerDatabase::ReadColumn(AnswerRow& row, const std::unordered_map<std::int32_t, TypeFacts>& types) {
    ServerTable* table = TableOf(row.Number());
    if (table == nullptr)
        return;
    ColumnFacts& facts = table->facts.columns.emplace_back();
    catalogue::Column& column = table->columns.emplace_back();
    facts.id = row.Number();
    column.Name = row.Text();
    if (const auto type = types.find(row.Number()); type != types.end()) {
        column.Datatype = type->second.name;
        facts.isUserType = type->second.isUserDefined;
        facts.typeSchema = type->second.schema;
    }
    column.Length = row.Number();
    column.NumericPrecision = row.Number();
    column.NumericScale = row.Number();
    column.AllowNulls = row.Flag();
    column.Identity = row.Flag();
    column.IsRowGuidCol = row.Flag();
    facts.isComputed = row.Flag();
}

std::optional<ServerDatabase::ColumnPlace> ServerDatabase::PlaceOf(AnswerRow& row) const {
    ServerTable* table = TableOf(row.Number());
    const std::int32_t column = row.Number();
    const auto position = table == nullptr ? std::nullopt : table->PositionOf(column);
    if (!position)
        return std::nullopt;
    return ColumnPlace{table->columns[*position], table->facts.columns[*position]};
}

void ServerDatabase::ReadDeclaredDefault(AnswerRow& row) {
    if (const auto place = PlaceOf(row)) {
        place->facts.defaultName = row.Text();
        place->column.DriDefaultText = row.Text();
    }
}

void ServerDatabase::ReadBoundDefault(AnswerRow& row) {
    if (const auto place = PlaceOf(row))
        place->column.Default = row.Text();
}

void ServerDatabase::ReadKeyColumn(AnswerRow& row) {
    ServerTable* table = TableOf(row.Number());
    if (table == nullptr)
        return;
    KeyFacts& key = LastWithId(table->facts.keys, row.Number());
    key.name = row.Text();
    key.isPrimary = row.Flag();
    key.isClustered = row.Number() == ClusteredIndex;
    const auto position = table->PositionOf(row.Number());
    if (!position)
        return;
    catalogue::Column& column = table->columns[*position];
    key.columns.push_back(Quoted(column.Name) + (row.Flag() ? " DESC" : ""));
    column.Keys.push_back(key.name);
    if (key.isPrimary)
        column.InPrimaryKey = true;
}

void ServerDatabase::ReadForeignKeyColumn(AnswerRow& row) {
    ServerTable* table = TableOf(row.Number());
    if (table == nullptr)
        return;
    ForeignKeyFacts& key = LastWithId(table->facts.foreignKeys, row.Number());
    key.name = row.Text();
    const auto position = table->PositionOf(row.Number());
    const std::string schema = row.Text();
    key.referencedTable = Quoted(schema, row.Text());
    const std::string referenced = Quoted(row.Text());
    key.onDelete = row.Number();
    key.onUpdate = row.Number();
    key.isDisabled = row.Flag();
    if (!position)
        return;
    catalogue::Column& column = table->columns[*position];
    column.Keys.push_back(key.name);
    key.columns.push_back(Quoted(column.Name));
    key.referencedColumns.push_back(referenced);
}

void ServerDatabase::LoadTriggers() {
    for (ServerTable& table : m_tables)
        table.ForgetTriggers();
    std::unordered_map<std::int32_t, ServerTrigger*> byId;
    const auto readTrigger = [&](AnswerRow& row) {
        ServerTable* table = TableOf(row.Number());
        if (table == nullptr)
            return;
        const std::int32_t id = row.Number();
        TriggerFacts facts;
        facts.owner = row.Text();
        facts.name = row.Text();
        facts.created = row.Date();
        facts.isDisabled = row.Flag();
        facts.ansiNulls = row.Flag();
        facts.quotedIdentifier = row.Flag();
        facts.text = row.Text();
        byId.emplace(id, &table->AddTrigger(std::move(facts)));
    };
    const auto readEvent = [&](AnswerRow& row) {
        if (const auto found = byId.find(row.Number()); found != byId.end())
            found->second->AddType(TriggerBit(row.Number()));
    };
    Ask(questions::Triggers, {readTrigger, readEvent});
}

void ServerDatabase::LoadScriptFacts() {
    for (ServerTable& table : m_tables)
        table.facts.checks.clear();
    Ask(questions::ScriptFacts,
        {[this](AnswerRow& row) { ReadIdentity(row); }, [this](AnswerRow& row) { ReadComputation(row); },
         [this](AnswerRow& row) { ReadCollation(row); }, [this](AnswerRow& row) { ReadCheck(row); }});
}

void ServerDatabase::ReadIdentity(AnswerRow& row) {
    if (const auto place = PlaceOf(row)) {
        place->facts.seed = row.Text();
        place->facts.increment = row.Text();
    }
}

void ServerDatabase::ReadComputation(AnswerRow& row) {
    if (const auto place = PlaceOf(row)) {
        place->facts.computation = row.Text();
        place->facts.isPersisted = row.Flag();
    }
}

void ServerDatabase::ReadCollation(AnswerRow& row) {
    if (const auto place = PlaceOf(row))
        place->facts.collation = row.Text();
}

void ServerDatabase::ReadCheck(AnswerRow& row) {
    if (ServerTable* table = TableOf(row.Number())) {
        CheckFacts& check = table->facts.checks.emplace_back();
        check.name = row.Text();
        check.condition = row.Text();
        check.isDisabled = row.Flag();
    }
}

} // namespace quillon::adapters
