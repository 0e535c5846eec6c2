// The chain of procedures, notes, and what becomes of failures.
#include "shell/Trace.h"

#include <new>
#include <stdexcept>

#include "SessionFixture.h"
#include "platform/FailureNumbers.h"
#include "shell/Application.h"

namespace quillon::tests {
namespace {

using ::testing::Test;
using Names = std::vector<std::string>;

class TraceTest : public SessionTest {
  protected:
    Trace& trace = *g_objTrace;
    const FailureReport& Last() { return frontEnd.Failures().back(); }
};

TEST_F(TraceTest, AProcedureGivesItsResultAndLeavesTheChain) {
    const int result = trace.Procedure("a.One", [&] {
        EXPECT_EQ(trace.Chain(), Names{"a.One"});
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_TRUE(trace.Chain().empty());
    EXPECT_EQ(trace.Current(), "");
}

TEST_F(TraceTest, AFailureGivesTheDefaultResultAndTheCallerGoesOn) {
    frontEnd.ExpectFailure("Type mismatch");
    bool wentOn = false;
    const bool outer = trace.Procedure("a.Outer", [&] {
        const std::string inner =
            trace.Procedure("a.Inner", []() -> std::string { throw Failure(numbers::TypeMismatch); });
        EXPECT_EQ(inner, "");
        wentOn = true;
        return true;
    });
    EXPECT_TRUE(outer);
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(Last().Procedures, (Names{"a.Outer", "a.Inner"}));
    EXPECT_EQ(Last().Number, 13.0);
    EXPECT_GT(Last().SourceLine, 0);
    EXPECT_EQ(frontEnd.Failures().size(), 1u); // none from the caller
}

TEST_F(TraceTest, DefaultResultsOfEveryKind) {
    const auto fail = [&](auto result) {
        frontEnd.ExpectFailure("");
        return trace.Procedure("a.Fails", [&]() -> decltype(result) { throw Failure(numbers::Overflow); });
    };
    EXPECT_EQ(fail(true), false);
    EXPECT_EQ(fail(5), 0);
    EXPECT_EQ(fail(std::make_shared<int>(3)), nullptr);
    EXPECT_EQ(fail(Value(3.0)), Value());
    frontEnd.ExpectFailure("");
    trace.Procedure("a.Nothing", [] { throw Failure(numbers::Overflow); });
}

struct Raised {
    const char* name;
    void (*raise)();
    std::int32_t number;
};

TEST_F(TraceTest, ExceptionsOfTheLanguageHaveNumbersThatUsersKnow) {
    const Raised cases[] = {
        {"memory", [] { throw std::bad_alloc(); }, numbers::OutOfMemory},
        {"range", [] { std::vector<int>{}.at(1); }, numbers::SubscriptOutOfRange},
        {"variant", [] { (void)Value(true).As<double>(); }, numbers::TypeMismatch},
        {"length", [] { throw std::length_error("too long"); }, numbers::OutOfStringSpace},
        {"optional", [] { (void)std::optional<int>().value(); }, numbers::ObjectNotSet},
        {"other", [] { throw std::runtime_error("out of luck"); }, numbers::Unspecified},
    };
    for (const Raised& raised : cases) {
        SCOPED_TRACE(raised.name);
        frontEnd.ExpectFailure("");
        trace.Procedure("a.Raises", [&] { raised.raise(); });
        EXPECT_EQ(Last().Number, raised.number);
        EXPECT_FALSE(Last().Description.empty());
    }
    EXPECT_NE(Last().Description.find("out of luck"), std::string::npos);
}

// An event-loop turn inside a long procedure runs others; their failures are theirs alone.
TEST_F(TraceTest, AFailureInANestedTurnEndsOnlyItsOwnEntries) {
    frontEnd.OnDoEvents = [&] {
        trace.Procedure("frm.Click", [&] {
            trace.Push("frm - helper that never pops");
            trace.Procedure("bas.Work", [] { throw Failure(numbers::FileNotFound); });
            EXPECT_EQ(trace.Chain(), (Names{"frm.Long", "frm.Click", "frm - helper that never pops"}));
            throw Failure(numbers::DiskFull);
        });
    };
    frontEnd.ExpectFailure("File not found");
    frontEnd.ExpectFailure("Disk full");
    trace.Procedure("frm.Long", [&] {
        ThePlatform().frontEnd().DoEvents();
        EXPECT_EQ(trace.Chain(), Names{"frm.Long"});
    });
    const auto& failures = frontEnd.Failures();
    EXPECT_EQ(failures[0].Procedures,
              (Names{"frm.Long", "frm.Click", "frm - helper that never pops", "bas.Work"}));
    EXPECT_EQ(failures[1].Procedures, (Names{"frm.Long", "frm.Click", "frm - helper that never pops"}));
    EXPECT_TRUE(trace.Chain().empty());
}

TEST_F(TraceTest, TheOuterProcedureMayFailAfterANestedTurn) {
    frontEnd.OnDoEvents = [&] { trace.Procedure("frm.Click", [] {}); };
    frontEnd.ExpectFailure("Overflow");
    trace.Procedure("frm.Long", [&] {
        ThePlatform().frontEnd().DoEvents();
        throw Failure(numbers::Overflow);
    });
    EXPECT_EQ(Last().Procedures, Names{"frm.Long"});
}

TEST_F(TraceTest, EndingTheProcessIsNoFailure) {
    EXPECT_THROW(
        trace.Procedure("a.Outer", [&] { trace.Procedure("a.Inner", [] { throw ProcessEnded{}; }); }),
        ProcessEnded);
    EXPECT_TRUE(trace.Chain().empty());
}

TEST_F(TraceTest, TheNoteStaysUntilItIsReplacedOrCleared) {
    const auto fail = [&] {
        frontEnd.ExpectFailure("");
        trace.Procedure("a.Fails", [] { throw Failure(numbers::InvalidCall); });
        return Last().Note;
    };
    trace.SetNote("Attempting to execute the following SQL: select 1");
    EXPECT_EQ(fail(), "Attempting to execute the following SQL: select 1");
    EXPECT_EQ(fail(), "Attempting to execute the following SQL: select 1");
    trace.SetNote("");
    EXPECT_EQ(fail(), "");
}

TEST_F(TraceTest, AReportByHandEndsItsProcedureAndKeepsBothNotes) {
    frontEnd.ExpectFailure("link broken");
    trace.SetNote("Attempting");
    trace.Push("a.Outer");
    trace.Push("a.Inner");
    EXPECT_TRUE(trace.Report("link broken", numbers::LinkBroken, 12, "ALERT"));
    EXPECT_EQ(trace.Chain(), Names{"a.Outer"});
    EXPECT_EQ(Last().Note, "Attempting\r\nALERT");
    EXPECT_EQ(Last().SourceLine, 12);
    EXPECT_FALSE(trace.Pop("a.Inner"));
    EXPECT_TRUE(trace.Pop("a.Outer"));
}

TEST_F(TraceTest, TheReportFileKeepsEveryFailureInOrder) {
    trace.SetFolder("\\app\\");
    trace.SetOption(true);
    trace.SetApplication(TheApplication());
    trace.SetNote("a note");
    for (const auto number : {numbers::LinkBroken, numbers::FileNotFound}) {
        frontEnd.ExpectFailure("");
        trace.Procedure("bas.Work", [&] { throw Failure(number, number < 0 ? "link broken" : ""); });
    }
    const std::string text = memoryFiles.Contents["\\app\\exception.txt"];
    const std::size_t first = text.find("Failure: link broken\r\nNumber: 0x80040E21\r\n");
    const std::size_t second = text.find("Failure: File not found\r\nNumber: 53\r\n");
    ASSERT_NE(first, std::string::npos) << text;
    ASSERT_NE(second, std::string::npos) << text;
    EXPECT_LT(first, second);
    for (const char* part : {"---- 2/28/2004 12:00:00 PM\r\n", "Program: Quillon ", "In: bas.Work\r\n",
                             "Note: a note\r\n", "Source line: "})
        EXPECT_NE(text.find(part), std::string::npos) << part << " is not in\n" << text;
}

TEST_F(TraceTest, TheReportFileKeepsTheNewestReportsOnly) {
    trace.SetFolder("\\app\\");
    trace.SetOption(true);
    std::string& file = memoryFiles.Contents["\\app\\exception.txt"];
    file = "---- of an older program\r\n" + std::string(3 << 20, 'x');
    std::size_t largest = 0;
    for (int number = 1; number <= 60; ++number) {
        frontEnd.ExpectFailure("");
        trace.SetNote("note " + std::to_string(number) + std::string(50000, '.'));
        trace.Procedure("bas.Work", [] { throw Failure(numbers::InvalidCall); });
        EXPECT_TRUE(file.starts_with("---- ")) << file.substr(0, 100);
        EXPECT_NE(file.find("Note: note " + std::to_string(number) + "."), std::string::npos);
        largest = std::max(largest, file.size());
    }
    EXPECT_LE(largest, std::size_t{1} << 20);
    EXPECT_NE(file.find("Note: note 55."), std::string::npos); // not only the last one
    EXPECT_EQ(file.find("of an older program"), std::string::npos);
}

TEST_F(TraceTest, NoFileIsWrittenUnlessItIsWanted) {
    trace.SetFolder("\\app\\");
    frontEnd.ExpectFailure("");
    trace.Procedure("bas.Work", [] { throw Failure(numbers::Overflow); });
    EXPECT_TRUE(memoryFiles.Contents.empty());
}

// Whatever goes wrong with the report file, the user hears of the failure itself and of the file.
TEST_F(TraceTest, AReportFileThatCannotBeWrittenHidesNothing) {
    trace.SetFolder("\\app\\");
    trace.SetOption(true);
    for (const char* operation : {"Files.OpenAppend", "FileWriter.Write", "FileWriter.Close"}) {
        SCOPED_TRACE(operation);
        plan.FailAt(operation, 1, Failure(numbers::DiskFull));
        frontEnd.ExpectFailure("Type mismatch");
        trace.Procedure("bas.Work", [] { throw Failure(numbers::TypeMismatch); });
        EXPECT_EQ(Last().Number, 13.0);
        EXPECT_NE(Last().Note.find("\\app\\exception.txt: Disk full"), std::string::npos) << Last().Note;
    }
    EXPECT_EQ(trace.Records().size(), 3u);
}

class SilentFrontEnd : public ScriptedFrontEnd {
  public:
    void ReportFailure(const FailureReport&) override { throw Failure(numbers::Unspecified, "no display"); }
};

// A failure of the trace itself is one of the caller; it is not swallowed.
TEST_F(TraceTest, AFrontEndThatCannotTellFailsTheCaller) {
    SilentFrontEnd silent;
    PlatformServices services;
    services.frontEnd = &silent;
    services.clock = &clock;
    const Platform inner(services);
    EXPECT_THROW(trace.Procedure("a.Work", [] { throw Failure(numbers::Overflow); }), Failure);
    EXPECT_TRUE(trace.Chain().empty());
    ASSERT_EQ(trace.Records().size(), 1u);
    EXPECT_EQ(trace.Records().front().Report.Description, "Overflow");
}

TEST_F(TraceTest, OnlyTheLastRecordsAreKept) {
    for (std::size_t i = 0; i < Trace::RecordsKept + 5; ++i) {
        frontEnd.ExpectFailure("");
        trace.Procedure("a.Work", [&] { throw Failure(numbers::Overflow, "number " + std::to_string(i)); });
    }
    ASSERT_EQ(trace.Records().size(), Trace::RecordsKept);
    EXPECT_EQ(trace.Records().front().Report.Description, "number 5");
}

TEST_F(TraceTest, NoPasswordReachesReportOrFile) {
    g_strPassword = "se;cret";
    trace.SetFolder("\\app\\");
    trace.SetOption(true);
    trace.SetNote("opening Provider=sqloledb;User ID=sa;Password=se;cret;");
    frontEnd.ExpectFailure("");
    trace.Procedure("basDbaseFunctions OpenRecordset exec x @password = 'hunter2'",
                    [] { throw Failure(numbers::DataAccess, "isqlw -S s -U sa -P se;cret -f \"x\""); });
    const std::string everything = Last().Description + Last().Note + Last().Procedures.back() +
                                   memoryFiles.Contents["\\app\\exception.txt"];
    for (const char* secret : {"cret", "hunter2"})
        EXPECT_EQ(everything.find(secret), std::string::npos) << everything;
    EXPECT_NE(everything.find("User ID=sa"), std::string::npos);
}

} // namespace
} // namespace quillon::tests
