#include "practice/statements/define/SchemaBinding.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

std::shared_ptr<const Module> ModuleBoundTo(Engine& engine, const SchemaObject& object,
                                            std::string_view column) {
    if (object.database == 0)
        return nullptr;
    const auto view = engine.store.View();
    for (const auto& [id, other] : view->FindDatabase(object.database)->objects) {
        const auto module = std::dynamic_pointer_cast<const Module>(other);
        if (module && module->schemaBound && id != object.id &&
            module->nameRule.IsMentioned(object.name, module->text) &&
            (column.empty() || module->nameRule.IsMentioned(column, module->text)))
            return module;
    }
    return nullptr;
}

void RequireUnbound(Engine& engine, const SchemaObject& object, const char* action) {
    if (const auto module = ModuleBoundTo(engine, object))
        throw SqlError(3729, {action, object.name, module->name});
}

} // namespace quillon::practice
