#include "practice/statements/Truncation.h"

#include "practice/values/Convert.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// A level that is no number counts as the newest.
bool NamesColumns(Engine& engine) {
    constexpr int since = 150;
    const Database* database = engine.store.View()->FindDatabase(engine.context.CurrentDatabase());
    const auto level = database->options.find("COMPATIBILITY_LEVEL");
    return level == database->options.end() || level->second.size() != 3 ||
           std::atoi(level->second.c_str()) >= since;
}

} // namespace

Datum FitIntoColumn(Engine& engine, const Datum& value, const SqlType& type, std::string_view tableName,
                    std::string_view columnName) {
    try {
        return ConvertForColumn(value, type, engine.context.Functions().Options(), tableName, columnName);
    } catch (const SqlError& error) {
        constexpr int truncated = 2628;
        if (error.number != truncated || NamesColumns(engine))
            throw;
        throw SqlError(8152);
    }
}

} // namespace quillon::practice
