// User types, old defaults and rules.
#include "practice/statements/define/Definition.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

template <class Object>
std::shared_ptr<Object> NewObject(Engine& engine, const tsql::Name& name, ObjectKind kind) {
    const Home home = HomeFor(engine, name);
    RequireFreeName(engine, home, name.Last());
    auto object = std::make_shared<Object>();
    object->id = engine.store.Shared().NextObjectId();
    object->name = name.Last();
    object->database = home.database;
    object->schema = home.schema;
    object->kind = kind;
    object->created = object->modified = CurrentMoment();
    return object;
}

void Put(Engine& engine, std::shared_ptr<SchemaObject> object) {
    engine.store.Change([&](CatalogueEditor& editor) { editor.Put(object); });
}

} // namespace

void CreateUserType(Engine& engine, const tsql::CreateTypeStatement& statement) {
    if (statement.table) {
        const auto type = NewObject<Table>(engine, statement.name, ObjectKind::TableType);
        TableBuilder(engine, *type).AddAll(*statement.table);
        return Put(engine, type);
    }
    const auto alias = NewObject<AliasType>(engine, statement.name, ObjectKind::AliasType);
    alias->base = Translator(engine).TypeOf(*statement.base, false);
    alias->nullable = statement.nullable.value_or(true);
    Put(engine, alias);
}

void CreateDefaultOrRule(Engine& engine, const tsql::CreateDefaultOrRuleStatement& statement) {
    const auto object = NewObject<TextObject>(engine, statement.name,
                                              statement.rule ? ObjectKind::Rule : ObjectKind::Default);
    const tsql::Span& span = statement.expressionText;
    object->text = statement.source;
    object->expression = engine.context.SourceText().substr(span.begin, span.end - span.begin);
    Put(engine, object);
}

void DropOthers(Engine& engine, const tsql::DropStatement& statement) {
    for (const tsql::Name& name : statement.names) {
        const auto object = Translator(engine).FindSourceObject(name);
        const char* word = statement.what == tsql::DropKind::Type      ? "type"
                           : statement.what == tsql::DropKind::Default ? "default"
                                                                       : "rule";
        const bool fits =
            object && (statement.what == tsql::DropKind::Type
                           ? object->kind == ObjectKind::AliasType || object->kind == ObjectKind::TableType
                       : statement.what == tsql::DropKind::Default ? object->kind == ObjectKind::Default
                                                                   : object->kind == ObjectKind::Rule);
        if (!fits) {
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", word, name.Text()});
        }
        for (const auto& [id, other] : engine.store.View()->FindDatabase(object->database)->objects)
            if (const auto table = std::dynamic_pointer_cast<const Table>(other))
                for (const Column& column : table->columns)
                    if (column.aliasType == object->id || column.defaultObject == object->id ||
                        column.ruleObject == object->id)
                        throw SqlError(3732, {name.Text(), table->name});
        engine.store.Change([&](CatalogueEditor& editor) { editor.Drop(object->id); });
    }
}

} // namespace quillon::practice
