#include "practice/catalogue/SampleDatabase.h"
#include "practice/catalogue/SystemProcedures.h"
#include "practice/tsql/Parser.h"
#include "practice/values/SqlError.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

std::string Fault(const std::string& batch) {
    try {
        tsql::ParseBatch(batch);
        return "";
    } catch (const SqlError& error) {
        return std::to_string(error.line) + ": " + error.text;
    }
}

TEST(SystemProcedures, EveryTextIsOneProcedureOfItsName) {
    ASSERT_GT(AllSystemProcedures().size(), 40u);
    for (const SystemProcedure& procedure : AllSystemProcedures()) {
        EXPECT_EQ("", Fault(std::string(procedure.text))) << procedure.name;
        EXPECT_TRUE(procedure.text.starts_with("CREATE PROCEDURE sys." + std::string(procedure.name)))
            << procedure.name;
        EXPECT_EQ(&procedure, FindSystemProcedure(procedure.name)) << "twice: " << procedure.name;
    }
    EXPECT_NE(nullptr, FindSystemProcedure("SP_HelpText"));
    EXPECT_EQ(nullptr, FindSystemProcedure("sp_nothing"));
    EXPECT_NE(nullptr, FindNativeProcedure("q_rename"));
}

TEST(SampleDatabase, EveryBatchIsTransactSql) {
    const std::vector<std::string> batches = SampleDatabaseBatches();
    ASSERT_GT(batches.size(), 20u);
    for (const std::string& batch : batches)
        EXPECT_EQ("", Fault(batch)) << batch.substr(0, 60);
}

} // namespace
} // namespace quillon::practice
