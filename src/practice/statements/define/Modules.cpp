// CREATE, ALTER and DROP of views, procedures and functions.
#include "practice/statements/define/Modules.h"

#include "practice/statements/define/Definition.h"
#include "practice/statements/define/SchemaBinding.h"
#include "practice/statements/define/Tables.h"
#include "practice/storage/Permissions.h"
#include "practice/storage/SystemDatabases.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

std::string_view VerbOf(tsql::ModuleVerb verb) {
    return verb == tsql::ModuleVerb::Alter ? "ALTER" : "CREATE";
}

// Two kinds of function are one kind of object to DDL.
bool SameFamily(ObjectKind left, ObjectKind right) {
    const auto isFunction = [](ObjectKind kind) {
        return kind == ObjectKind::ScalarFunction || kind == ObjectKind::InlineFunction ||
               kind == ObjectKind::TableFunction;
    };
    return left == right || (isFunction(left) && isFunction(right));
}

std::vector<ModuleParameter> ParametersOf(Engine& engine, const std::vector<tsql::Parameter>& parameters) {
    Translator translator(engine);
    std::vector<ModuleParameter> all;
    for (const tsql::Parameter& parameter : parameters) {
        ModuleParameter one;
        one.name = parameter.name;
        one.output = parameter.output;
        one.readOnly = parameter.readOnly;
        one.hasDefault = parameter.defaultValue != nullptr;
        for (const ModuleParameter& other : all)
            if (SameName(other.name, one.name))
                throw SqlError(134, {one.name});
        if (parameter.cursor) {
            all.push_back(std::move(one));
            continue;
        }
        const auto object = TypeFromName(parameter.type.name.Last())
                                ? nullptr
                                : translator.FindSourceObject(parameter.type.name);
        if (object && (object->kind == ObjectKind::TableType || object->kind == ObjectKind::AliasType))
            one.userType = object->id;
        const bool isTable = object && object->kind == ObjectKind::TableType;
        if (isTable != parameter.readOnly)
            throw SqlError(isTable ? 352 : 346, {parameter.name});
        if (!isTable)
            one.type = translator.TypeOf(parameter.type, false, all.size() + 1);
        all.push_back(std::move(one));
    }
    return all;
}

void PutModule(Engine& engine, std::shared_ptr<Module> module) {
    if (IsPrivateName(module->name)) {
        module->version = engine.store.Shared().NextVersion();
        engine.store.Temporary().PutProcedure(std::move(module));
        return;
    }
    engine.store.Change([&](CatalogueEditor& editor) { editor.Put(module); });
}

// Columns of a view or inline function, as its query gives them.
std::vector<Column> ColumnsOf(const QuerySql& query, const std::vector<std::string>& names,
                              const Module& module) {
    if (names.size() > query.columns.size())
        throw SqlError(4502, {module.name});
    std::vector<Column> columns;
    for (std::size_t i = 0; i < query.columns.size(); ++i) {
        Column column;
        column.id = static_cast<int>(i) + 1;
        column.name = names.empty() ? query.columns[i].name : i < names.size() ? names[i] : "";
        if (column.name.empty())
            throw SqlError(4511, {std::to_string(i + 1)});
        for (const Column& other : columns)
            if (module.nameRule.Same(other.name, column.name))
                throw SqlError(4506, {column.name, module.name});
        column.type = query.columns[i].type;
        column.nullable = query.columns[i].nullable;
        columns.push_back(std::move(column));
    }
    return columns;
}

} // namespace

std::string KeptText(const tsql::ModuleStatement& statement) {
    std::string text = statement.source;
    if (statement.verb != tsql::ModuleVerb::Create)
        text.replace(statement.verbText.begin, statement.verbText.end - statement.verbText.begin, "CREATE");
    return text;
}

namespace {

/// Whom the module is to run as; nothing: its caller.
std::optional<PrincipalId> IdentityOf(Engine& engine, const tsql::ModuleStatement& statement,
                                      const Module& module) {
    if (statement.executeAs.empty() || (statement.executeAs == "CALLER" && !statement.executeAsUser))
        return std::nullopt;
    if (IsPrivateName(module.name) || IsSharedTemporaryName(module.name))
        throw SqlError::NotSupported("EXECUTE AS of a temporary procedure");
    const auto view = engine.store.View();
    const Database& database = *view->FindDatabase(module.database);
    const bool isOwner = statement.executeAs == "OWNER" && !statement.executeAsUser;
    const bool isSelf = statement.executeAs == "SELF" && !statement.executeAsUser;
    const std::string name = isOwner  ? database.principals.at(OwnerOf(database, module.schema)).name
                             : isSelf ? engine.context.Functions().UserName()
                                      : statement.executeAs;
    const Principal* user = database.FindPrincipal(name);
    if (user == nullptr || user->kind == PrincipalKind::Role)
        throw SqlError(15151, {"execute as", "user", name});
    return isOwner ? moduleOwner : user->id;
}

} // namespace

void FillModule(Engine& engine, const tsql::ModuleStatement& statement, Module& module) {
    const SessionOptions& options = engine.context.Options();
    module.text = KeptText(statement);
    module.ansiNulls = options.ansiNulls;
    module.quotedIdentifier = options.quotedIdentifier;
    module.encrypted = statement.encryption;
    module.schemaBound = statement.schemaBinding;
    module.recompile = statement.recompile;
    module.executeAs = IdentityOf(engine, statement, module);
    module.modified = CurrentMoment();
}

namespace {

void RequireLasting(const tsql::Name& name, ObjectKind kind) {
    if (!name.Last().starts_with("#") || kind == ObjectKind::Procedure)
        return;
    if (kind == ObjectKind::View)
        throw SqlError(4103, {name.Last()});
    throw SqlError::NotSupported("a temporary function");
}

std::shared_ptr<const SchemaObject> Existing(Engine& engine, const Home& home, const std::string& name) {
    if (!IsPrivateName(name))
        return engine.store.View()->FindObject(home.database, home.schema, name);
    if (auto table = engine.store.Temporary().Find(name))
        return table;
    return engine.store.Temporary().FindProcedure(name);
}

// The module to be filled: a new one, or a copy of the one that is altered.
std::shared_ptr<Module> Begin(Engine& engine, const tsql::ModuleStatement& statement, ObjectKind kind) {
    if (!statement.name.Database().empty())
        throw SqlError(
            166, {std::string(VerbOf(statement.verb)) + (kind == ObjectKind::View ? " VIEW" : " PROCEDURE")});
    RequireLasting(statement.name, kind);
    const bool isPrivate = IsPrivateName(statement.name.Last());
    const Home home = isPrivate ? Home{tempDatabase, dboSchema} : HomeFor(engine, statement.name);
    const auto existing = Existing(engine, home, statement.name.Last());
    auto module = std::make_shared<Module>();
    if (statement.verb == tsql::ModuleVerb::Create ||
        (!existing && statement.verb != tsql::ModuleVerb::Alter)) {
        if (isPrivate && existing)
            throw SqlError(2714, {statement.name.Last()}, 6);
        RequireFreeName(engine, home, statement.name.Last());
        module->id = engine.store.Shared().NextObjectId();
        if (IsSharedTemporaryName(statement.name.Last()))
            engine.store.NoteShared(module->id);
        module->created = CurrentMoment();
        module->name = statement.name.Last();
        Settle(*module, home);
    } else {
        if (!existing)
            throw SqlError(208, {statement.name.Text()}, 6);
        if (!SameFamily(existing->kind, kind))
            throw SqlError(2010, {statement.name.Text()});
        *module = dynamic_cast<const Module&>(*existing);
        module->parameters.clear();
        module->columns.clear();
        module->returns.reset();
    }
    module->kind = kind;
    FillModule(engine, statement, *module);
    return module;
}

} // namespace

void CreateView(Engine& engine, const tsql::CreateViewStatement& statement) {
    const std::shared_ptr<Module> view = Begin(engine, statement, ObjectKind::View);
    Translator translator(engine, Surroundings(*view));
    view->columns = ColumnsOf(translator.Query(*statement.query, nullptr), statement.columns, *view);
    PutModule(engine, view);
}

void CreateProcedure(Engine& engine, const tsql::CreateProcedureStatement& statement) {
    const std::shared_ptr<Module> procedure = Begin(engine, statement, ObjectKind::Procedure);
    procedure->parameters = ParametersOf(engine, statement.parameters);
    PutModule(engine, procedure);
}

void CreateFunction(Engine& engine, const tsql::CreateFunctionStatement& statement) {
    static constexpr ObjectKind kinds[] = {ObjectKind::ScalarFunction, ObjectKind::InlineFunction,
                                           ObjectKind::TableFunction};
    const auto function = Begin(engine, statement, kinds[static_cast<std::size_t>(statement.function)]);
    function->parameters = ParametersOf(engine, statement.parameters);
    if (statement.function == tsql::FunctionKind::Scalar) {
        function->returns = Translator(engine).TypeOf(statement.returnType, false);
    } else if (statement.function == tsql::FunctionKind::MultiStatementTable) {
        Table table;
        table.name = statement.tableVariable;
        table.database = function->database;
        table.nameRule = function->nameRule;
        TableBuilder(engine, table).AddAll(statement.table);
        function->columns = table.columns;
    } else {
        // Bound with its parameters as unknown values of their types.
        std::map<std::string, Scalar> values;
        for (const ModuleParameter& parameter : function->parameters) {
            Scalar value;
            value.sql = "NULL";
            value.type = parameter.type;
            values[FoldName(parameter.name)] = value;
        }
        Surroundings inside(*function);
        inside.arguments = &values;
        Translator translator(engine, inside);
        function->columns = ColumnsOf(translator.Query(*statement.inlineQuery, nullptr), {}, *function);
    }
    PutModule(engine, function);
}

void DropModules(Engine& engine, const tsql::DropStatement& statement) {
    struct Words {
        ObjectKind kind;
        const char* word;
    };
    const Words words = statement.what == tsql::DropKind::View ? Words{ObjectKind::View, "view"}
                        : statement.what == tsql::DropKind::Procedure
                            ? Words{ObjectKind::Procedure, "procedure"}
                            : Words{ObjectKind::ScalarFunction, "function"};
    for (const tsql::Name& name : statement.names) {
        const auto object = Translator(engine).FindSourceObject(name);
        if (!object || !SameFamily(object->kind, words.kind)) {
            if (object && object->kind == ObjectKind::Table)
                throw SqlError(3705, {UpperCase(words.word), name.Text(), "table", "DROP TABLE"});
            if (statement.ifExists)
                continue;
            throw SqlError(3701, {"drop", words.word, name.Text()}, 5);
        }
        if (IsPrivateName(object->name)) {
            engine.store.Temporary().RemoveProcedure(object->name);
            continue;
        }
        RequireUnbound(engine, *object, ("DROP " + UpperCase(words.word)).c_str());
        engine.store.Change([&](CatalogueEditor& editor) {
            if (const auto module = std::dynamic_pointer_cast<const Module>(object))
                for (const ObjectId trigger : module->triggers)
                    editor.Drop(trigger);
            editor.Drop(object->id);
        });
    }
}

} // namespace quillon::practice
