// A model as large as databases get, filled through the operations that the metadata loader uses.
#pragma once

#include <memory>

namespace quillon {
class AuditObj;
}

namespace quillon::bench {

// Tables "Table0" ... of `dbo`, each with a key of one column and a trigger.
std::shared_ptr<AuditObj> LoadModel(int tables, int columns);

} // namespace quillon::bench
