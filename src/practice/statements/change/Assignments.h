// SET of UPDATE and MERGE: which columns get which values.
#pragma once

#include "practice/statements/change/Targets.h"

namespace quillon::practice {

struct Assignments {
    struct ColumnValue {
        const Column* column = nullptr;
        int place = -1;
        std::string sql;
    };
    struct VariableValue {
        std::string name;
        SqlType type;
        std::string sql;
    };
    std::vector<ColumnValue> columns; // by place
    std::vector<VariableValue> variables;

    std::vector<int> Places() const;
};

// `source` is where the target's columns are found in the scope; for an updatable view or common table its
// columns stand for those of `table`. Throws 207, 264, 271, 272, 8102.
Assignments BindAssignments(Translator& translator, const std::vector<tsql::SetClause>& sets,
                            const Scope& scope, const Source& source,
                            const std::shared_ptr<const Table>& table, bool instead);

} // namespace quillon::practice
