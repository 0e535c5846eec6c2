// The server's job agent: jobs, steps, schedules, history, with the shape of SQL-DMO.
//
// Used by: jobs/ (purge jobs, job list, schedule editor, properties, history).
// Implemented by: adapters/catalogue. Failures: JobExists when a name is taken, AgentNotRunning from Start.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Value.h"

namespace quillon {

struct JobStep {
    std::string Name;
    std::int32_t StepID = 0;
    std::string DatabaseName;
    std::string SubSystem;
    std::string Command;
    std::int32_t OnSuccessAction = 1; // 1 quit with success
    std::int32_t OnFailAction = 2;    // 2 quit with failure
};

// How often, when, and between which dates; dates are yyyymmdd, times hhmmss.
struct Schedule {
    std::int32_t FrequencyType = 0; // 1 once, 4 daily, 8 weekly, 16 monthly, 32 monthly relative
    std::int32_t FrequencyInterval = 0;
    std::int32_t FrequencyRecurrenceFactor = 0;
    std::int32_t FrequencyRelativeInterval = 0; // 1 first, 2 second, 4 third, 8 fourth, 16 last
    std::int32_t FrequencySubDay = 0;           // 1 once a day, 4 minutes, 8 hours
    std::int32_t FrequencySubDayInterval = 0;
    std::int32_t ActiveStartDate = 0;
    std::int32_t ActiveEndDate = 0; // 0 or 99991231: no end
    std::int32_t ActiveStartTimeOfDay = 0;
    std::int32_t ActiveEndTimeOfDay = 0;
};

class JobSchedule {
  public:
    virtual ~JobSchedule() = default;
    std::string Name;
    quillon::Schedule Schedule;
    virtual void BeginAlter() = 0;
    virtual void DoAlter() = 0;
    virtual void CancelAlter() = 0;
};
using JobScheduleRef = std::shared_ptr<JobSchedule>;

struct JobHistoryRow {
    std::int32_t RunStatus = 0;   // 0 failed, 1 succeeded, 3 cancelled, 4 in progress, 5 unknown
    std::int32_t RunDate = 0;     // yyyymmdd
    std::int32_t RunTime = 0;     // hhmmss
    std::int32_t RunDuration = 0; // seconds
    std::string Notifications;
    std::string Message;
};

class Job {
  public:
    virtual ~Job() = default;
    std::string Name;
    std::string Description;
    std::int32_t StartStepID = 0;
    std::int32_t DeleteLevel = 0; // 3: the server removes the job after its run

    virtual DateValue DateCreated() const = 0;
    virtual std::int32_t LastRunDate() const = 0; // yyyymmdd, 0 when never run
    virtual std::int32_t LastRunOutcome() const = 0;
    virtual void Refresh() = 0;
    virtual void Start() = 0;
    virtual void Remove() = 0;
    virtual void BeginAlter() = 0;
    virtual void DoAlter() = 0;
    virtual void ApplyToTargetServer(const std::string& server) = 0;
    virtual std::vector<JobStep> Steps() = 0;
    virtual void AddStep(const JobStep& step) = 0;
    virtual void AddSchedule(const JobScheduleRef& schedule) = 0;
    virtual JobScheduleRef ScheduleAt(std::size_t position) = 0; // from 1; fails when there is none
    virtual std::vector<JobHistoryRow> EnumHistory() = 0;
    virtual void PurgeHistory() = 0;
};
using JobRef = std::shared_ptr<Job>;

class JobServer {
  public:
    virtual ~JobServer() = default;
    virtual JobRef NewJob() = 0;
    virtual JobScheduleRef NewSchedule() = 0;
    virtual void Refresh() = 0;
    virtual std::size_t JobCount() = 0;
    virtual JobRef JobAt(std::size_t position) = 0; // from 1
    virtual JobRef JobNamed(const std::string& name) = 0;
    virtual void AddJob(const JobRef& job) = 0;
};

} // namespace quillon
