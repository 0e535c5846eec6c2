// Plans: the prepared form of a statement or expression, kept with its node of the tree for as long as what
// it was made from stays the same.
#pragma once

#include "practice/statements/translate/Translator.h"

namespace quillon::practice {

// What a plan depends on besides its text.
struct PlanStamp {
    std::uint64_t catalogue = 0;
    std::uint64_t temporary = 0;
    DatabaseId database = 0;
    ObjectId module = 0;
    ObjectId inserted = 0; // the row sets of the trigger that runs
    ObjectId deleted = 0;
    std::int64_t rowCount = 0;
    bool ansiNulls = true;
    bool ansiWarnings = true;
    bool concatNullYieldsNull = true;
    ObjectId identityInsert = 0;
    bool operator==(const PlanStamp&) const = default;

    static PlanStamp Now(Engine& engine);
};

class Plan : public tsql::Attachment {
  public:
    PlanStamp stamp;
    Needs needs;
    Prepared statement;
    std::vector<OutputColumn> columns;
    bool inUse = false;
    StoreSession::Written writes = StoreSession::Writes::Data; // of a plan that changes rows

    bool Fits(Engine& engine, const PlanStamp& now) const;
    // Puts the values of variables in place.
    void Bind(Engine& engine);
};

// Has a plan for as long as it lives, and gives it back ready for its next run.
template <class PlanType>
class PlanUse {
  public:
    // Takes the plan in `slot`, or has one made; one that runs already (recursion) is left alone.
    template <class Make>
    PlanUse(Engine& engine, std::unique_ptr<tsql::Attachment>& slot, Make make) {
        const PlanStamp now = PlanStamp::Now(engine);
        auto* kept = dynamic_cast<PlanType*>(slot.get());
        if (kept == nullptr || (!kept->inUse && !kept->Fits(engine, now))) {
            std::unique_ptr<PlanType> made = make();
            made->stamp = now;
            kept = made.get();
            slot = std::move(made);
        } else if (kept->inUse) {
            m_own = make();
            m_own->stamp = now;
            kept = m_own.get();
        }
        m_plan = kept;
        m_plan->inUse = true;
    }
    ~PlanUse() {
        m_plan->statement.Reset();
        m_plan->inUse = false;
    }
    PlanUse(const PlanUse&) = delete;
    PlanUse& operator=(const PlanUse&) = delete;

    PlanType* operator->() const { return m_plan; }
    PlanType& operator*() const { return *m_plan; }

  private:
    PlanType* m_plan = nullptr;
    std::unique_ptr<PlanType> m_own;
};

// What a statement writes, from the plan that it has already or found out anew.
template <class FindOut>
StoreSession::Written KnownWrites(Engine& engine, const std::unique_ptr<tsql::Attachment>& slot,
                                  FindOut findOut) {
    const auto* kept = dynamic_cast<const Plan*>(slot.get());
    return kept != nullptr && kept->Fits(engine, PlanStamp::Now(engine)) ? kept->writes : findOut();
}

// A statement that writes: everything or nothing.
class StatementScope {
  public:
    StatementScope(Engine& engine, const StoreSession::Written& writes)
        : m_store(engine.store)
        , m_mark(engine.store.BeginStatement(writes)) {}
    ~StatementScope() {
        if (!m_ended)
            m_store.UndoStatement(m_mark);
    }
    StatementScope(const StatementScope&) = delete;
    StatementScope& operator=(const StatementScope&) = delete;
    // 3609 when a trigger has ended the transaction.
    void End();

  private:
    StoreSession& m_store;
    StoreSession::StatementMark m_mark;
    bool m_ended = false;
};

StoreSession::Written WritesOf(const Table& table);

// Locks what a plan is about to read, as its hints and the isolation level ask.
void LockReads(Engine& engine, const Needs& needs);

} // namespace quillon::practice
