#include "practice/statements/change/Targets.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// Under whatever name the statement knows it, the table may be a parameter.
void RequireWritable(Translator& translator, const Table& table) {
    for (const auto& [variable, id] : translator.needs.tableVariables)
        if (id == table.id && translator.Shared().context.FindVariable(variable)->readOnly)
            throw SqlError(10700, {variable});
}

bool HasCheckOption(Translator& translator, const Module& view) {
    const auto tree = translator.Shared().ModuleTree(view);
    const auto& create = tsql::As<tsql::CreateViewStatement>(*tree->statements.front());
    if (create.checkOption)
        return true;
    if (create.query->body->kind != tsql::QueryBodyKind::Select)
        return false;
    const auto& sources = tsql::As<tsql::SelectBody>(*create.query->body).from;
    return std::any_of(sources.begin(), sources.end(), [&](const tsql::TableSourcePtr& source) {
        if (source->kind != tsql::TableSourceKind::Table)
            return false;
        const auto below = std::dynamic_pointer_cast<const Module>(
            translator.FindSourceObject(tsql::As<tsql::NamedTable>(*source).name));
        return below && below->kind == ObjectKind::View && HasCheckOption(translator, *below);
    });
}

} // namespace

void RequireUnchecked(Translator& translator, const Module& view) {
    if (HasCheckOption(translator, view))
        throw SqlError::NotSupported("INSERT and UPDATE through a view WITH CHECK OPTION");
}

Target FindTarget(Translator& translator, const tsql::DmlTarget& target) {
    Target found;
    if (!target.variable.empty()) {
        found.table = translator.VariableTable(target.variable);
        RequireWritable(translator, *found.table);
        found.name = target.variable;
        return found;
    }
    found.name = target.name.Text();
    const auto object = translator.FindSourceObject(target.name);
    found.table = std::dynamic_pointer_cast<const Table>(object);
    const auto module = std::dynamic_pointer_cast<const Module>(object);
    if (module && module->kind == ObjectKind::View)
        found.view = module;
    return found;
}

Target RequireTarget(Translator& translator, const tsql::DmlTarget& target) {
    Target found = FindTarget(translator, target);
    if (!found.table && !found.view) {
        const NameRule& rule = translator.Here().nameRule;
        if (target.name.parts.size() == 1 && translator.Shared().context.CurrentTrigger() != nullptr &&
            (rule.Same(target.name.Last(), "inserted") || rule.Same(target.name.Last(), "deleted")))
            throw SqlError(286);
        const SystemViews* views = translator.Shared().systemViews;
        if (views != nullptr && views->Find(target.name.Schema(), target.name.Last(), rule) != nullptr)
            throw SqlError(259);
        throw SqlError(208, {target.name.Text()});
    }
    return found;
}

std::shared_ptr<const Table> ViewModel(const Module& view) {
    auto model = std::make_shared<Table>();
    model->id = view.id;
    model->database = view.database;
    model->schema = view.schema;
    model->nameRule = view.nameRule;
    model->name = view.name;
    model->kind = ObjectKind::View;
    model->columns = view.columns;
    for (Column& column : model->columns) {
        column.nullable = true;
        model->lastColumnId = std::max(model->lastColumnId, column.id);
    }
    model->version = view.version;
    model->triggers = view.triggers;
    return model;
}

Scalar DefaultValueOf(Translator& translator, const Table& table, const Column& column) {
    std::string text;
    if (const DefaultConstraint* constraint = table.DefaultOf(column.id))
        text = constraint->text;
    else if (column.defaultObject != 0)
        if (const auto bound = std::dynamic_pointer_cast<const TextObject>(
                translator.Shared().store.View()->FindObject(column.defaultObject)))
            text = bound->expression;
    if (text.empty()) {
        Scalar null;
        null.sql = "NULL";
        return translator.ConvertTo(null, column.type);
    }
    const auto parsed = translator.Shared().StoredExpression(text);
    return translator.AssignTo(translator.Value(*parsed->expression, nullptr), column, table.name);
}

namespace {

const Source* FindAmong(const Scope& scope, const tsql::DmlTarget& target, const Target& object) {
    if (!target.variable.empty() || target.name.parts.size() == 1) {
        const std::string& name = target.variable.empty() ? target.name.Last() : target.variable;
        for (const std::unique_ptr<Source>& source : scope.sources)
            if (source->nameRule.Same(source->exposed, name))
                return source.get();
    }
    const Source* found = nullptr;
    for (const std::unique_ptr<Source>& source : scope.sources) {
        const bool same = (object.table && source->table && source->table->id == object.table->id) ||
                          (object.view && source->view && source->view->id == object.view->id);
        if (!same)
            continue;
        if (found != nullptr)
            throw SqlError(8154, {target.name.Text()});
        found = source.get();
    }
    return found;
}

} // namespace

FromTarget BindTarget(Translator& translator, const tsql::DmlTarget& target,
                      const std::vector<tsql::TableSourcePtr>& from, TriggerEvent event, Scope& scope) {
    Engine& engine = translator.Shared();
    FromTarget bound;
    bound.from = translator.From(from, scope);
    const bool common = translator.FindCommonTable(target.name) != nullptr;
    const Target object = common ? Target() : FindTarget(translator, target);
    bound.source = FindAmong(scope, target, object);
    if (bound.source == nullptr) {
        std::string text;
        if (!target.variable.empty())
            text = translator.AddTable(object.table, target.variable, scope);
        else {
            tsql::NamedTable named;
            named.name = target.name;
            text = translator.FromOne(named, scope);
        }
        bound.source = scope.sources.back().get();
        bound.from += (bound.from.empty() ? "" : ", ") + text;
    }
    const Source& source = *bound.source;
    if (source.view) {
        if (InsteadOfTrigger(engine, source.view->triggers, event)) {
            bound.view = source.view;
            bound.table = ViewModel(*source.view);
            return bound;
        }
        if (event != TriggerEvent::Delete)
            RequireUnchecked(translator, *source.view);
        if (!source.hasRowId)
            throw SqlError(4405, {source.view->name});
    }
    if (!source.hasRowId)
        throw SqlError(4405, {source.exposed});
    if (source.table && source.table->rowSet)
        throw SqlError(286);
    bound.table = source.rowTable;
    RequireWritable(translator, *bound.table);
    return bound;
}

namespace {

bool HasTriggers(Engine& engine, const Table& table) {
    for (const TriggerEvent event : {TriggerEvent::Insert, TriggerEvent::Update, TriggerEvent::Delete})
        for (const bool insteadOf : {false, true})
            if (!TriggersFor(engine, table.triggers, event, insteadOf).empty())
                return true;
    return false;
}

// Nothing may act on the rows that OUTPUT INTO stores, or look at them.
void CheckInto(Engine& engine, const tsql::DmlTarget& into) {
    Translator translator(engine);
    const Target target = RequireTarget(translator, into);
    if (!target.table)
        throw SqlError(330, {target.name});
    const Table& table = *target.table;
    if (HasTriggers(engine, table))
        throw SqlError(331, {table.name});
    const auto view = engine.store.View();
    if (!table.foreignKeys.empty())
        throw SqlError(332, {table.name, table.foreignKeys.front().name});
    for (const ObjectId id : table.referencedBy)
        if (const auto child = view->FindTable(id))
            for (const ForeignKey& key : child->foreignKeys)
                if (key.referenced == table.id)
                    throw SqlError(332, {table.name, key.name});
    for (const CheckConstraint& check : table.checks)
        if (!check.disabled)
            throw SqlError(333, {table.name, check.name});
    for (const Column& column : table.columns)
        if (const auto rule = column.ruleObject != 0 ? view->FindObject(column.ruleObject) : nullptr)
            throw SqlError(333, {table.name, rule->name});
}

} // namespace

void CheckOutput(Engine& engine, const tsql::DmlStatement& statement, const Table& target,
                 const std::vector<TriggerEvent>& events) {
    for (const tsql::OutputClause& clause : statement.output) {
        if (clause.hasInto) {
            CheckInto(engine, clause.into);
            continue;
        }
        for (const TriggerEvent event : events)
            if (!TriggersFor(engine, target.triggers, event, false).empty())
                throw SqlError(334, {target.name});
    }
}

std::string TopSql(const tsql::DmlStatement& statement, Translator& translator) {
    const std::int64_t most = translator.Shared().context.Options().rowCount;
    std::string limit = most > 0 ? std::to_string(most) : "";
    if (statement.top) {
        if (statement.top->percent)
            throw SqlError::NotSupported("TOP PERCENT in a statement that changes rows");
        const std::string count =
            translator.RowCountSql(*statement.top->count, nullptr, Translator::RowCount::Top);
        limit = limit.empty() ? count : "min(" + count + ", " + limit + ")";
    }
    return limit.empty() ? "" : " LIMIT " + limit;
}

StoreSession::Written WritesOf(Engine& engine, const tsql::DmlStatement& statement, const Table* target) {
    Translator translator(engine);
    StoreSession::Written writes = target == nullptr ? StoreSession::Writes::Data : WritesOf(*target);
    for (const tsql::OutputClause& clause : statement.output)
        if (clause.hasInto) {
            const Target into = FindTarget(translator, clause.into);
            const StoreSession::Written other =
                into.table ? WritesOf(*into.table) : StoreSession::Written(StoreSession::Writes::Data);
            if (other.what < writes.what)
                writes = other;
        }
    return writes;
}

} // namespace quillon::practice
