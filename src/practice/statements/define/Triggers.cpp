// CREATE, ALTER, DROP, ENABLE and DISABLE TRIGGER.
#include "practice/statements/define/Definition.h"
#include "practice/statements/define/Modules.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/tsql/ModuleChecks.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr const char* words[] = {"", "INSERT", "UPDATE", "DELETE"}; // by TriggerEvent

// Adds or removes the trigger's id where its parent keeps it.
void Register(CatalogueEditor& editor, ObjectId parent, ObjectId trigger, bool present) {
    const auto object = editor.Now().FindObject(parent);
    const auto change = [&](auto copy) {
        std::erase(copy->triggers, trigger);
        if (present)
            copy->triggers.push_back(trigger);
        editor.Put(copy);
    };
    if (const auto table = std::dynamic_pointer_cast<const Table>(object))
        change(std::make_shared<Table>(*table));
    else if (const auto view = std::dynamic_pointer_cast<const Module>(object))
        change(std::make_shared<Module>(*view));
}

std::vector<TriggerFor> EventsOf(const tsql::CreateTriggerStatement& statement) {
    std::vector<TriggerFor> events;
    if (statement.onInsert)
        events.push_back({TriggerEvent::Insert, TriggerOrder::None});
    if (statement.onUpdate)
        events.push_back({TriggerEvent::Update, TriggerOrder::None});
    if (statement.onDelete)
        events.push_back({TriggerEvent::Delete, TriggerOrder::None});
    return events;
}

const std::vector<ObjectId>& TriggersOf(const SchemaObject& parent) {
    if (const auto* table = dynamic_cast<const Table*>(&parent))
        return table->triggers;
    return dynamic_cast<const Module&>(parent).triggers;
}

// One INSTEAD OF trigger an event.
void RequireOnlyInsteadOf(Engine& engine, const SchemaObject& parent, const Trigger& trigger) {
    for (const ObjectId id : TriggersOf(parent)) {
        const auto other = engine.store.View()->FindTrigger(id);
        if (!other || other->id == trigger.id || !other->insteadOf)
            continue;
        for (const TriggerFor& entry : trigger.events)
            if (other->For(entry.event) != nullptr)
                throw SqlError(2111,
                               {"CREATE", trigger.name, parent.kind == ObjectKind::View ? "view" : "table",
                                parent.name, words[static_cast<std::size_t>(entry.event)]});
    }
}

// 311 where a query of an AFTER trigger reaches for text, ntext or image columns of its row sets. What else
// may be wrong with the query (names that are not there yet) shows when it runs.
void RefuseLargeColumns(Engine& engine, const tsql::CreateTriggerStatement& statement, const Table& parent) {
    const bool any = std::any_of(parent.columns.begin(), parent.columns.end(),
                                 [](const Column& column) { return column.type.IsLegacyLob(); });
    if (!any || statement.timing == tsql::TriggerTiming::InsteadOf)
        return;
    const TriggerFrame frame = PretendedFiring(parent, true);
    Surroundings inside(parent);
    inside.trigger = &frame;
    const auto check = [&](const tsql::Query& query) {
        try {
            Translator(engine, inside).Query(query, nullptr);
        } catch (const SqlError& error) {
            constexpr int outOfReach = 311;
            if (error.number == outOfReach)
                throw;
        }
    };
    tsql::Visit(statement.body, [&](const tsql::Statement& one) {
        if (one.kind == tsql::StatementKind::Select)
            check(tsql::As<tsql::SelectStatement>(one).query);
        else if (one.kind == tsql::StatementKind::Insert && tsql::As<tsql::InsertStatement>(one).query)
            check(*tsql::As<tsql::InsertStatement>(one).query);
    });
}

std::shared_ptr<const Trigger> FindTrigger(Engine& engine, const tsql::Name& name) {
    return std::dynamic_pointer_cast<const Trigger>(Translator(engine).FindSourceObject(name));
}

} // namespace

TriggerFrame PretendedFiring(const Table& parent, bool after) {
    const auto rowSet = [&](const char* name) {
        auto set = std::make_shared<Table>(parent);
        set->name = name;
        set->rowSet = true;
        return set;
    };
    TriggerFrame frame;
    frame.parent = parent.id;
    frame.inserted = rowSet("inserted");
    frame.deleted = rowSet("deleted");
    frame.after = after;
    return frame;
}

void CreateTrigger(Engine& engine, const tsql::CreateTriggerStatement& statement) {
    const auto parent = Translator(engine).FindSourceObject(statement.table);
    const bool fits = parent && (parent->kind == ObjectKind::Table || parent->kind == ObjectKind::View) &&
                      !statement.table.Last().starts_with("#"); // of either kind
    if (!fits || (parent->kind == ObjectKind::View && statement.timing == tsql::TriggerTiming::After))
        throw SqlError(8197, {statement.table.Text()}, 4);
    const Home home{parent->database, parent->schema, parent->nameRule};
    if (parent->database != engine.context.CurrentDatabase())
        throw SqlError(2108, {"create", statement.name.Last(), statement.table.Text()});
    const auto existing = std::dynamic_pointer_cast<const Trigger>(
        engine.store.View()->FindObject(home.database, home.schema, statement.name.Last()));
    auto trigger = std::make_shared<Trigger>();
    if (statement.verb == tsql::ModuleVerb::Create ||
        (!existing && statement.verb != tsql::ModuleVerb::Alter)) {
        RequireFreeName(engine, home, statement.name.Last());
        trigger->id = engine.store.Shared().NextObjectId();
        trigger->name = statement.name.Last();
        Settle(*trigger, home);
        trigger->created = CurrentMoment();
    } else {
        if (!existing)
            throw SqlError(208, {statement.name.Text()}, 6);
        if (existing->parent != parent->id)
            throw SqlError(2110, {statement.name.Text(), statement.table.Text()});
        *trigger = *existing;
    }
    trigger->kind = ObjectKind::Trigger;
    trigger->parent = parent->id;
    trigger->insteadOf = statement.timing == tsql::TriggerTiming::InsteadOf;
    trigger->notForReplication = statement.notForReplication;
    trigger->events = EventsOf(statement);
    FillModule(engine, statement, *trigger);
    if (const auto table = std::dynamic_pointer_cast<const Table>(parent))
        RefuseLargeColumns(engine, statement, *table);
    if (trigger->insteadOf)
        RequireOnlyInsteadOf(engine, *parent, *trigger);
    engine.store.Change([&](CatalogueEditor& editor) {
        editor.Put(trigger);
        if (!existing)
            Register(editor, parent->id, trigger->id, true);
    });
}

void DropTriggers(Engine& engine, const tsql::DropTriggerStatement& statement) {
    for (const tsql::Name& name : statement.names) {
        const auto trigger = FindTrigger(engine, name);
        if (!trigger) {
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", "trigger", name.Text()}, 5);
        }
        engine.store.Change([&](CatalogueEditor& editor) {
            editor.Drop(trigger->id);
            Register(editor, trigger->parent, trigger->id, false);
        });
    }
}

void EnableTriggers(Engine& engine, const tsql::EnableTriggerStatement& statement) {
    const auto parent = Translator(engine).FindSourceObject(statement.table);
    if (!parent || (parent->kind != ObjectKind::Table && parent->kind != ObjectKind::View))
        throw SqlError(1088, {statement.table.Text()});
    std::vector<ObjectId> meant;
    if (statement.all)
        meant = TriggersOf(*parent);
    for (const tsql::Name& name : statement.names) {
        const auto view = engine.store.View();
        const auto& all = TriggersOf(*parent);
        const auto found = std::find_if(all.begin(), all.end(), [&](ObjectId id) {
            return parent->nameRule.Same(view->FindTrigger(id)->name, name.Last());
        });
        if (found == all.end())
            throw SqlError(3701, {statement.enable ? "enable" : "disable", "trigger", name.Text()});
        meant.push_back(*found);
    }
    engine.store.Change([&](CatalogueEditor& editor) {
        for (const ObjectId id : meant) {
            auto after = std::make_shared<Trigger>(*editor.Now().FindTrigger(id));
            after->disabled = !statement.enable;
            editor.Put(after);
        }
    });
}

} // namespace quillon::practice
