#include "practice/statements/change/RowChange.h"

#include "practice/statements/Engine.h"
#include "practice/statements/define/Tables.h"
#include "practice/values/SqlError.h"

#include <unordered_set>

namespace quillon::practice {

RowChange::RowChange(Engine& engine, std::shared_ptr<const Table> table, TriggerEvent event, bool keepSets,
                     const char* verb)
    : m_engine(engine)
    , m_shared(engine.SharedWriter(WithStorage(engine, table)))
    , m_writer(*m_shared)
    , m_event(event)
    , m_verb(verb)
    , m_updated(static_cast<std::size_t>(table->lastColumnId) + 1, event == TriggerEvent::Insert) {
    m_updated[0] = false;
    if (!table->temporary)
        RequireWritable(engine, table->database);
    if (keepSets) {
        m_inserted = engine.rowSets.Take(*table, 'i');
        m_deleted = engine.rowSets.Take(*table, 'd');
    }
}

void RowChange::Keep(const std::shared_ptr<RowSet>& set, std::int64_t number, const StoredRow& row) {
    if (!set)
        return;
    Prepared& insert = set->Insert();
    insert.Bind(1, number);
    BindRow(insert, row, 2);
    insert.Run();
    set->Counted();
}

bool RowChange::Insert(StoredRow& row) {
    m_writer.Complete(row, m_verb, checksRows);
    if (!m_writer.Insert(row))
        return false;
    Keep(m_inserted, ++m_count, row);
    return true;
}

void RowChange::Delete(const std::vector<std::int64_t>& rowIds) {
    std::unordered_set<std::int64_t> seen;
    StoredRow row;
    for (const std::int64_t id : rowIds) {
        if (!seen.insert(id).second)
            continue;
        if (m_deleted) {
            if (!m_writer.Read(id, row))
                continue;
            Keep(m_deleted, m_count + 1, row);
        }
        m_writer.Delete(id);
        ++m_count;
    }
}

bool RowChange::TouchesUniqueKey(const std::vector<int>& places) const {
    const auto touched = [&](const IndexKey& key) {
        const int place = m_writer.PlaceOf(key.columnId);
        return std::find(places.begin(), places.end(), place) != places.end();
    };
    for (const Index& index : Target().indexes)
        if (index.unique && std::any_of(index.keys.begin(), index.keys.end(), touched))
            return true;
    return false;
}

void RowChange::Update(std::vector<PendingUpdate>& updates, const std::vector<int>& places) {
    const std::vector<const Column*>& columns = m_writer.StoredColumns();
    std::vector<int> written = places;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i]->IsComputed() || columns[i]->IsRowVersion())
            written.push_back(static_cast<int>(i));
    std::sort(written.begin(), written.end());
    written.erase(std::unique(written.begin(), written.end()), written.end());
    for (const int place : written)
        MarkUpdated(columns[static_cast<std::size_t>(place)]->id);
    // A key may take the value that another row of the statement gives up: then all old rows go before the
    // new ones come.
    const bool together = TouchesUniqueKey(written) && updates.size() > 1;
    std::unordered_set<std::int64_t> seen;
    for (PendingUpdate& update : updates) {
        StoredRow row;
        if (!seen.insert(update.rowId).second || !m_writer.Read(update.rowId, row)) {
            update.rowId = 0;
            continue;
        }
        Keep(m_deleted, ++m_count, row);
        for (std::size_t i = 0; i < places.size(); ++i)
            row[static_cast<std::size_t>(places[i])] = std::move(update.values[i]);
        m_writer.Complete(row, m_verb);
        Keep(m_inserted, m_count, row);
        if (together) {
            m_writer.Delete(update.rowId);
            update.values = std::move(row);
        } else
            m_writer.Update(update.rowId, row, written);
    }
    if (together)
        for (const PendingUpdate& update : updates)
            if (update.rowId != 0)
                m_writer.InsertAt(update.rowId, update.values);
}

void RowChange::Pretend(const StoredRow* before, const StoredRow* after) {
    ++m_count;
    if (before != nullptr)
        Keep(m_deleted, m_count, *before);
    if (after != nullptr)
        Keep(m_inserted, m_count, *after);
}

void RowChange::MarkUpdated(int columnId) {
    m_updated[static_cast<std::size_t>(columnId)] = true;
}

TriggerFrame RowChange::Frame() const {
    TriggerFrame frame;
    frame.event = m_event;
    frame.parent = Target().id;
    frame.inserted = m_inserted->Definition();
    frame.deleted = m_deleted->Definition();
    frame.updated = m_updated;
    frame.after = true;
    frame.rowCount = m_count;
    return frame;
}

} // namespace quillon::practice
