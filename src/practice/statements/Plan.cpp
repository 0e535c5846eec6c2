#include "practice/statements/Plan.h"

#include <algorithm>

#include "practice/values/SqlError.h"
#include "practice/values/StorageForm.h"

namespace quillon::practice {

PlanStamp PlanStamp::Now(Engine& engine) {
    PlanStamp now;
    now.catalogue = engine.store.View()->Version();
    now.temporary = engine.store.Temporary().Version();
    now.database = engine.context.CurrentDatabase();
    now.module = engine.context.CurrentModule();
    if (const TriggerFrame* frame = engine.context.CurrentTrigger()) {
        now.inserted = frame->inserted->id;
        now.deleted = frame->deleted->id;
    }
    const SessionOptions& options = engine.context.Options();
    now.rowCount = options.rowCount;
    now.ansiNulls = options.ansiNulls;
    now.ansiWarnings = options.ansiWarnings;
    now.concatNullYieldsNull = options.concatNullYieldsNull;
    now.identityInsert = options.identityInsert;
    return now;
}

bool Plan::Fits(Engine& engine, const PlanStamp& now) const {
    if (!(stamp == now))
        return false;
    for (const Needed& needed : needs.values) {
        if (needed.kind != Needed::Kind::Variable)
            continue;
        const Variable* variable = engine.context.FindVariable(needed.name);
        if (variable == nullptr || variable->type.id != needed.type.id ||
            variable->type.length != needed.type.length ||
            variable->type.precision != needed.type.precision || variable->type.scale != needed.type.scale)
            return false;
    }
    return std::ranges::all_of(needs.tableVariables, [&engine](const auto& used) {
        const Variable* variable = engine.context.FindVariable(used.first);
        return variable != nullptr && variable->table && variable->table->id == used.second;
    });
}

void Plan::Bind(Engine& engine) {
    int index = 0;
    for (const Needed& needed : needs.values) {
        ++index;
        Datum value;
        if (needed.kind == Needed::Kind::Variable)
            value = engine.context.FindVariable(needed.name)->value;
        else
            value = engine.context.GlobalVariable(needed.name);
        if (value.IsNull())
            statement.BindNull(index);
        else
            BindDatum(statement.Handle(), index, value, needed.type);
    }
}

void StatementScope::End() {
    m_ended = true;
    bool kept = false;
    try {
        kept = m_store.EndStatement(m_mark);
    } catch (...) {
        m_store.UndoStatement(m_mark);
        throw;
    }
    if (!kept)
        throw SqlError(3609);
}

StoreSession::Written WritesOf(const Table& table) {
    if (table.variable)
        return StoreSession::Writes::Variables;
    if (table.temporary)
        return StoreSession::Writes::Temporary;
    return {StoreSession::Writes::Data, {ObjectLock(table.id), LockMode::Exclusive}};
}

void LockReads(Engine& engine, const Needs& needs) {
    const bool keeps = engine.context.KeepsWhatItReads();
    if (!keeps && needs.hinted.empty())
        return;
    const auto view = engine.store.View();
    std::vector<WantedLock> kept;
    std::vector<WantedLock> passing;
    for (const ObjectId id : needs.reads) {
        const auto found = needs.hinted.find(id);
        ReadLock lock = found != needs.hinted.end() ? found->second : ReadLock{LockMode::Shared};
        lock.kept = lock.kept || keeps;
        // Temporary tables are nobody else's.
        if (lock.mode && view->FindTable(id))
            (lock.kept ? kept : passing).push_back({ObjectLock(id), *lock.mode});
    }
    engine.store.LockReads(kept, passing, needs.noWait);
}

} // namespace quillon::practice
