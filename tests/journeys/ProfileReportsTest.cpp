// The default profile's reports and purge, by the client's calls.
#include "journeys/ProfileJourney.h"

namespace quillon::tests {
namespace {

using ProfileReports = ProfileJourney;

TEST_F(ProfileReports, ReportsAndPurgeAnswerTheClientsCalls) {
    Audit({ItemTable}, {"dbo.Item"});
    for (int i = 1; i <= 5; ++i)
        Run("INSERT INTO dbo.Item VALUES (" + std::to_string(i) + ", N'n" + std::to_string(i) + "', 1)");
    EXPECT_EQ(
        Ask("AUDIT_prc_StandardReport @TABLE_NAME = NULL, @TABLE_OWNER = NULL, @FIELD_NAME = NULL, "
            "@USER_NAME = NULL, "
            "@DATE_FROM = NULL, @DATE_TO = NULL, @ACTION_ID = NULL, @OLD_VALUE = NULL, @NEW_VALUE = NULL, "
            "@ROW_COUNT = NULL, @HOST_NAME = NULL, @APP_NAME = NULL")
            .size(),
        15u);
    EXPECT_EQ(Ask("AUDIT_prc_StandardReport @TABLE_NAME = 'Item', @TABLE_OWNER = 'dbo', @FIELD_NAME = "
                  "'Name', @USER_NAME = 'dbo', "
                  "@DATE_FROM = '20000101', @DATE_TO = '20990101', @ACTION_ID = '2', @OLD_VALUE = NULL, "
                  "@NEW_VALUE = 'n%', "
                  "@ROW_COUNT = '3', @HOST_NAME = NULL, @APP_NAME = NULL")
                  .size(),
              3u);
    EXPECT_EQ(Ask("SELECT TABLE_NAME, ACTION, COUNT(*) FROM AUDIT_VIEW GROUP BY TABLE_NAME, ACTION"),
              (Lines{"Item|Insert|5"}));
    Run("UPDATE AUDIT_LOG_TRANSACTIONS SET MODIFIED_DATE = DATEADD(month, -2, MODIFIED_DATE) WHERE "
        "AUDIT_LOG_TRANSACTION_ID <= 4");
    Run("EXEC Sales.dbo.AUDIT_prc_Purge_AUDIT_LOG NULL, 1, NULL");
    EXPECT_EQ(Statements(), "5");
    Run("EXEC Sales.dbo.AUDIT_prc_Purge_AUDIT_LOG 1, 3, 3");
    EXPECT_EQ(Statements(), "3");
    Run("EXEC Sales.dbo.AUDIT_prc_Purge_AUDIT_LOG 5, 2, NULL");
    EXPECT_EQ(Ask("SELECT AUDIT_LOG_TRANSACTION_ID FROM AUDIT_LOG_TRANSACTIONS"), (Lines{"5"}));
    EXPECT_EQ(AskOne("SELECT COUNT(*) FROM AUDIT_LOG_DATA"), "3");
}

} // namespace
} // namespace quillon::tests
