// Asking the database which structures it has, and what is said when some are missing.
#include <gtest/gtest.h>

#include "architecture/basArchAnalyze.h"
#include "platform/FailureNumbers.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"
#include "support/FakeDataAccess.h"
#include "support/ScriptedFrontEnd.h"

namespace quillon::tests {
namespace {

using namespace basArchAnalyze;

constexpr const char* Parameters[] = {"DDL",   "Identity", "view",   "standard", "aggregate",
                                      "purge", "undo",     "delete", "analyze"};

class AnalysisTest : public testing::Test {
  protected:
    AnalysisTest() {
        g_objTrace = std::make_unique<Trace>();
        g_objConnection = data.NewConnection();
        g_objConnection->Open("Provider=sqloledb;Initial Catalog=Sales;", "", "", data::OptionUnspecified);
    }
    ~AnalysisTest() override {
        g_objTrace.reset();
        g_objConnection.reset();
        TheRoads() = SessionRoads();
    }
    // The procedure answers with these flags, "1" and "0" in the order of its parameters, "-" for NULL.
    void Answer(const std::string& flags, std::int32_t result = 0) {
        FakeAnswer answer;
        answer.Parameters["RETURN_VALUE"] = result;
        for (std::size_t flag = 0; flag < flags.size(); ++flag)
            answer.Parameters[Parameters[flag]] =
                flags[flag] == '-' ? Value(NullValue{}) : Value(flags[flag] == '1');
        data.Data().Answers.clear();
        data.Answer("AUDIT_prc_Analyze", std::move(answer));
    }
    static std::string TextOf(const Structures& found) {
        std::string text;
        for (const bool flag : {found.Ddl, found.Identity, found.View, found.Standard, found.Aggregate,
                                found.Purge, found.Undo, found.Delete, found.Analyze})
            text += flag ? '1' : '0';
        return text;
    }

    ScriptedFrontEnd frontEnd;
    FakeDataAccess data;
    Platform platform{{.frontEnd = &frontEnd, .dataAccess = &data}};
};

TEST_F(AnalysisTest, EachFlagIsReadByItsNameAndAskedForAnew) {
    for (std::size_t flag = 0; flag < std::size(Parameters); ++flag) {
        std::string flags(std::size(Parameters), '0');
        flags[flag] = '1';
        Answer(flags, 7);
        Structures found;
        EXPECT_EQ(Exec_AUDIT_prc_Analyze(found), 7);
        EXPECT_EQ(TextOf(found), flags);
        bool canAnalyze = false, canRemove = false;
        Analyze_AnalyzeAndRemove(canAnalyze, canRemove);
        const bool gates[] = {Analyze_ReportStandard(), Analyze_ReportAggregate(), Analyze_UnDo(), canRemove,
                              canAnalyze};
        const std::size_t of[] = {3, 4, 6, 7, 8};
        for (std::size_t gate = 0; gate < std::size(gates); ++gate)
            EXPECT_EQ(gates[gate], of[gate] == flag) << flag << " " << gate;
    }
    EXPECT_EQ(data.Data().Statements.size(), 5 * std::size(Parameters)); // nothing is kept
}

TEST_F(AnalysisTest, AFailureKeepsTheCallersFlagsAndNamesNoLine) {
    Structures found;
    found.Purge = true;
    Answer("1111-1111");
    frontEnd.ExpectFailure("Invalid use of Null");
    EXPECT_EQ(Exec_AUDIT_prc_Analyze(found), 0);
    data.Data().Answers.clear();
    frontEnd.ExpectFailure("no answer was prepared for: AUDIT_prc_Analyze");
    EXPECT_FALSE(Analyze_UnDo());
    EXPECT_EQ(TextOf(found), "000001000");
    for (const FailureReport& report : frontEnd.Failures()) {
        EXPECT_EQ(report.SourceLine, 0);
        EXPECT_EQ(report.Procedures.back(), "basArchAnalyze.Exec_AUDIT_prc_Analyze");
    }
}

TEST_F(AnalysisTest, OnlyYesOpensTheArchitectureManager) {
    int opened = 0;
    TheRoads().ShowArchitectureManager = [&] { ++opened; };
    for (const quillon::Answer answer :
         {quillon::Answer::No, quillon::Answer::Cancel, quillon::Answer::Yes}) {
        frontEnd.ExpectMessage("Some of the requested operatons can not be performed for this databaes "
                               "because relevant Audit related "
                               "database objects (i.e. tables, view etc.) for this operation are "
                               "missing\r\n\r\nTo ensure all Audit "
                               "structures are present open a valid Architecture profile (.qlnx file) and "
                               "Install it\r\n\r\nDo you want "
                               "to install an Audit Architecture now?",
                               "Missing Audit Structures", Icon::Question, Buttons::YesNoCancel, answer);
        ArchCheck();
        EXPECT_EQ(opened, answer == quillon::Answer::Yes ? 1 : 0);
    }
}

} // namespace
} // namespace quillon::tests
