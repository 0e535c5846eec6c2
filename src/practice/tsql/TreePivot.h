#pragma once

// PIVOT and UNPIVOT: table sources made from another one.

#include "practice/tsql/TreeQueries.h"

namespace quillon::practice::tsql {

/// source PIVOT (aggregate FOR column IN ([a], [b])): the named values of the column become columns.
struct PivotTable : TableSource {
    TableSourcePtr source;
    ExpressionPtr aggregate; // a FunctionCall
    Name column;
    std::vector<std::string> values;

    PivotTable()
        : TableSource(TableSourceKind::Pivot) {}
};

/// source UNPIVOT (value FOR name IN (a, b)): the named columns become rows.
struct UnpivotTable : TableSource {
    TableSourcePtr source;
    std::string value;
    std::string name;
    std::vector<std::string> columns;

    UnpivotTable()
        : TableSource(TableSourceKind::Unpivot) {}
};

} // namespace quillon::practice::tsql
