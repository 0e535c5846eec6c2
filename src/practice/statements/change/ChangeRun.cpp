#include "practice/statements/Engine.h"
#include "practice/statements/change/RowChange.h"
#include "practice/statements/translate/Translator.h"
#include "practice/storage/TableStorage.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// `left.c1 = right.c5 AND ...`, by the collation of the column on the left.
std::string Match(const std::string& left, const Table& leftTable, const std::vector<int>& leftColumns,
                  const std::string& right, const std::vector<int>& rightColumns) {
    std::string sql;
    for (std::size_t i = 0; i < leftColumns.size(); ++i)
        sql +=
            (i > 0 ? " AND " : "") +
            Collated(left + "." + ColumnStorage(leftColumns[i]), leftTable.FindColumn(leftColumns[i])->type) +
            " = " + right + "." + ColumnStorage(rightColumns[i]);
    return sql;
}

bool Touches(const RowChange& change, const std::vector<int>& columns) {
    return std::any_of(columns.begin(), columns.end(),
                       [&](int id) { return change.Updated()[static_cast<std::size_t>(id)]; });
}

} // namespace

bool ChangeRun::NeedsSets(const Table& table, TriggerEvent event) const {
    if (!TriggersFor(m_engine, table.triggers, event, false).empty())
        return true;
    const bool adds = event != TriggerEvent::Delete && !table.foreignKeys.empty();
    const bool removes = event != TriggerEvent::Insert && !table.referencedBy.empty();
    return adds || removes;
}

RowChange& ChangeRun::Start(std::shared_ptr<const Table> table, TriggerEvent event, const char* verb,
                            bool output) {
    const bool sets = output || NeedsSets(*table, event);
    m_changes.push_back(std::make_unique<RowChange>(m_engine, std::move(table), event, sets, verb));
    return *m_changes.back();
}

void ChangeRun::CheckKeys() {
    // Cascades add to the list while it is walked.
    for (; m_checked < m_changes.size(); ++m_checked) {
        RowChange& change = *m_changes[m_checked];
        if (change.Count() > 0 && change.Inserted()) {
            CheckChildren(change);
            CheckParents(change);
        }
    }
}

void ChangeRun::CheckParents(RowChange& change) {
    if (change.Event() == TriggerEvent::Delete)
        return;
    const Table& table = change.Target();
    for (const ForeignKey& key : table.foreignKeys) {
        if (key.disabled || !Touches(change, key.columns))
            continue;
        const auto parent = m_engine.store.View()->FindTable(key.referenced);
        std::string sql = "SELECT 1 FROM " + change.Inserted()->Definition()->storage + " AS n WHERE ";
        for (const int column : key.columns)
            sql += "n." + ColumnStorage(column) + " IS NOT NULL AND ";
        sql += "NOT EXISTS (SELECT 1 FROM " + RowsOf(*parent) + " AS p WHERE " +
               Match("p", *parent, key.referencedColumns, "n", key.columns) + ")";
        Prepared orphans(m_engine.Connection(), sql);
        if (!m_engine.Step(orphans))
            continue;
        TableWriter& writer = m_engine.Writer(parent);
        const std::string column =
            key.columns.size() == 1 ? ", column '" + parent->FindColumn(key.referencedColumns[0])->name + "'"
                                    : "";
        const std::string database = writer.FullName().substr(0, writer.FullName().find('.'));
        throw SqlError(547,
                       {change.Verb(), parent->id == table.id ? "FOREIGN KEY SAME TABLE" : "FOREIGN KEY",
                        key.name, database, writer.TwoPartName(), column},
                       0);
    }
}

void ChangeRun::CheckChildren(RowChange& change) {
    if (change.Event() == TriggerEvent::Insert)
        return;
    const ObjectId parent = change.Target().id;
    const std::vector<ObjectId> referencing = change.Target().referencedBy;
    for (const ObjectId id : referencing) {
        const auto child = m_engine.store.View()->FindTable(id);
        if (!child)
            continue;
        for (const ForeignKey& key : child->foreignKeys)
            if (key.referenced == parent && !key.disabled)
                Follow(change, *child, key);
    }
}

void ChangeRun::Follow(RowChange& change, const Table& child, const ForeignKey& key) {
    const bool updates = change.Event() == TriggerEvent::Update;
    if (child.hollow)
        return;
    if (updates && !Touches(change, key.referencedColumns))
        return;
    const Table& parent = change.Target();
    const std::string deleted = change.Deleted()->Definition()->storage;
    // Rows that refer to a key that was there before the statement and is not there after it.
    std::string from = " FROM " + deleted + " AS d";
    from +=
        " JOIN " + RowsOf(child) + " AS x ON " + Match("x", child, key.columns, "d", key.referencedColumns);
    if (updates)
        from += " JOIN " + change.Inserted()->Definition()->storage + " AS n ON n.rowid = d.rowid";
    from += " WHERE NOT EXISTS (SELECT 1 FROM " + RowsOf(parent) + " AS p WHERE " +
            Match("p", parent, key.referencedColumns, "d", key.referencedColumns) + ")";
    const ReferenceAction action = updates ? key.onUpdate : key.onDelete;
    const auto shared = m_engine.store.View()->FindTable(child.id);
    if (action != ReferenceAction::NoAction)
        return Cascade(change, shared, key, action, from);
    Prepared left(m_engine.Connection(), "SELECT 1" + from + " LIMIT 1");
    if (!m_engine.Step(left))
        return;
    TableWriter& writer = m_engine.Writer(shared);
    const std::string column =
        key.columns.size() == 1 ? ", column '" + child.FindColumn(key.columns[0])->name + "'" : "";
    throw SqlError(547,
                   {change.Verb(), parent.id == child.id ? "SAME TABLE REFERENCE" : "REFERENCE", key.name,
                    writer.FullName().substr(0, writer.FullName().find('.')), writer.TwoPartName(), column},
                   0);
}

void ChangeRun::Cascade(RowChange& change, const std::shared_ptr<const Table>& child, const ForeignKey& key,
                        ReferenceAction action, const std::string& from) {
    const WantedLock lock{ObjectLock(child->id), LockMode::Exclusive};
    m_engine.store.LockWritten({&lock, 1});
    const bool deletes = change.Event() == TriggerEvent::Delete && action == ReferenceAction::Cascade;
    TableWriter& writer = m_engine.Writer(child);
    std::string list = "SELECT x.rowid";
    Translator translator(m_engine, Surroundings(*child));
    std::vector<std::pair<int, std::string>> values;
    for (std::size_t i = 0; i < key.columns.size() && !deletes; ++i) {
        const Column& column = *child->FindColumn(key.columns[i]);
        std::string value = "NULL";
        if (action == ReferenceAction::Cascade)
            value = "n." + ColumnStorage(key.referencedColumns[i]);
        else if (const DefaultConstraint* constraint = child->DefaultOf(column.id);
                 constraint != nullptr && action == ReferenceAction::SetDefault) {
            const auto parsed = m_engine.StoredExpression(constraint->text);
            value = translator.ConvertTo(translator.Value(*parsed->expression, nullptr), column.type).sql;
        }
        values.emplace_back(writer.PlaceOf(column.id), value);
    }
    std::sort(values.begin(), values.end());
    std::vector<int> places;
    for (const auto& [place, value] : values) {
        places.push_back(place);
        list += ", " + value;
    }
    std::vector<PendingUpdate> updates;
    std::vector<std::int64_t> rowIds;
    {
        Prepared rows(m_engine.Connection(), list + from);
        while (m_engine.Step(rows)) {
            rowIds.push_back(rows.Integer(0));
            updates.push_back({rows.Integer(0), RowOf(rows, 1)});
        }
    }
    if (rowIds.empty())
        return;
    RowChange& next =
        Start(child, deletes ? TriggerEvent::Delete : TriggerEvent::Update, change.Verb(), true);
    if (deletes)
        next.Delete(rowIds);
    else
        next.Update(updates, places);
}

void ChangeRun::FireTriggers() {
    for (auto change = m_changes.rbegin(); change != m_changes.rend(); ++change) {
        const auto triggers = TriggersFor(m_engine, (*change)->Target().triggers, (*change)->Event(), false);
        if (!triggers.empty())
            Fire(m_engine, triggers, (*change)->Frame());
    }
}

std::vector<std::shared_ptr<const Trigger>> TriggersFor(Engine& engine, const std::vector<ObjectId>& triggers,
                                                        TriggerEvent event, bool insteadOf) {
    std::vector<std::shared_ptr<const Trigger>> all;
    for (const ObjectId id : triggers) {
        const auto trigger = engine.store.View()->FindTrigger(id);
        if (trigger && !trigger->disabled && trigger->insteadOf == insteadOf &&
            trigger->For(event) != nullptr)
            all.push_back(trigger);
    }
    const auto rank = [&](const std::shared_ptr<const Trigger>& trigger) {
        const TriggerOrder order = trigger->For(event)->order;
        return order == TriggerOrder::First ? 0 : order == TriggerOrder::None ? 1 : 2;
    };
    std::stable_sort(all.begin(), all.end(),
                     [&](const auto& left, const auto& right) { return rank(left) < rank(right); });
    return all;
}

std::shared_ptr<const Trigger> InsteadOfTrigger(Engine& engine, const std::vector<ObjectId>& triggers,
                                                TriggerEvent event) {
    const auto all = TriggersFor(engine, triggers, event, true);
    // Inside of it the statement means the table itself.
    return all.empty() || engine.context.TriggerDepth(all.front()->id) > 0 ? nullptr : all.front();
}

void Fire(Engine& engine, const std::vector<std::shared_ptr<const Trigger>>& triggers,
          const TriggerFrame& frame) {
    const std::uint64_t transaction = engine.store.TransactionNumber();
    for (const std::shared_ptr<const Trigger>& trigger : triggers) {
        const Database* home = engine.store.View()->FindDatabase(trigger->database);
        // A trigger that changes its own table does not fire itself unless the database says so.
        const bool direct = engine.context.CurrentModule() == trigger->id;
        if (direct && !trigger->insteadOf && (home == nullptr || !home->Option("RECURSIVE_TRIGGERS")))
            continue;
        // Whatever becomes of the trigger, the statement that fired it has begun.
        struct Begun {
            ~Begun() { flag = true; }
            bool& flag;
        } const begun{engine.begun};
        engine.context.RunTrigger(*trigger, frame);
        if (engine.store.TransactionNumber() != transaction)
            throw SqlError(3609);
    }
}

} // namespace quillon::practice
