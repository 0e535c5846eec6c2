// Files, settings and clock that fail when the plan says so, and else do what the service behind them does.
#pragma once

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/SettingsStore.h"
#include "support/FaultPlan.h"

namespace quillon::tests {

// Operations "Files.member", "LineReader.ReadLine", "FileWriter.Write", "FileWriter.WriteLine",
// "FileWriter.Close".
class FaultyFiles : public Files {
  public:
    FaultyFiles(Files& files, FaultPlan& plan)
        : m_files(files)
        , m_plan(plan) {}

    std::string ApplicationFolder() const override;
    bool Exists(const std::string& path) const override;
    bool IsReadOnly(const std::string& path) const override;
    std::string CurrentFolder() const override;
    void ChangeFolder(const std::string& folder) override;
    std::unique_ptr<LineReader> OpenInput(const std::string& path) override;
    std::unique_ptr<FileWriter> OpenOutput(const std::string& path) override;
    std::unique_ptr<FileWriter> OpenAppend(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view contents, bool isPrivate) override;
    void Delete(const std::string& path) override;

  private:
    Files& m_files;
    FaultPlan& m_plan;
};

// Operations "Settings.Read" and "Settings.Write", with the key as detail.
class FaultySettings : public SettingsStore {
  public:
    FaultySettings(SettingsStore& store, FaultPlan& plan)
        : m_store(store)
        , m_plan(plan) {}

    std::optional<std::string> Read(const std::string& application, const std::string& section,
                                    const std::string& key) const override;
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& value) override;

  private:
    SettingsStore& m_store;
    FaultPlan& m_plan;
};

// Operations "Clock.Now" and "Clock.TickCount".
class FaultyClock : public Clock {
  public:
    FaultyClock(Clock& clock, FaultPlan& plan)
        : m_clock(clock)
        , m_plan(plan) {}

    DateValue Now() const override;
    std::int64_t TickCount() const override;

  private:
    Clock& m_clock;
    FaultPlan& m_plan;
};

} // namespace quillon::tests
