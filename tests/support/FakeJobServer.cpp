#include "support/FakeJobServer.h"

#include <algorithm>

#include "platform/FailureNumbers.h"
#include "support/SameText.h"

namespace quillon::tests {

void FakeJob::Start() {
    m_plan.Ask("Job.Start", Name);
    if (!m_server.IsRunning)
        throw Failure(numbers::AgentNotRunning);
}

void FakeJob::Remove() {
    m_plan.Ask("Job.Remove", Name);
    std::erase_if(m_server.Jobs, [this](const auto& job) { return job.get() == this; });
}

void FakeJob::ApplyToTargetServer(const std::string& server) {
    m_plan.Ask("Job.ApplyToTargetServer", Name);
    Targets.push_back(server);
}

std::vector<JobStep> FakeJob::Steps() {
    m_plan.Ask("Job.Steps", Name);
    return StepList;
}

void FakeJob::AddStep(const JobStep& step) {
    m_plan.Ask("Job.AddStep", Name);
    StepList.push_back(step);
}

void FakeJob::AddSchedule(const JobScheduleRef& schedule) {
    m_plan.Ask("Job.AddSchedule", Name);
    Schedules.push_back(schedule);
}

JobScheduleRef FakeJob::ScheduleAt(std::size_t position) {
    m_plan.Ask("Job.ScheduleAt", Name);
    if (position < 1 || position > Schedules.size())
        throw Failure(numbers::ItemNotFound);
    return Schedules[position - 1];
}

std::vector<JobHistoryRow> FakeJob::EnumHistory() {
    m_plan.Ask("Job.EnumHistory", Name);
    return History;
}

void FakeJob::PurgeHistory() {
    m_plan.Ask("Job.PurgeHistory", Name);
    History.clear();
}

FakeJob& FakeJobServer::Add(const std::string& name) {
    const auto job = std::make_shared<FakeJob>(*this, m_plan);
    job->Name = name;
    Jobs.push_back(job);
    return *job;
}

JobRef FakeJobServer::NewJob() {
    m_plan.Ask("JobServer.NewJob");
    return std::make_shared<FakeJob>(*this, m_plan);
}

JobScheduleRef FakeJobServer::NewSchedule() {
    m_plan.Ask("JobServer.NewSchedule");
    return std::make_shared<FakeSchedule>(m_plan);
}

JobRef FakeJobServer::JobAt(std::size_t position) {
    m_plan.Ask("JobServer.JobAt");
    if (position < 1 || position > Jobs.size())
        throw Failure(numbers::ItemNotFound);
    return Jobs[position - 1];
}

JobRef FakeJobServer::JobNamed(const std::string& name) {
    m_plan.Ask("JobServer.JobNamed", name);
    const auto found = std::ranges::find_if(Jobs, [&](const auto& job) { return SameText(job->Name, name); });
    if (found == Jobs.end())
        throw Failure(numbers::ItemNotFound);
    return *found;
}

void FakeJobServer::AddJob(const JobRef& job) {
    m_plan.Ask("JobServer.AddJob", job->Name);
    if (std::ranges::any_of(Jobs, [&](const auto& other) { return SameText(other->Name, job->Name); }))
        throw Failure(numbers::JobExists);
    Jobs.push_back(std::dynamic_pointer_cast<FakeJob>(job));
}

} // namespace quillon::tests
