#include "practice/catalogue/SystemProcedures.h"

#include "practice/catalogue/LockProcedures.h"
#include "practice/catalogue/ProcedureTexts.h"

namespace quillon::practice {

std::span<const SystemProcedure> AllSystemProcedures() {
    static const std::vector<SystemProcedure> all = [] {
        std::vector<SystemProcedure> list;
        for (const auto part :
             {DriverProcedures(), TypeProcedures(), ServerProcedures(), HelpProcedures(),
              SecurityProcedures(), ChangeProcedures(), MessageProcedures(), LockProcedures()})
            list.insert(list.end(), part.begin(), part.end());
        return list;
    }();
    return all;
}

const SystemProcedure* FindSystemProcedure(std::string_view name) {
    for (const SystemProcedure& procedure : AllSystemProcedures())
        if (SameName(procedure.name, name))
            return &procedure;
    return nullptr;
}

} // namespace quillon::practice
