// sp_addextendedproperty and its kin: which thing the levels name, and the change of its properties.
#include "practice/catalogue/NativeParts.h"
#include "practice/values/SqlError.h"
#include "practice/values/VariantForm.h"

#include <algorithm>

namespace quillon::practice {

namespace {

struct Level {
    std::string type, name;
};

// What bears the property, and how messages call it.
struct Bearer {
    ExtendedProperty place; // without name and value
    std::string name;
};

[[noreturn]] void NoSuchBearer(const std::string& name) {
    throw SqlError(15135, {name});
}

void PlaceInTable(const Table& table, const Level& level, Bearer& bearer) {
    if (SameName(level.type, "COLUMN")) {
        if (const Column* column = table.FindColumn(level.name)) {
            bearer.place.minor = column->id;
            return;
        }
    } else if (SameName(level.type, "INDEX")) {
        if (const Index* index = table.FindIndex(level.name)) {
            bearer.place.securableClass = 7;
            bearer.place.minor = index->id;
            return;
        }
    } else if (SameName(level.type, "CONSTRAINT")) {
        for (const auto& [name, constraint] : ConstraintsOf(table))
            if (table.nameRule.Same(name, level.name)) {
                bearer.place.major = constraint.id;
                return;
            }
    }
    NoSuchBearer(bearer.name);
}

// A column of a view, a parameter of a procedure or function, a trigger of a table.
void PlaceInObject(NativeHost& host, const SchemaObject& object, const Level& level, Bearer& bearer) {
    bearer.name += "." + level.name;
    if (SameName(level.type, "TRIGGER")) {
        const Database* database = host.Store().View()->FindDatabase(host.CurrentDatabase());
        const NamedObject* named = database->FindName(object.schema, level.name);
        if (named == nullptr || !host.Store().View()->FindTrigger(named->id))
            NoSuchBearer(bearer.name);
        bearer.place.major = named->id;
        return;
    }
    if (const auto* table = dynamic_cast<const Table*>(&object))
        return PlaceInTable(*table, level, bearer);
    const auto* module = dynamic_cast<const Module*>(&object);
    const bool isParameter = SameName(level.type, "PARAMETER");
    if (module == nullptr || (!isParameter && !SameName(level.type, "COLUMN")))
        NoSuchBearer(bearer.name);
    const NameRule rule = isParameter ? NameRule() : module->nameRule;
    const auto place = [&](const auto& list) {
        for (std::size_t index = 0; index < list.size(); ++index)
            if (rule.Same(list[index].name, level.name)) {
                bearer.place.securableClass = isParameter ? 2 : 1;
                bearer.place.minor = static_cast<int>(index) + 1;
                return true;
            }
        return false;
    };
    if (!(isParameter ? place(module->parameters) : place(module->columns)))
        NoSuchBearer(bearer.name);
}

Bearer FindBearer(NativeHost& host, const Level (&levels)[3]) {
    const auto view = host.Store().View();
    const Database* database = view->FindDatabase(host.CurrentDatabase());
    Bearer bearer;
    bearer.name = "object specified";
    if (levels[0].type.empty())
        return bearer;
    bearer.name = levels[0].name;
    // USER is what older scripts say.
    if (!SameName(levels[0].type, "SCHEMA") && !SameName(levels[0].type, "USER"))
        throw SqlError::NotSupported("extended properties of " + levels[0].type);
    const Schema* schema = database->FindSchema(levels[0].name);
    if (schema == nullptr)
        NoSuchBearer(bearer.name);
    bearer.place.securableClass = 3;
    bearer.place.major = schema->id;
    if (levels[1].type.empty())
        return bearer;
    bearer.name += "." + levels[1].name;
    const auto object = view->FindObject(host.CurrentDatabase(), schema->id, levels[1].name);
    if (!object)
        NoSuchBearer(bearer.name);
    bearer.place.securableClass = SameName(levels[1].type, "TYPE") ? 6 : 1;
    bearer.place.major = object->id;
    if (!levels[2].type.empty())
        PlaceInObject(host, *object, levels[2], bearer);
    return bearer;
}

bool IsAt(const ExtendedProperty& property, const ExtendedProperty& place, std::string_view name,
          const NameRule& rule) {
    return property.securableClass == place.securableClass && property.major == place.major &&
           property.minor == place.minor && rule.Same(property.name, name);
}

} // namespace

// q_property add, update or drop, name, value, then type and name of three levels.
int ChangeProperty(NativeHost& host, std::span<const Datum> arguments) {
    const std::string action = TextArgument(arguments, 0), name = TextArgument(arguments, 1);
    const Level levels[3] = {{TextArgument(arguments, 3), TextArgument(arguments, 4)},
                             {TextArgument(arguments, 5), TextArgument(arguments, 6)},
                             {TextArgument(arguments, 7), TextArgument(arguments, 8)}};
    const Bearer bearer = FindBearer(host, levels);
    ExtendedProperty property = bearer.place;
    property.name = name;
    if (!arguments[2].IsNull())
        property.value = EncodeVariant(arguments[2]);
    const DatabaseId id = host.CurrentDatabase();
    const auto view = host.Store().View();
    const std::vector<ExtendedProperty>& all = view->FindDatabase(id)->properties;
    const auto isMeant = [&, rule = view->FindDatabase(id)->Rule()](const ExtendedProperty& one) {
        return IsAt(one, bearer.place, name, rule);
    };
    const bool isThere = std::any_of(all.begin(), all.end(), isMeant);
    if (isThere == (action == "add"))
        throw SqlError(isThere ? 15233 : 15217, {name, bearer.name});
    host.Store().Change([&](CatalogueEditor& editor) {
        std::vector<ExtendedProperty>& list = editor.EditDatabase(id).properties;
        std::erase_if(list, isMeant);
        if (action != "drop")
            list.push_back(property);
    });
    return 0;
}

} // namespace quillon::practice
