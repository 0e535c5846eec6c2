#include "adapters/odbc/OdbcDataAccess.h"

#include "adapters/odbc/OdbcCommand.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/OdbcRecordset.h"

namespace quillon::adapters {

data::ConnectionRef OdbcDataAccess::NewConnection() {
    return std::make_shared<OdbcConnection>();
}

data::RecordsetRef OdbcDataAccess::NewRecordset() {
    return std::make_shared<OdbcRecordset>();
}

std::shared_ptr<data::Command> OdbcDataAccess::NewCommand() {
    return std::make_shared<OdbcCommand>();
}

} // namespace quillon::adapters
