// The doubles that other tests trust: faults come when planned, and wrapped services are the ones behind
// them.
#include "SessionFixture.h"
#include "platform/FailureNumbers.h"
#include "support/FailureNumberOf.h"
#include "support/FakeJobServer.h"
#include "support/FakeSpreadsheet.h"

namespace quillon::tests {
namespace {

using Names = std::vector<std::string>;

TEST(FaultPlan, FailsTheCallsThatWereNamedAndNoOther) {
    FaultPlan plan;
    plan.FailAt("a", 2, Failure(numbers::DiskFull));
    plan.FailAt("a", 4, Failure(numbers::Overflow));
    std::vector<std::int32_t> seen;
    for (int i = 0; i < 5; ++i)
        seen.push_back(FailureNumberOf([&] { plan.Ask("a"); }));
    EXPECT_EQ(seen, (std::vector<std::int32_t>{0, numbers::DiskFull, 0, numbers::Overflow, 0}));
    plan.FailAlways("b", Failure(numbers::DiskFull));
    EXPECT_EQ(FailureNumberOf([&] { plan.Ask("b", "x"); }), numbers::DiskFull);
    EXPECT_EQ(FailureNumberOf([&] { plan.Ask("b"); }), numbers::DiskFull);
    plan.Forget();
    EXPECT_EQ(FailureNumberOf([&] { plan.Ask("b"); }), 0);
    EXPECT_EQ(plan.Calls("a"), 5);
    EXPECT_EQ(plan.Log[5], "b x");
}

TEST(Doubles, ACatalogueElementIsOneHoweverItIsReached) {
    DoubledPlatform doubled;
    FakeTable& titles = doubled.catalogue.Server().AddDatabase("pubs").AddTable("dbo", "titles");
    titles.AddTrigger("dbo", "trg", catalogue::TriggerInsert | catalogue::TriggerDelete, "CREATE TRIGGER");
    const auto server = ThePlatform().catalogue().NewServer();
    catalogue::Table& table = server->DatabaseNamed("PUBS").TableNamed("DBO.Titles");
    EXPECT_EQ(&table, &server->DatabaseAt(0).TableAt(0));
    EXPECT_EQ(&table.TriggerAt(0), &table.TriggerNamed("dbo.TRG"));
    doubled.plan.FailAt("Trigger.SetEnabled", 1, Failure(numbers::DataAccess));
    EXPECT_EQ(FailureNumberOf([&] { table.TriggerAt(0).SetEnabled(false); }), numbers::DataAccess);
    EXPECT_TRUE(titles.Triggers[0]->IsEnabled);
    table.TriggerAt(0).SetEnabled(false);
    EXPECT_FALSE(titles.Triggers[0]->IsEnabled);
    table.TriggerAt(0).Remove();
    EXPECT_EQ(table.TriggerCount(), 0u);
    EXPECT_EQ(FailureNumberOf([&] { table.TriggerAt(0); }), numbers::ItemNotFound);
    EXPECT_EQ(FailureNumberOf([&] { server->DatabaseNamed("none"); }), numbers::ItemNotFound);
}

TEST(Doubles, StatementsAreAnsweredInTurnThroughTheWrappers) {
    DoubledPlatform doubled;
    doubled.data.Answer(
        "select", FakeAnswer({{{"id", "name"}, {{Value(1.0), "a"}, {Value(2.0), "b"}}}, {}, {{"x"}, {}}}));
    doubled.data.Answer("select", FakeAnswer(Failure(numbers::LinkBroken)));
    const auto connection = ThePlatform().dataAccess().NewConnection();
    const auto rows = ThePlatform().dataAccess().NewRecordset();
    const auto open = [&](const char* sql) {
        return FailureNumberOf(
            [&] { rows->Open(sql, connection, data::CursorType::Static, data::LockType::ReadOnly); });
    };
    EXPECT_EQ(open("select"), numbers::ObjectClosed);
    connection->Open("Provider=sqloledb;Initial Catalog=pubs;");
    EXPECT_EQ(connection->DefaultDatabase(), "pubs");
    EXPECT_EQ(open("select"), 0);
    EXPECT_EQ(rows->FieldNamed("NAME").Value, Value("a"));
    EXPECT_EQ(FailureNumberOf([&] { rows->FieldAt(2); }), numbers::ItemNotFound);
    rows->MoveNext();
    EXPECT_EQ(rows->GetRows().size(), 1u);
    EXPECT_TRUE(rows->Eof());
    const auto second = rows->NextRecordset();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->State(), data::ObjectState::Closed); // a statement without rows
    const auto third = second->NextRecordset();
    EXPECT_TRUE(third->Bof() && third->Eof());
    EXPECT_EQ(third->NextRecordset(), nullptr);
    EXPECT_EQ(open("select"), numbers::LinkBroken);
    EXPECT_EQ(open("delete"), numbers::DataAccess); // nothing was prepared
    EXPECT_EQ(doubled.data.Data().Statements, (Names{"select", "select", "delete"}));
}

TEST(Doubles, CommandsFillTheirParameters) {
    DoubledPlatform doubled;
    FakeAnswer answer;
    answer.Parameters = {{"RETURN_VALUE", Value(std::int32_t{7})}};
    doubled.data.Answer("AUDIT_prc", answer);
    const auto connection = ThePlatform().dataAccess().NewConnection();
    connection->Open("Initial Catalog=pubs");
    const auto command = ThePlatform().dataAccess().NewCommand();
    command->SetActiveConnection(connection);
    command->SetCommandText("AUDIT_prc");
    data::Parameter result;
    result.Name = "RETURN_VALUE";
    result.Direction = data::ParameterDirection::ReturnValue;
    command->AppendParameter(result);
    command->Execute();
    EXPECT_EQ(command->ParameterNamed("RETURN_VALUE").Value, Value(std::int32_t{7}));
    EXPECT_EQ(FailureNumberOf([&] { command->ParameterNamed("none"); }), numbers::ItemNotFound);
}

TEST(Doubles, TheJobAgentKeepsItsJobs) {
    FaultPlan plan;
    FakeJobServer agent{plan};
    agent.Add("Nightly").History.emplace_back().RunStatus = 1;
    JobServer& jobs = agent;
    const JobRef job = jobs.NewJob();
    job->Name = "NIGHTLY";
    EXPECT_EQ(FailureNumberOf([&] { jobs.AddJob(job); }), numbers::JobExists);
    job->Name = "Weekly";
    jobs.AddJob(job);
    EXPECT_EQ(jobs.JobNamed("weekly"), jobs.JobAt(2));
    job->AddStep({});
    job->AddSchedule(jobs.NewSchedule());
    EXPECT_EQ(FailureNumberOf([&] { job->ScheduleAt(2); }), numbers::ItemNotFound);
    agent.IsRunning = false;
    EXPECT_EQ(FailureNumberOf([&] { job->Start(); }), numbers::AgentNotRunning);
    plan.FailAt("Job.Remove", 1, Failure(numbers::DataAccess));
    EXPECT_EQ(FailureNumberOf([&] { job->Remove(); }), numbers::DataAccess);
    EXPECT_EQ(jobs.JobCount(), 2u);
    job->Remove();
    jobs.JobAt(1)->PurgeHistory();
    EXPECT_EQ(jobs.JobCount(), 1u);
    EXPECT_TRUE(jobs.JobAt(1)->EnumHistory().empty());
}

TEST(Doubles, WorkbooksKeepTheirCells) {
    FaultPlan plan;
    FakeSpreadsheets spreadsheets{plan};
    plan.FailAt("Spreadsheets.NewWorkbook", 1, Failure(numbers::CannotCreateObject));
    EXPECT_EQ(FailureNumberOf([&] { spreadsheets.NewWorkbook(); }), numbers::CannotCreateObject);
    {
        const auto sheet = spreadsheets.NewWorkbook();
        sheet->SetCell(1, 2, "b");
        sheet->SetCell(1, 2, "c");
        sheet->AutoFitColumns();
        sheet->Show();
    }
    ASSERT_EQ(spreadsheets.Books.size(), 1u);
    EXPECT_EQ(spreadsheets.Books[0].Cells.at({1, 2}), Value("c"));
    EXPECT_TRUE(spreadsheets.Books[0].IsFitted && spreadsheets.Books[0].IsShown);
}

TEST(Doubles, FilesInMemoryActAsFiles) {
    DoubledPlatform doubled;
    Files& files = ThePlatform().files();
    files.OpenOutput("x.txt")->WriteLine("one");
    files.OpenAppend("\\home\\x.txt")->Write("two\rthree");
    const auto reader = files.OpenInput("x.txt");
    Names lines;
    for (std::string line; reader->ReadLine(line);)
        lines.push_back(line);
    EXPECT_EQ(lines, (Names{"one", "two", "three"}));
    doubled.memoryFiles.ReadOnly.insert("\\home\\x.txt");
    EXPECT_EQ(FailureNumberOf([&] { files.Replace("x.txt", ""); }), numbers::PathFileAccess);
    files.Delete("x.txt");
    EXPECT_EQ(FailureNumberOf([&] { files.Delete("x.txt"); }), numbers::FileNotFound);
    EXPECT_EQ(FailureNumberOf([&] { files.OpenInput("x.txt"); }), numbers::FileNotFound);
}

} // namespace
} // namespace quillon::tests
