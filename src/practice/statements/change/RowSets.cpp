#include "practice/statements/change/RowSets.h"

#include "practice/storage/StoreSession.h"
#include "practice/storage/TableStorage.h"

namespace quillon::practice {

namespace {

std::shared_ptr<const Table> MakeDefinition(Store& store, const Table& model, char role) {
    auto definition = std::make_shared<Table>();
    definition->id = store.NextObjectId();
    definition->database = model.database;
    definition->schema = model.schema;
    definition->nameRule = model.nameRule;
    definition->name = role == 'i' ? "inserted" : "deleted";
    definition->columns = model.columns;
    for (Column& column : definition->columns) {
        // Values are as they are: nothing is made up or refused in a set.
        column.identity.reset();
        column.stored = column.stored || !column.IsComputed();
    }
    definition->rowSet = true;
    definition->temporary = true;
    definition->version = store.NextVersion();
    definition->storage = "temp." + std::string(1, role) + std::to_string(definition->id);
    return definition;
}

std::string InsertSql(const Table& definition) {
    std::string columns = "rowid";
    std::string places = "?1";
    int place = 1;
    for (const Column& column : definition.columns)
        if (column.stored) {
            columns += ", " + ColumnStorage(column.id);
            places += ", ?" + std::to_string(++place);
        }
    return "INSERT INTO " + definition.storage + "(" + columns + ") VALUES(" + places + ")";
}

} // namespace

RowSet::RowSet(StoreSession& store, std::shared_ptr<const Table> definition)
    : m_store(store)
    , m_definition(std::move(definition)) {
    CreateTableStorage(store.Connection(), *m_definition);
    m_insert = Prepared(store.Connection(), InsertSql(*m_definition), true);
    m_clear = Prepared(store.Connection(), "DELETE FROM " + m_definition->storage, true);
}

RowSet::~RowSet() = default;

void RowSet::Clear() {
    m_count = 0;
    try {
        m_clear.Run();
    } catch (const StoreFailure&) {
        // It was made inside of something that was rolled back since.
        DropTableStorage(m_store.Connection(), *m_definition);
        CreateTableStorage(m_store.Connection(), *m_definition);
    }
}

void RowSet::Drop() {
    DropTableStorage(m_store.Connection(), *m_definition);
}

std::unique_ptr<RowSet> RowSets::Make(const Table& model, char role) {
    // What the table looked like before it was altered will not be asked for again.
    std::erase_if(m_free, [&](auto& entry) {
        const bool stale = entry.first.table == model.id && entry.first.version != model.version;
        if (stale)
            for (const std::unique_ptr<RowSet>& set : entry.second)
                set->Drop();
        return stale;
    });
    return std::make_unique<RowSet>(m_store, MakeDefinition(m_store.Shared(), model, role));
}

std::shared_ptr<RowSet> RowSets::Take(const Table& model, char role) {
    const Key key{model.id, model.version, role};
    std::vector<std::unique_ptr<RowSet>>& free = m_free[key];
    std::unique_ptr<RowSet> set;
    if (free.empty())
        set = Make(model, role);
    else {
        set = std::move(free.back());
        free.pop_back();
        set->Clear();
    }
    return {set.release(), [this, key](RowSet* back) { m_free[key].emplace_back(back); }};
}

} // namespace quillon::practice
