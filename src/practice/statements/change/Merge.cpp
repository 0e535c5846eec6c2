#include "practice/statements/change/Targets.h"
#include "practice/values/SqlError.h"

namespace quillon::practice {

StatementOutcome RunMerge(Engine&, const tsql::MergeStatement&) {
    throw SqlError::NotSupported("MERGE");
}

} // namespace quillon::practice
