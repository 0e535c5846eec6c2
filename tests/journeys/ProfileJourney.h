// The default profile on the practice server: audited tables, the log they leave, and undo by the client's
// calls.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "journeys/Journey.h"
#include "platform/Failure.h"

namespace quillon::tests {

class ProfileJourney : public Journey {
  protected:
    // Makes the tables, then audits the named ones for everything.
    void Audit(const std::vector<std::string>& ddl, const std::vector<std::string>& tables) {
        for (const std::string& statement : ddl)
            Run(statement);
        Start();
        Pick();
        Install();
        for (const std::string& table : tables)
            Tick(table, true, true, true);
        const std::string log = Execute();
        for (const char* error : {"Server: Msg 1", "Server: Msg 2", "Server: Msg 4"})
            EXPECT_EQ(log.find(error), std::string::npos) << log;
    }

    // "kind|key|column|old|new" in the order of logging.
    Lines Log() {
        return Ask("SELECT CHANGE_KIND, PRIMARY_KEY, COL_NAME, OLD_VALUE, NEW_VALUE FROM AUDIT_LOG_DATA "
                   "ORDER BY AUDIT_LOG_DATA_ID");
    }
    std::string Statements() { return AskOne("SELECT COUNT(*) FROM AUDIT_LOG_TRANSACTIONS"); }

    // --- undo, by the client's calls ---
    void
    Stage(const std::string& transactions = "SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS") {
        Run("AUDIT_prc_CheckAuditUndo");
        for (const std::string& id : Ask(transactions))
            Run("EXEC AUDIT_prc_AddAuditUndoItem " + id);
    }
    // "status comment" of each item, without those that are alike.
    Lines Report() {
        Lines lines;
        for (const std::string& row : Ask("EXEC AUDIT_prc_GetAuditUndoReport")) {
            const auto comment = row.rfind('|');
            const std::string line = row.substr(row.rfind('|', comment - 1) + 1);
            if (lines.empty() || lines.back() != line)
                lines.push_back(line);
        }
        return lines;
    }
    // Leaves a transaction open, which the server remarks on as an error.
    void RunUndo() { EXPECT_THROW(Run("exec AUDIT_prc_RunUndo"), Failure); }
    void Commit() { EXPECT_THROW(Run("EXEC AUDIT_prc_CommitUndo"), Failure); }
    void UndoAll() {
        Stage();
        Report();
        RunUndo();
        Commit();
    }
};

inline constexpr const char* ItemTable =
    "CREATE TABLE dbo.Item (ID int NOT NULL PRIMARY KEY, Name nvarchar(20) NULL, Price money NULL)";

} // namespace quillon::tests
