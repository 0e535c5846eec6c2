#include "journeys/Journey.h"

#include "architecture/frmInstall.h"
#include "execution/frmScriptResults.h"
#include "model/frmODBCLogon.h"
#include "platform/Conversion.h"
#include "platform/Platform.h"
#include "shell/ScreenInstances.h"
#include "shell/Settings.h"
#include "shell/basMain.h"

namespace quillon::tests {

Journey::Journey() {
    settings::Write("0", settings::ShowTips);
    settings::Write("2", settings::Editor);
}

frmMain& Journey::Main() {
    return TheScreen<frmMain>();
}

void Journey::Start() {
    frontEnd.ExpectModal("frmODBCLogon", [this](Screen& screen) {
        auto& login = static_cast<frmODBCLogon&>(screen);
        login.cboServer.SetText(ServerName());
        login.optType[frmODBCLogon::SqlServer].Click();
        login.txtUID.SetText("sa");
        login.txtPWD.SetText(server.Password());
        login.cmdOK.Click();
    });
    frontEnd.ExpectShow("frmMain");
    basMain::Main();
}

void Journey::Pick(const std::string& database) {
    const auto& items = Main().cboDatabase.Items();
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].Text == database)
            return Main().cboDatabase.Pick(static_cast<int>(i));
    FAIL() << "no database " << database;
}

void Journey::Tick(const std::string& table, bool insert, bool update, bool deletes) {
    const auto& model = g_objAudit->Database()->Tables()->Item(table);
    model->SetAudit4Insert(insert);
    model->SetAudit4Update(update);
    model->SetAudit4Delete(deletes);
    for (const auto& field : *model->Fields())
        field->SetIsChecked(true);
}

std::string Journey::Execute() {
    std::string log;
    frontEnd.ExpectModal("frmScriptResults", [&](Screen& screen) {
        log = static_cast<frmScriptResults&>(screen).cdmResults.Text();
    });
    Main().Menus.mnuFileGenerateProcs.Click();
    return log;
}

void Journey::Install() {
    // A database without any structures cannot be analysed: that is told first.
    frontEnd.ExpectFailure("Could not find stored procedure 'AUDIT_prc_Analyze'");
    frontEnd.ExpectMessage("Missing Architecture structures for this database will \r\n"
                           "mean Removing and/or Analysis operations can't be performed\r\n\r\n"
                           "To make this functions operations Install the 'Add Architecture ...' scripts",
                           "Missing Structures Identified", Icon::Information);
    frontEnd.ExpectModal("frmInstall", [this](Screen& screen) {
        auto& install = static_cast<frmInstall&>(screen);
        EXPECT_FALSE(install.optOption[frmInstall::Remove].Enabled());
        EXPECT_FALSE(install.optOption[frmInstall::Analyze].Enabled());
        frontEnd.ExpectMessage("Are you sure you want to run this installation script(s)",
                               "Confirm Operation", Icon::Question, Buttons::OkCancel, Answer::Ok);
        frontEnd.ExpectModal("frmScriptResults", [](Screen& results) {
            const std::string& log = static_cast<frmScriptResults&>(results).cdmResults.Text();
            EXPECT_NE(log.find("Running 'DDL' script..."), std::string::npos);
            EXPECT_LT(log.find("'Reporting SP Aggregate'"), log.find("'Reporting SP Standard'"));
            EXPECT_EQ(log.find("is missing"), std::string::npos) << log;
        });
        install.cmdRun.Click();
        EXPECT_TRUE(install.optOption[frmInstall::Remove].Enabled());
        EXPECT_TRUE(install.optOption[frmInstall::Analyze].Enabled());
    });
    Main().Menus.mnuInstallAuditing.Click();
}

data::Connection& Journey::Client() {
    if (!m_client) {
        m_client = ThePlatform().dataAccess().NewConnection();
        m_client->Open("Driver={SQL Server};Server=" + ServerName() +
                       ";Database=Sales;Uid=sa;Pwd=" + server.Password() + ";");
    }
    return *m_client;
}

Lines Journey::Ask(const std::string& sql) {
    Client();
    const auto command = ThePlatform().dataAccess().NewCommand();
    command->SetActiveConnection(m_client);
    command->SetCommandType(data::CommandType::Text);
    command->SetCommandText(sql);
    Lines lines;
    for (auto rows = command->Execute(); rows; rows = rows->NextRecordset()) {
        if (rows->State() != data::ObjectState::Open)
            continue;
        for (; !rows->Eof(); rows->MoveNext()) {
            std::string line;
            for (std::size_t i = 0; i < rows->FieldCount(); ++i) {
                const Value value = rows->FieldAt(i).Value;
                line +=
                    (i > 0 ? "|" : "") + (value.IsNull() ? std::string("NULL") : conversion::ToText(value));
            }
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

std::string Journey::AskOne(const std::string& sql) {
    const Lines lines = Ask(sql);
    return lines.empty() ? "(no row)" : lines.front();
}

void Journey::Run(const std::string& sql) {
    Ask(sql);
}

} // namespace quillon::tests
