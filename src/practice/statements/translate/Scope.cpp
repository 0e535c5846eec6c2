#include "practice/statements/translate/Scope.h"

#include "practice/storage/Catalogue.h"

namespace quillon::practice {

std::string OutputName(std::size_t index) {
    return "o" + std::to_string(index + 1);
}

OutputColumn OutputOf(const SourceColumn& column) {
    return {column.name,     column.type,     column.nullable,  column.label,
            column.identity, column.readOnly, column.tableName, column.baseColumn};
}

std::string Capture::Take(const std::string& column) {
    auto found = std::find(sql.begin(), sql.end(), column);
    if (found == sql.end())
        found = sql.insert(sql.end(), column);
    const auto index = static_cast<int>(found - sql.begin());
    return firstParameter > 0 ? "?" + std::to_string(firstParameter + index)
                              : alias + ".k" + std::to_string(index + 1);
}

bool Matches(const Source& source, const tsql::Name& qualifier, std::size_t parts) {
    const auto part = [&](std::size_t back) { return qualifier.parts[parts - 1 - back]; };
    if (parts == 0)
        return true;
    if (!source.nameRule.Same(part(0), source.exposed))
        return false;
    if (parts >= 2 && !part(1).empty() && !source.nameRule.Same(part(1), source.schema))
        return false;
    return parts < 3 || part(2).empty() || SameName(part(2), source.database);
}

std::vector<ColumnUse> FindColumns(const Scope& scope, const tsql::Name& name) {
    std::vector<ColumnUse> found;
    for (const std::unique_ptr<Source>& source : scope.sources) {
        if (!Matches(*source, name, name.parts.size() - 1))
            continue;
        for (const SourceColumn& column : source->columns)
            if (source->columnRule.Same(column.name, name.Last()))
                found.push_back({source.get(), &column});
    }
    return found;
}

} // namespace quillon::practice
