// A value on its way into a column that may be too short for it.
#pragma once

#include "practice/statements/Engine.h"

namespace quillon::practice {

// ConvertForColumn, with the error of the database's compatibility level where the value would be cut: 2628
// from 150 on, 8152 below it.
Datum FitIntoColumn(Engine& engine, const Datum& value, const SqlType& type, std::string_view tableName,
                    std::string_view columnName);

} // namespace quillon::practice
