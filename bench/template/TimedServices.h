// The files and the script host of a run, with the processor time spent in them.
#pragma once

#include <ctime>

#include "platform/Files.h"
#include "platform/ScriptHost.h"

namespace quillon::bench {

// Processor seconds of this thread.
inline double Now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// Adds the time of its life to a total.
class Spent {
  public:
    explicit Spent(double& total)
        : m_total(total) {}
    ~Spent() { m_total += Now() - m_start; }
    Spent(const Spent&) = delete;
    Spent& operator=(const Spent&) = delete;

  private:
    double& m_total;
    double m_start = Now();
};

class TimedWriter final : public FileWriter {
  public:
    TimedWriter(std::unique_ptr<FileWriter> writer, double& total)
        : m_writer(std::move(writer))
        , m_total(total) {}
    ~TimedWriter() override {
        const Spent spent(m_total);
        m_writer.reset();
    }
    void Write(std::string_view text) override {
        const Spent spent(m_total);
        m_writer->Write(text);
    }
    void WriteLine(std::string_view text) override {
        const Spent spent(m_total);
        m_writer->WriteLine(text);
    }
    void Close() override {
        const Spent spent(m_total);
        m_writer->Close();
    }

  private:
    std::unique_ptr<FileWriter> m_writer;
    double& m_total;
};

// Reading by lines is not timed: a run reads its scratch files whole.
class TimedFiles final : public Files {
  public:
    explicit TimedFiles(Files& files)
        : m_files(files) {}

    double seconds = 0;

    std::string ApplicationFolder() const override { return m_files.ApplicationFolder(); }
    bool Exists(const std::string& path) const override {
        const Spent spent(const_cast<double&>(seconds));
        return m_files.Exists(path);
    }
    bool IsReadOnly(const std::string& path) const override { return m_files.IsReadOnly(path); }
    std::string CurrentFolder() const override { return m_files.CurrentFolder(); }
    void ChangeFolder(const std::string& folder) override {
        const Spent spent(seconds);
        m_files.ChangeFolder(folder);
    }
    std::unique_ptr<LineReader> OpenInput(const std::string& path) override {
        const Spent spent(seconds);
        return m_files.OpenInput(path);
    }
    std::unique_ptr<FileWriter> OpenOutput(const std::string& path) override {
        const Spent spent(seconds);
        return std::make_unique<TimedWriter>(m_files.OpenOutput(path), seconds);
    }
    std::unique_ptr<FileWriter> OpenAppend(const std::string& path) override {
        const Spent spent(seconds);
        return std::make_unique<TimedWriter>(m_files.OpenAppend(path), seconds);
    }
    std::string ReadAll(const std::string& path) override {
        const Spent spent(seconds);
        return m_files.ReadAll(path);
    }
    void Replace(const std::string& path, std::string_view contents, bool isPrivate) override {
        const Spent spent(seconds);
        m_files.Replace(path, contents, isPrivate);
    }
    void Delete(const std::string& path) override {
        const Spent spent(seconds);
        m_files.Delete(path);
    }

  private:
    Files& m_files;
};

// The host as a run uses it. `compiling` and `running` outlive it.
class TimedHost final : public ScriptHost {
  public:
    TimedHost(std::unique_ptr<ScriptHost> host, double& compiling, double& running)
        : m_host(std::move(host))
        , m_compiling(compiling)
        , m_running(running) {}

    void Reset() override {
        const Spent spent(m_compiling);
        m_host->Reset();
    }
    std::string Language() const override { return m_host->Language(); }
    void SetLanguage(std::string_view name) override { m_host->SetLanguage(name); }
    void AddObject(std::string_view name, ObjectRef object, bool addMembers) override {
        m_host->AddObject(name, std::move(object), addMembers);
    }
    void AddCode(std::string_view text) override {
        const Spent spent(m_compiling);
        m_host->AddCode(text);
    }
    Value Run(std::string_view procedure, std::span<Value> arguments) override {
        const Spent spent(m_running);
        return m_host->Run(procedure, arguments);
    }
    Value Eval(std::string_view expression) override {
        const Spent spent(m_running);
        return m_host->Eval(expression);
    }
    const ScriptError& Error() const override { return m_host->Error(); }
    void Stop() override { m_host->Stop(); }

  private:
    std::unique_ptr<ScriptHost> m_host;
    double& m_compiling;
    double& m_running;
};

} // namespace quillon::bench
