// A catalogue library whose whole tree fails when the plan says so, and else does what the library behind it
// does.
//
// Operations "Library.member", "Server.member" (Connect has "server,user" as detail), "Database.member",
// "Table.member", "Trigger.member", the last three with the name of the database, table or trigger as detail.
// Plain names and flags of an element never fail: they are held by it.
#pragma once

#include <memory>

#include "platform/Catalogue.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

class FaultyLibrary : public catalogue::Library {
  public:
    FaultyLibrary(catalogue::Library& library, FaultPlan& plan)
        : m_library(library)
        , m_plan(plan) {}

    std::shared_ptr<catalogue::Server> NewServer() override;
    std::vector<std::string> ListAvailableSQLServers() override;

  private:
    catalogue::Library& m_library;
    FaultPlan& m_plan;
};

} // namespace quillon::tests
