// What a generated script would change, read from its text and the model's triggers.
#include <gtest/gtest.h>

#include "model/AuditObj.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "support/FakeCatalogue.h"
#include "support/ScriptedFrontEnd.h"
#include "triggers/TriggerPlan.h"

namespace quillon::tests {
namespace {

class PlanTest : public testing::Test {
  protected:
    PlanTest() {
        g_objTrace = std::make_unique<Trace>();
        g_strDatabase = "Sales";
        g_objSQLServer = platform.catalogue().NewServer();
        g_objAudit = std::make_shared<AuditObj>();
        AddTrigger("dbo", "Customer", "dbo", "trgOld", "CREATE TRIGGER trgOld ON Customer AS SELECT 1\r\n");
        AddTrigger("hr", "Letter", "hr", "trg Letter", "CREATE TRIGGER [hr].[trg Letter] ...");
    }
    ~PlanTest() override {
        g_objTrace.reset();
        g_objAudit.reset();
        g_objSQLServer.reset();
        g_strDatabase.clear();
    }
    void AddTrigger(const char* tableOwner, const char* table, const char* owner, const char* name,
                    const char* text) {
        sales.AddTable(tableOwner, table).AddTrigger(owner, name, catalogue::TriggerInsert, text).BodyText =
            text;
        g_objAudit->Database()
            ->Tables()
            ->Add(table, tableOwner, {})
            ->Triggers()
            ->Add(name, owner, catalogue::TriggerInsert, {}, true, table, tableOwner);
    }
    // "replace dbo.trgOld on dbo.Customer | ..."
    static std::string Plan(const std::string& script) {
        std::string text;
        for (const PlannedTrigger& planned : PlanTriggers(script))
            text += (text.empty() ? "" : " | ") + std::string(NameOf(planned.change)) + " " + planned.name +
                    " on " + planned.table;
        return text;
    }

    ScriptedFrontEnd frontEnd;
    FakeLibrary catalogue;
    FakeDatabase& sales{catalogue.Server().AddDatabase("Sales")};
    Platform platform{{.frontEnd = &frontEnd, .catalogue = &catalogue}};
};

TEST_F(PlanTest, TellsWhatAScriptMakesReplacesKeepsAndDrops) {
    const struct {
        const char* script;
        const char* plan;
    } cases[] = {
        {"", ""},
        {"SELECT 1\r\nGO\r\n", ""},
        {"create trigger trgNew on Customer for insert as select 1\nGO\n",
         "create dbo.trgNew on dbo.Customer"},
        {"\r\nCREATE TRIGGER trgOld ON Customer AS SELECT 1\r\nGO", "up to date dbo.trgOld on dbo.Customer"},
        {"CREATE OR ALTER TRIGGER dbo.TRGOLD ON dbo.Customer AS SELECT 2\r\nGO",
         "replace dbo.TRGOLD on dbo.Customer"},
        {"ALTER TRIGGER [hr].[trg Letter] ON \"hr\".\"Letter\" AS SELECT 1\nGO",
         "replace hr.trg Letter on hr.Letter"},
        {"IF 1 = 1 DROP TRIGGER trgOld\nGO\nCREATE TRIGGER trgOld ON Customer AS SELECT 1\nGO",
         "up to date dbo.trgOld on dbo.Customer"},
        {"DROP TRIGGER hr.[trg Letter]\nGO\nDROP TRIGGER [hr].[TRG Letter]\nGO",
         "drop hr.trg Letter on hr.Letter"},
        {"DROP TRIGGER nobodys\nGO", ""},
        {"-- DROP TRIGGER trgOld\n/* DROP /* nested */ TRIGGER trgOld */\nPRINT 'DROP TRIGGER trgOld "
         "''x'''\nGO",
         ""},
        {"/* by us */ -- CREATE\nCREATE TRIGGER dbo.t ON dbo.Customer AS SELECT 1\nGO",
         "create dbo.t on dbo.Customer"},
        {"CREATE TABLE t (id int)\nGO\nCREATE TRIGGER\nGO\nCREATE TRIGGER x\nGO\n/* open", ""},
    };
    for (const auto& [script, plan] : cases)
        EXPECT_EQ(Plan(script), plan) << script;
}

} // namespace
} // namespace quillon::tests
