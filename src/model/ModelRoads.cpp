#include "model/ModelRoads.h"

#include "model/AuditObj.h"
#include "model/basDbaseFunctions.h"
#include "model/basLoadMetaData.h"
#include "model/frmODBCLogon.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/ScreenInstances.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"

namespace quillon {

void OpenModelRoads() {
    TheRoads().NewAuditObj = [] { return std::make_shared<AuditObj>(); };
    TheRoads().LoadDB = [] { return TheScreen<frmODBCLogon>().LoadDB(); };
    TheRoads().AvailableDatabases = [](ComboBox&) { basDbaseFunctions::AvailableDatabases(); };
    TheRoads().CreateObjectHeirarchy = [] { return basLoadMetaData::CreateObjectHeirarchy(); };
    TheRoads().TableCount = [] {
        if (!g_objAudit)
            throw Failure(numbers::ObjectNotSet);
        return g_objAudit->Database()->Tables()->Count();
    };
}

} // namespace quillon
