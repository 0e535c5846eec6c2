// RowChange: what one statement does to the rows of one table, and ChangeRun: the whole of a statement's
// changes, those that foreign keys bring along included, up to the firing of its triggers.
//
// Order of things: rows are written one by one; then foreign keys are checked and cascades run, as SQL has
// constraints hold at the end of a statement; then triggers fire, those of tables that cascades reached
// first.
#pragma once

#include "practice/statements/ExecutionContext.h"
#include "practice/statements/change/RowSets.h"
#include "practice/statements/change/TableWriter.h"

#include <functional>

namespace quillon::practice {

class Engine;

// A row to update: its id and the new values of the columns at `places`.
struct PendingUpdate {
    std::int64_t rowId = 0;
    StoredRow values;
};

class RowChange {
  public:
    // With `keepSets` the rows before and after are kept (Inserted, Deleted).
    RowChange(Engine& engine, std::shared_ptr<const Table> table, TriggerEvent event, bool keepSets,
              const char* verb);

    TriggerEvent Event() const { return m_event; }
    const Table& Target() const { return m_writer.Definition(); }
    const std::shared_ptr<const Table>& SharedTarget() const { return m_writer.Shared(); }
    TableWriter& Writer() { return m_writer; }
    const char* Verb() const { return m_verb; }

    bool checksRows = true; // by the CHECK constraints, which a bulk load may leave aside

    // False when the row was passed over (IGNORE_DUP_KEY). Identity has been given already.
    bool Insert(StoredRow& row);
    void Delete(const std::vector<std::int64_t>& rowIds);
    // `places` in ascending order; the columns they name count as updated.
    void Update(std::vector<PendingUpdate>& updates, const std::vector<int>& places);
    // For INSTEAD OF triggers: the sets are filled, nothing is written.
    void Pretend(const StoredRow* before, const StoredRow* after);
    void MarkUpdated(int columnId);

    std::int64_t Count() const { return m_count; }
    const std::shared_ptr<RowSet>& Inserted() const { return m_inserted; }
    const std::shared_ptr<RowSet>& Deleted() const { return m_deleted; }
    const std::vector<bool>& Updated() const { return m_updated; }
    TriggerFrame Frame() const;

  private:
    void Keep(const std::shared_ptr<RowSet>& set, std::int64_t number, const StoredRow& row);
    bool TouchesUniqueKey(const std::vector<int>& places) const;

    Engine& m_engine;
    std::shared_ptr<TableWriter> m_shared;
    TableWriter& m_writer;
    TriggerEvent m_event;
    const char* m_verb;
    std::shared_ptr<RowSet> m_inserted;
    std::shared_ptr<RowSet> m_deleted;
    std::vector<bool> m_updated;
    std::int64_t m_count = 0;
};

class ChangeRun {
  public:
    explicit ChangeRun(Engine& engine)
        : m_engine(engine) {}

    // `output` keeps the rows even if nothing else asks for them.
    RowChange& Start(std::shared_ptr<const Table> table, TriggerEvent event, const char* verb, bool output);
    // Foreign keys of all changes started so far, with their cascades (547).
    void CheckKeys();
    // AFTER triggers of all changes; `first` many of them are the statement's own and fire last.
    void FireTriggers();

  private:
    void CheckParents(RowChange& change); // rows that refer must find what they refer to
    void
    CheckChildren(RowChange& change); // rows that are referred to must not go unless a cascade takes care
    void Follow(RowChange& change, const Table& child, const ForeignKey& key);
    void Cascade(RowChange& change, const std::shared_ptr<const Table>& child, const ForeignKey& key,
                 ReferenceAction action, const std::string& from);
    bool NeedsSets(const Table& table, TriggerEvent event) const;

    Engine& m_engine;
    std::vector<std::unique_ptr<RowChange>> m_changes;
    std::size_t m_checked = 0;
};

// The triggers of a table or view for an event that are enabled, in the order in which they fire.
std::vector<std::shared_ptr<const Trigger>> TriggersFor(Engine& engine, const std::vector<ObjectId>& triggers,
                                                        TriggerEvent event, bool insteadOf);
// The INSTEAD OF trigger that takes the statement over; nullptr when there is none or when it is running now.
std::shared_ptr<const Trigger> InsteadOfTrigger(Engine& engine, const std::vector<ObjectId>& triggers,
                                                TriggerEvent event);
// Fires one after the other, each with a frame of its own.
void Fire(Engine& engine, const std::vector<std::shared_ptr<const Trigger>>& triggers,
          const TriggerFrame& frame);

} // namespace quillon::practice
