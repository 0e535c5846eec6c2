// User types, synonyms, old defaults and rules.
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
    Settle(*object, home);
    object->kind = kind;
    object->created = object->modified = CurrentMoment();
    return object;
}

void Put(Engine& engine, std::shared_ptr<SchemaObject> object) {
    engine.store.Change([&](CatalogueEditor& editor) { editor.Put(object); });
}

std::string Bracketed(const std::string& part) {
    std::string text = "[";
    for (const char c : part)
        text.append(c == ']' ? 2 : 1, c);
    return part.empty() ? std::string() : text + "]";
}

struct DropRow {
    tsql::DropKind what;
    const char* word; // in messages
    ObjectKind kind;
    ObjectKind otherKind;
};

const DropRow& RowOf(tsql::DropKind what) {
    static constexpr DropRow rows[] = {
        {tsql::DropKind::Type, "type", ObjectKind::AliasType, ObjectKind::TableType},
        {tsql::DropKind::Synonym, "synonym", ObjectKind::Synonym, ObjectKind::Synonym},
        {tsql::DropKind::Default, "default", ObjectKind::Default, ObjectKind::Default},
        {tsql::DropKind::Rule, "rule", ObjectKind::Rule, ObjectKind::Rule},
    };
    return *std::find_if(std::begin(rows), std::end(rows),
                         [&](const DropRow& row) { return row.what == what; });
}

// Refuses to drop a type that `user` has a column of, and a default or rule that is bound to it.
void RequireUnused(const SchemaObject& object, const std::string& name, const char* word,
                   const SchemaObject& user) {
    const auto isBound = [&](const auto& holder) {
        return holder.defaultObject == object.id || holder.ruleObject == object.id;
    };
    bool bound = false;
    if (const auto* table = dynamic_cast<const Table*>(&user))
        for (const Column& column : table->columns) {
            if (column.aliasType == object.id)
                throw SqlError(3732, {name, table->name});
            bound = bound || isBound(column);
        }
    else if (const auto* type = dynamic_cast<const AliasType*>(&user))
        bound = isBound(*type);
    if (bound)
        throw SqlError(3716, {word, name, "column"});
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

void CreateSynonym(Engine& engine, const tsql::CreateSynonymStatement& statement) {
    const auto synonym = NewObject<Synonym>(engine, statement.name, ObjectKind::Synonym);
    for (const std::string& part : statement.target.parts)
        synonym->target += (synonym->target.empty() ? "" : ".") + Bracketed(part);
    Put(engine, synonym);
}

void DropOthers(Engine& engine, const tsql::DropStatement& statement) {
    const DropRow& row = RowOf(statement.what);
    for (const tsql::Name& name : statement.names) {
        const auto object = Translator(engine).FindNamedObject(name);
        const bool fits = object && (object->kind == row.kind || object->kind == row.otherKind);
        if (!fits) {
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", row.word, name.Text()});
        }
        for (const auto& [id, other] : engine.store.View()->FindDatabase(object->database)->objects)
            RequireUnused(*object, name.Text(), row.word, *other);
        engine.store.Change([&](CatalogueEditor& editor) { editor.Drop(object->id); });
    }
}

} // namespace quillon::practice
