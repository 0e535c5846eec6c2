// Transactions as @@TRANCOUNT and XACT_STATE tell them, and what undoes them.
#include "practice/session/Transcript.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

struct Script {
    const char* batch;
    const char* answer;
};

void PrintTo(const Script& script, std::ostream* out) {
    *out << script.batch;
}

class Transactions : public testing::TestWithParam<Script> {};

TEST_P(Transactions, AnswerAsDocumented) {
    TestServer server;
    const auto session = server.Open();
    Answer(*session, "CREATE TABLE t (a int NOT NULL CONSTRAINT PK PRIMARY KEY)");
    EXPECT_EQ(Answer(*session, std::string("SET NOCOUNT ON\n") + GetParam().batch), GetParam().answer);
}

const Script kScripts[] = {
    {"BEGIN TRAN PRINT @@TRANCOUNT BEGIN TRAN PRINT @@TRANCOUNT COMMIT PRINT @@TRANCOUNT ROLLBACK PRINT "
     "@@TRANCOUNT",
     "info 1\ninfo 2\ninfo 1\ninfo 0\n"},
    {"COMMIT PRINT @@ERROR",
     "error 3902 2 The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.\ninfo 3902\n"},
    {"ROLLBACK PRINT @@ERROR",
     "error 3903 2 The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.\ninfo 3903\n"},
    {"BEGIN TRAN INSERT t VALUES (1) SAVE TRAN s INSERT t VALUES (2) ROLLBACK TRAN s COMMIT SELECT a FROM t",
     "row 1\n"},
    {"BEGIN TRAN INSERT t VALUES (1) ROLLBACK SELECT COUNT(*) FROM t", "row 0\n"},
    {"BEGIN TRAN BEGIN TRY SELECT CAST('x' AS int) END TRY BEGIN CATCH PRINT XACT_STATE() ROLLBACK PRINT "
     "XACT_STATE() "
     "END CATCH",
     "info -1\ninfo 0\n"},
    {"BEGIN TRAN BEGIN TRY SELECT 1 / 0 END TRY BEGIN CATCH PRINT XACT_STATE() END CATCH ROLLBACK",
     "info 1\n"},
    {"SET XACT_ABORT ON BEGIN TRAN BEGIN TRY SELECT 1 / 0 END TRY BEGIN CATCH PRINT XACT_STATE() END CATCH",
     "info -1\nerror 3998 1 Uncommittable transaction is detected at the end of the batch. The transaction "
     "is rolled "
     "back.\n"},
    {"SET XACT_ABORT ON BEGIN TRAN BEGIN TRY SELECT 1 / 0 END TRY BEGIN CATCH INSERT t VALUES (9) END CATCH",
     "error 3930 2 The current transaction cannot be committed and cannot support operations that write to "
     "the log "
     "file. Roll back the transaction.\n"},
    {"INSERT t VALUES (1) INSERT t VALUES (1) INSERT t VALUES (2) SELECT a FROM t",
     "error 2627 2 Violation of PRIMARY KEY constraint 'PK'. Cannot insert duplicate key in object 'dbo.t'. "
     "The "
     "duplicate key value is (1).\ninfo The statement has been terminated.\nrow 1\nrow 2\n"},
    {"SET IMPLICIT_TRANSACTIONS ON INSERT t VALUES (1) PRINT @@TRANCOUNT ROLLBACK SELECT COUNT(*) FROM t",
     "info 1\nrow 0\n"},
};
INSTANTIATE_TEST_SUITE_P(Scripts, Transactions, testing::ValuesIn(kScripts));

TEST(TransactionRequests, OfTheManagerNestAndAnnounce) {
    TestServer server;
    const auto session = server.Open();
    Transcript transcript;
    TransactionRequest request;
    session->RunTransactionRequest(request, transcript);
    EXPECT_EQ(Answer(*session, "PRINT @@TRANCOUNT"), "info 1\n");
    request.kind = TransactionRequest::Kind::Rollback;
    session->RunTransactionRequest(request, transcript);
    session->RunTransactionRequest(request, transcript);
    using Kind = EnvironmentChange::Kind;
    EXPECT_EQ(transcript.changes, (std::vector<Kind>{Kind::BeginTransaction, Kind::RollbackTransaction}));
    EXPECT_EQ(transcript.text,
              "error 3903 1 The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.\n");
}

TEST(TransactionRequests, OthersSeeOnlyWhatIsCommitted) {
    TestServer server;
    const auto writer = server.Open();
    const auto reader = server.Open();
    Answer(*writer, "CREATE TABLE t (a int)");
    Answer(*writer, "BEGIN TRAN INSERT t VALUES (1)");
    EXPECT_EQ(Answer(*reader, "SELECT COUNT(*) FROM t"), "row 0\ndone 1\n");
    EXPECT_EQ(
        Answer(*reader, "SET LOCK_TIMEOUT 1 INSERT t VALUES (2)"),
        "error 1222 1 Lock request time out period exceeded.\ninfo The statement has been terminated.\n");
    Answer(*writer, "COMMIT");
    EXPECT_EQ(Answer(*reader, "SELECT COUNT(*) FROM t"), "row 1\ndone 1\n");
}

TEST(TransactionRequests, ASessionThatGoesRollsBack) {
    TestServer server;
    auto writer = server.Open();
    const auto reader = server.Open();
    Answer(*writer, "CREATE TABLE t (a int)");
    Answer(*writer, "BEGIN TRAN INSERT t VALUES (1)");
    writer.reset();
    EXPECT_EQ(Answer(*reader, "INSERT t VALUES (2) SELECT a FROM t"), "done 1\nrow 2\ndone 1\n");
}

} // namespace
} // namespace quillon::practice
