// Data access that fails when the plan says so, and else does what the one behind it does.
//
// Operations "DataAccess.member", "Connection.member" (Open has the connection string as detail),
// "Recordset.member" (Open has the statement), "Command.member" (Execute has the command's text). Reading
// fields and states never fails by plan.
#pragma once

#include <memory>

#include "platform/DataAccess.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

class FaultyDataAccess : public data::DataAccess {
  public:
    FaultyDataAccess(data::DataAccess& dataAccess, FaultPlan& plan)
        : m_dataAccess(dataAccess)
        , m_plan(plan) {}

    data::ConnectionRef NewConnection() override;
    data::RecordsetRef NewRecordset() override;
    std::shared_ptr<data::Command> NewCommand() override;

  private:
    data::DataAccess& m_dataAccess;
    FaultPlan& m_plan;
};

} // namespace quillon::tests
