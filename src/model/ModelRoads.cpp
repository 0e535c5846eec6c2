#include "model/ModelRoads.h"

#include "model/AuditObj.h"
#include "model/basDbaseFunctions.h"
#include "model/basLoadMetaData.h"
#include "model/frmODBCLogon.h"
#include "shell/ScreenInstances.h"
#include "shell/SessionRoads.h"

namespace quillon {

void OpenModelRoads() {
    TheRoads().NewAuditObj = [] { return std::make_shared<AuditObj>(); };
    TheRoads().LoadDB = [] { return TheScreen<frmODBCLogon>().LoadDB(); };
    TheRoads().AvailableDatabases = [](ComboBox&) { basDbaseFunctions::AvailableDatabases(); };
    TheRoads().CreateObjectHeirarchy = [] { return basLoadMetaData::CreateObjectHeirarchy(); };
    TheRoads().TableCount = [] { return TheModel().Database()->Tables()->Count(); };
}

} // namespace quillon
