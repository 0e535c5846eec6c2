#include "practice/catalogue/Metadata.h"

#include "practice/catalogue/MetadataParts.h"
#include "practice/functions/NameParts.h"
#include "practice/values/Unicode.h"

namespace quillon::practice {

std::string Question::Text(std::size_t index) const {
    return Convert(m_arguments[index], TextType(TypeId::NVarChar, maxLength)).Text();
}

std::int64_t Question::Number(std::size_t index) const {
    return Convert(m_arguments[index], SimpleType(TypeId::BigInt)).Integer();
}

const Database& Question::Current() const {
    return *here.store.View()->FindDatabase(here.database);
}

std::optional<Catalogue::Named> Question::Named(std::int64_t id) const {
    if (const auto table = here.store.Temporary().Find(static_cast<ObjectId>(id)))
        return Catalogue::Named{table->name, tempDatabase, dboSchema, {table->id, 0, ObjectKind::Table}};
    if (const auto procedure = here.store.Temporary().FindProcedure(static_cast<ObjectId>(id)))
        return Catalogue::Named{
            procedure->name, tempDatabase, dboSchema, {procedure->id, 0, ObjectKind::Procedure}};
    return here.store.View()->FindNamed(static_cast<ObjectId>(id));
}

std::shared_ptr<const Table> Question::FindTable(std::int64_t id) const {
    if (auto table = here.store.Temporary().Find(static_cast<ObjectId>(id)))
        return table;
    return here.store.View()->FindTable(static_cast<ObjectId>(id));
}

ObjectId Question::ObjectByName(const std::string& name) const {
    auto parts = SplitName(name);
    if (!parts || parts->empty())
        return 0;
    const auto take = [&] {
        std::string part = parts->empty() ? std::string() : parts->back();
        if (!parts->empty())
            parts->pop_back();
        return part;
    };
    const std::string object = take(), schemaName = take(), databaseName = take();
    if (IsPrivateName(object)) {
        const TemporaryTables& temporary = here.store.Temporary();
        if (const auto table = temporary.Find(object))
            return table->id;
        const auto procedure = temporary.FindProcedure(object);
        return procedure ? procedure->id : 0;
    }
    const auto view = here.store.View();
    if (IsSharedTemporaryName(object)) {
        const auto table = view->FindObject(tempDatabase, dboSchema, object);
        return table ? table->id : 0;
    }
    const Database* database =
        databaseName.empty() ? view->FindDatabase(here.database) : view->FindDatabase(databaseName);
    if (database == nullptr)
        return 0;
    const auto find = [&](SchemaId schema) {
        const NamedObject* named = database->FindName(schema, object);
        return named == nullptr ? 0 : named->id;
    };
    if (!schemaName.empty()) {
        const Schema* schema = database->FindSchema(schemaName);
        return schema == nullptr ? 0 : find(schema->id);
    }
    const ObjectId own = find(here.defaultSchema);
    return own != 0 ? own : find(dboSchema);
}

Datum NameDatum(std::string_view text) {
    return Datum::Text(SysName(), std::string(text));
}
Datum Flag(bool value) {
    return Datum::Int(value ? 1 : 0);
}
std::string UpperName(std::string_view text) {
    return unicode::ToUpper(text);
}

std::optional<Datum> AnswerMetadata(std::string_view function, std::span<const Datum> arguments,
                                    const MetadataSurroundings& surroundings) {
    for (const auto family : {NameAnswers(), ObjectAnswers(), PropertyAnswers(), ServerAnswers()})
        for (const MetadataAnswer& row : family)
            if (row.function == function)
                return row.answer(Question(arguments, surroundings));
    return {};
}

std::string_view ProductVersion() {
    return "15.0.2000.5";
}

std::string_view ServerVersionText() {
    return "Quillon Practice Server 15.0.2000.5 (Transact-SQL over SQLite, for practice and tests; not for "
           "production)";
}

} // namespace quillon::practice
