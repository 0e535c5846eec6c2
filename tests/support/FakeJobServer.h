// A job agent in memory: what a test changes shows at once, as if another client had changed it. Fails where
// the plan says so.
//
//     FakeJobServer agent{plan};
//     auto& job = agent.Add("Nightly purge");
//     job.History.emplace_back().RunStatus = 1;
//
// Operations "JobServer.member", "Job.member" with the job's name as detail, "JobSchedule.member" with the
// schedule's. Names compare without regard to case.
#pragma once

#include "platform/JobServer.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

class FakeJobServer;

class FakeSchedule : public JobSchedule {
  public:
    explicit FakeSchedule(FaultPlan& plan)
        : m_plan(plan) {}
    void BeginAlter() override { m_plan.Ask("JobSchedule.BeginAlter", Name); }
    void DoAlter() override { m_plan.Ask("JobSchedule.DoAlter", Name); }
    void CancelAlter() override { m_plan.Ask("JobSchedule.CancelAlter", Name); }

  private:
    FaultPlan& m_plan;
};

class FakeJob : public Job {
  public:
    FakeJob(FakeJobServer& server, FaultPlan& plan)
        : m_server(server)
        , m_plan(plan) {}

    DateValue Created{36526};
    std::int32_t LastRun = 0;     // yyyymmdd
    std::int32_t LastOutcome = 5; // unknown
    std::vector<JobStep> StepList;
    std::vector<JobScheduleRef> Schedules;
    std::vector<JobHistoryRow> History;
    std::vector<std::string> Targets; // servers it was applied to

    DateValue DateCreated() const override { return Created; }
    std::int32_t LastRunDate() const override { return LastRun; }
    std::int32_t LastRunOutcome() const override { return LastOutcome; }
    void Refresh() override { m_plan.Ask("Job.Refresh", Name); }
    // Raises AgentNotRunning while the agent is stopped.
    void Start() override;
    void Remove() override;
    void BeginAlter() override { m_plan.Ask("Job.BeginAlter", Name); }
    void DoAlter() override { m_plan.Ask("Job.DoAlter", Name); }
    void ApplyToTargetServer(const std::string& server) override;
    std::vector<JobStep> Steps() override;
    void AddStep(const JobStep& step) override;
    void AddSchedule(const JobScheduleRef& schedule) override;
    JobScheduleRef ScheduleAt(std::size_t position) override;
    std::vector<JobHistoryRow> EnumHistory() override;
    void PurgeHistory() override;

  private:
    FakeJobServer& m_server;
    FaultPlan& m_plan;
};

class FakeJobServer : public JobServer {
  public:
    explicit FakeJobServer(FaultPlan& plan)
        : m_plan(plan) {}

    bool IsRunning = true;
    std::vector<std::shared_ptr<FakeJob>> Jobs;

    // A job that is there before the test begins.
    FakeJob& Add(const std::string& name);

    JobRef NewJob() override;
    JobScheduleRef NewSchedule() override;
    void Refresh() override { m_plan.Ask("JobServer.Refresh"); }
    std::size_t JobCount() override { return Jobs.size(); }
    JobRef JobAt(std::size_t position) override;
    JobRef JobNamed(const std::string& name) override;
    // Raises JobExists for a name in use.
    void AddJob(const JobRef& job) override;

  private:
    FaultPlan& m_plan;
};

} // namespace quillon::tests
