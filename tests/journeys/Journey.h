// The whole program on a practice server: real driver, real script host, real files, and a person who is
// scripted.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/AuditObj.h"
#include "platform/DataAccess.h"
#include "practice/support/ServerProcess.h"
#include "program/Program.h"
#include "shell/Session.h"
#include "shell/frmMain.h"
#include "support/OwnHome.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {

using Lines = std::vector<std::string>;

class Journey : public testing::Test {
  protected:
    Journey();

    // --- acts ---
    // Starts the program and logs in as a person does at the login screen.
    void Start();
    void Pick(const std::string& database = "Sales");
    void Tick(const std::string& table, bool insert, bool update, bool deletes);
    // Runs the generation with the script executed, and gives the run log.
    std::string Execute();
    // Installs the whole profile through its screen.
    void Install();

    // --- looks ---
    // The first column of the answer, through a connection of its own.
    Lines Ask(const std::string& sql);
    std::string AskOne(const std::string& sql);
    void Run(const std::string& sql);
    std::string Script() const { return home.folder.Read("app/triggers.sql"); }

    frmMain& Main();
    std::string ServerName() const { return "127.0.0.1," + std::to_string(server.Port()); }

    OwnHome home;
    practice::testing::ServerProcess server{QUILLON_BIN_DIR, {}, {"--sample"}};
    ScriptedFrontEnd frontEnd;
    Program program{frontEnd};

  private:
    data::Connection& Client();
    data::ConnectionRef m_client;
};

} // namespace quillon::tests
