// Data access over unixODBC and the FreeTDS driver (platform/DataAccess.h).
#pragma once

#include "platform/DataAccess.h"

namespace quillon::adapters {

class OdbcDataAccess : public data::DataAccess {
  public:
    data::ConnectionRef NewConnection() override;
    data::RecordsetRef NewRecordset() override;
    std::shared_ptr<data::Command> NewCommand() override;
};

} // namespace quillon::adapters
