// Rows that a client loads by INSERT BULK: what the options leave aside and what holds all the same.
#include "practice/session/Transcript.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

using Rows = std::vector<std::vector<Datum>>;

const Datum kNull = Datum::Null(SimpleType(TypeId::Int));

std::string Load(SqlSession& session, const std::string& announcement, const Rows& rows) {
    const std::string announced = Answer(session, announcement);
    if (!session.AwaitsRows())
        return announced;
    Transcript transcript;
    auto next = rows.begin();
    session.PrepareRequest();
    session.LoadRows(
        [&](std::vector<Datum>& row) {
            if (next == rows.end())
                return false;
            row = *next++;
            return true;
        },
        transcript);
    return announced + transcript.text;
}

class BulkTest : public testing::Test {
  protected:
    BulkTest()
        : m_session(m_server.Open()) {
        Answer(*m_session, "CREATE TABLE parents(id int PRIMARY KEY)");
        Answer(*m_session, "CREATE TABLE loaded(id int IDENTITY PRIMARY KEY, a int DEFAULT 7, "
                           "b int NOT NULL CHECK (b > 0), c int REFERENCES parents(id))");
        Answer(*m_session,
               "CREATE TRIGGER told ON loaded AFTER INSERT AS "
               "DECLARE @n int = (SELECT COUNT(*) FROM inserted) RAISERROR('fired %d', 0, 1, @n)");
    }

    TestServer m_server;
    std::unique_ptr<SqlSession> m_session;
};

TEST_F(BulkTest, OptionsSayWhatHoldsForTheRows) {
    const Rows rows = {{kNull, Datum::Int(-1), Datum::Int(99)}};
    const std::string head = "INSERT BULK loaded(a int, b int, c int)";
    EXPECT_EQ(Load(*m_session, head, rows), "done 1\n");
    EXPECT_EQ(
        Load(*m_session, head + " WITH (KEEP_NULLS, TABLOCK, ROWS_PER_BATCH = 1, ORDER(a ASC, b))", rows),
        "done 1\n");
    EXPECT_EQ(Answer(*m_session, "SELECT id, a, b, c FROM loaded"),
              "row 1|7|-1|99\nrow 2|NULL|-1|99\ndone 2\n");
    EXPECT_EQ(Load(*m_session, head + " WITH (FIRE_TRIGGERS)", rows), "info fired 1\ndone 1\n");
    EXPECT_EQ(Load(*m_session, head + " WITH (CHECK_CONSTRAINTS)", rows).substr(0, 10), "error 547 ");
    EXPECT_EQ(Load(*m_session, head + " WITH (CHECK_CONSTRAINTS)", {{kNull, Datum::Int(1), Datum::Int(99)}})
                  .substr(0, 10),
              "error 547 ");
}

TEST_F(BulkTest, IdentityValuesAreKeptWhereTheyAreBrought) {
    EXPECT_EQ(Load(*m_session, "INSERT BULK loaded(id int, b int)", {{Datum::Int(41), Datum::Int(1)}}),
              "done 1\n");
    EXPECT_EQ(Load(*m_session, "INSERT BULK loaded(b int)", {{Datum::Int(2)}}), "done 1\n");
    EXPECT_EQ(Answer(*m_session, "SELECT id FROM loaded"), "row 41\nrow 42\ndone 2\n");
}

TEST_F(BulkTest, ARowThatCannotStandUndoesTheLoad) {
    const Rows rows = {{Datum::Int(1), Datum::Int(1)}, {Datum::Int(2), kNull}};
    EXPECT_EQ(Load(*m_session, "INSERT BULK loaded(a int, b int)", rows).substr(0, 10), "error 515 ");
    const Rows same = {{Datum::Int(5), Datum::Int(1)}, {Datum::Int(5), Datum::Int(1)}};
    EXPECT_EQ(Load(*m_session, "INSERT BULK loaded(id int, b int)", same).substr(0, 11), "error 2627 ");
    EXPECT_EQ(Answer(*m_session, "SELECT COUNT(*) FROM loaded"), "row 0\ndone 1\n");
}

TEST_F(BulkTest, WhatIsWrongWithTheAnnouncementIsToldAtOnce) {
    EXPECT_EQ(Load(*m_session, "INSERT BULK nowhere(a int)", {}),
              "error 208 1 Invalid object name 'nowhere'.\n");
    EXPECT_EQ(Load(*m_session, "INSERT BULK loaded(z int)", {}), "error 207 1 Invalid column name 'z'.\n");
    Load(*m_session, "INSERT BULK loaded(a int)", {});
    EXPECT_FALSE(m_session->AwaitsRows());
    EXPECT_EQ(Answer(*m_session, "INSERT BULK loaded(a int)"), "");
    Answer(*m_session, "SELECT 1");
    EXPECT_FALSE(m_session->AwaitsRows()) << "another batch gives the load up";
}

TEST_F(BulkTest, ToPassByConstraintsAndTriggersIsForThoseWhoMayAlterTheTable) {
    Answer(*m_session, "CREATE LOGIN eve WITH PASSWORD = 'Secret-Word-1' CREATE USER eve");
    Answer(*m_session, "GRANT INSERT ON loaded TO eve INSERT parents VALUES (99)");
    const auto eve = m_server.Open("tempdb", "eve");
    const Rows rows = {{kNull, Datum::Int(1), Datum::Int(99)}};
    const std::string head = "INSERT BULK loaded(a int, b int, c int) WITH (";
    EXPECT_EQ(Load(*eve, head + "FIRE_TRIGGERS)", rows).substr(0, 11), "error 1088 ");
    EXPECT_EQ(Load(*eve, head + "CHECK_CONSTRAINTS)", rows).substr(0, 11), "error 1088 ");
    EXPECT_EQ(Load(*eve, head + "CHECK_CONSTRAINTS, FIRE_TRIGGERS)", rows), "info fired 1\ndone 1\n");
    EXPECT_EQ(Load(*m_session, head + "CHECK_CONSTRAINTS)", rows), "done 1\n");
}

} // namespace
} // namespace quillon::practice
