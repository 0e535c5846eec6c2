#include "support/FaultyServices.h"

namespace quillon::tests {
namespace {

class FaultyReader : public LineReader {
  public:
    FaultyReader(std::unique_ptr<LineReader> reader, FaultPlan& plan)
        : m_reader(std::move(reader))
        , m_plan(plan) {}

    bool ReadLine(std::string& line) override {
        m_plan.Ask("LineReader.ReadLine");
        return m_reader->ReadLine(line);
    }

  private:
    std::unique_ptr<LineReader> m_reader;
    FaultPlan& m_plan;
};

class FaultyWriter : public FileWriter {
  public:
    FaultyWriter(std::unique_ptr<FileWriter> writer, FaultPlan& plan)
        : m_writer(std::move(writer))
        , m_plan(plan) {}

    void Write(std::string_view text) override {
        m_plan.Ask("FileWriter.Write");
        m_writer->Write(text);
    }
    void WriteLine(std::string_view text) override {
        m_plan.Ask("FileWriter.WriteLine");
        m_writer->WriteLine(text);
    }
    void Close() override {
        m_plan.Ask("FileWriter.Close");
        m_writer->Close();
    }

  private:
    std::unique_ptr<FileWriter> m_writer;
    FaultPlan& m_plan;
};

} // namespace

std::string FaultyFiles::ApplicationFolder() const {
    m_plan.Ask("Files.ApplicationFolder");
    return m_files.ApplicationFolder();
}

bool FaultyFiles::Exists(const std::string& path) const {
    m_plan.Ask("Files.Exists", path);
    return m_files.Exists(path);
}

bool FaultyFiles::IsReadOnly(const std::string& path) const {
    m_plan.Ask("Files.IsReadOnly", path);
    return m_files.IsReadOnly(path);
}

std::string FaultyFiles::CurrentFolder() const {
    m_plan.Ask("Files.CurrentFolder");
    return m_files.CurrentFolder();
}

void FaultyFiles::ChangeFolder(const std::string& folder) {
    m_plan.Ask("Files.ChangeFolder", folder);
    m_files.ChangeFolder(folder);
}

std::unique_ptr<LineReader> FaultyFiles::OpenInput(const std::string& path) {
    m_plan.Ask("Files.OpenInput", path);
    return std::make_unique<FaultyReader>(m_files.OpenInput(path), m_plan);
}

std::unique_ptr<FileWriter> FaultyFiles::OpenOutput(const std::string& path) {
    m_plan.Ask("Files.OpenOutput", path);
    return std::make_unique<FaultyWriter>(m_files.OpenOutput(path), m_plan);
}

std::unique_ptr<FileWriter> FaultyFiles::OpenAppend(const std::string& path) {
    m_plan.Ask("Files.OpenAppend", path);
    return std::make_unique<FaultyWriter>(m_files.OpenAppend(path), m_plan);
}

std::string FaultyFiles::ReadAll(const std::string& path) {
    m_plan.Ask("Files.ReadAll", path);
    return m_files.ReadAll(path);
}

void FaultyFiles::Replace(const std::string& path, std::string_view contents, bool isPrivate) {
    m_plan.Ask("Files.Replace", path);
    m_files.Replace(path, contents, isPrivate);
}

void FaultyFiles::Delete(const std::string& path) {
    m_plan.Ask("Files.Delete", path);
    m_files.Delete(path);
}

std::optional<std::string> FaultySettings::Read(const std::string& application, const std::string& section,
                                                const std::string& key) const {
    m_plan.Ask("Settings.Read", key);
    return m_store.Read(application, section, key);
}

void FaultySettings::Write(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& value) {
    m_plan.Ask("Settings.Write", key);
    m_store.Write(application, section, key, value);
}

DateValue FaultyClock::Now() const {
    m_plan.Ask("Clock.Now");
    return m_clock.Now();
}

std::int64_t FaultyClock::TickCount() const {
    m_plan.Ask("Clock.TickCount");
    return m_clock.TickCount();
}

} // namespace quillon::tests
