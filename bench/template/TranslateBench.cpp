// Translating a template of 200,000 mixed lines, side by side with GNU sed doing one substitution a line on
// the same file. Times are processor time; the two programs are measured alike, from their start to their
// end.
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "adapters/files/DiskFiles.h"
#include "platform/Platform.h"
#include "shell/Trace.h"
#include "support/HeapMeter.h"
#include "template/ChildProcess.h"
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"

namespace quillon::bench {
namespace {

namespace fs = std::filesystem;

constexpr int LineCount = 200000;

// A folder with template.txt, gone at its end.
class BenchFolder {
  public:
    explicit BenchFolder(int lineCount)
        : m_path(fs::temp_directory_path() / ("quillon-bench-" + std::to_string(getpid()))) {
        static constexpr std::array lines{"CREATE TRIGGER {% objAudit.Print strName %} ON t",
                                          "",
                                          "{% For i = 1 To 2 %}",
                                          "  -- col {% objAudit.Print i %}",
                                          "{% Next %}",
                                          "\t{% x = 1 %}",
                                          "GO {% y = 2",
                                          "z = 3",
                                          "%} END",
                                          "a {% p %} b {% q %} c",
                                          "say \"hi\"",
                                          "    SELECT column_name, other_name FROM inserted WHERE id = 1"};
        fs::create_directories(m_path);
        std::ofstream file(Template(), std::ios::binary);
        for (int i = 0; i < lineCount; ++i)
            file << lines[static_cast<std::size_t>(i) % lines.size()] << '\n';
    }
    ~BenchFolder() { fs::remove_all(m_path); }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    const fs::path& path() const { return m_path; }
    std::string Template() const { return (m_path / "template.txt").string(); }
    std::string Output() const { return (m_path / "printed.txt").string(); }

  private:
    fs::path m_path;
};

void RunProgram(benchmark::State& state, std::vector<std::string> arguments) {
    const BenchFolder folder(LineCount);
    arguments.push_back(folder.Template());
    double memory = 0;
    for (auto _ : state) {
        const ChildRun run = RunChild(arguments, folder.Output());
        if (run.exitCode != 0 || fs::file_size(folder.Output()) == 0)
            state.SkipWithError("the program failed");
        state.SetIterationTime(run.processorSeconds);
        memory = run.peakMegabytes;
    }
    state.counters["MB"] = memory;
}

void Sed(benchmark::State& state) {
    RunProgram(state, {"sed", "s/e/E/"});
}
BENCHMARK(Sed)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);

void ConsoleTranslate(benchmark::State& state) {
    RunProgram(state, {QUILLON_BIN_DIR "/quillon-console", "translate"});
}
BENCHMARK(ConsoleTranslate)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);

// The session's road through the scratch files, with the whole script in memory; per line the memory must
// stay the same.
void SessionTranslate(benchmark::State& state) {
    const int lineCount = static_cast<int>(state.range(0));
    const BenchFolder folder(lineCount);
    adapters::DiskFiles files(folder.path().string(), folder.path().string());
    const Platform platform({.files = &files});
    g_objTrace = std::make_unique<Trace>();
    double most = 0;
    for (auto _ : state) {
        StartPeak();
        const std::size_t before = HeapBytes();
        std::string script = basNewTemplate::ProcessFile();
        basNewTemplate::ProcessScript(script);
        basProcTemplate::WrapCodeForExec(script);
        if (script.size() < static_cast<std::size_t>(lineCount))
            state.SkipWithError("the translation failed");
        most = static_cast<double>(PeakHeapBytes() - before);
    }
    state.counters["BytesPerLine"] = most / lineCount;
    g_objTrace.reset();
}
BENCHMARK(SessionTranslate)
    ->Arg(LineCount / 4)
    ->Arg(LineCount)
    ->Arg(LineCount * 4)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quillon::bench
