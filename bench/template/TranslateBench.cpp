// Translating a template of 200,000 mixed lines, side by side with GNU sed doing one substitution a line on
// the same file. Times are processor time; the two programs are measured alike, from their start to their
// end.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "adapters/files/DiskFiles.h"
#include "platform/Platform.h"
#include "shell/Trace.h"
#include "support/BenchFolder.h"
#include "support/HeapMeter.h"
#include "template/ChildProcess.h"
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"

namespace quillon::bench {
namespace {

constexpr int LineCount = 200000;

// template.txt, of so many lines.
class TemplateFile {
  public:
    explicit TemplateFile(int lineCount) {
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
        std::ofstream file(Template(), std::ios::binary);
        for (int i = 0; i < lineCount; ++i)
            file << lines[static_cast<std::size_t>(i) % lines.size()] << '\n';
    }

    std::string Folder() const { return m_folder.path().string(); }
    std::string Template() const { return m_folder.PathOf("template.txt"); }
    std::string Output() const { return m_folder.PathOf("printed.txt"); }

  private:
    BenchFolder m_folder;
};

// Runs of one program, for the middle one of their times.
class Runs {
  public:
    // Seconds of processor time; raises std::runtime_error when the program failed.
    double Add(const std::vector<std::string>& arguments, const std::string& output) {
        const ChildRun run = RunChild(arguments, output);
        if (run.exitCode != 0 || std::filesystem::file_size(output) == 0)
            throw std::runtime_error(arguments[0] + " failed");
        m_seconds.push_back(run.processorSeconds);
        m_megabytes = run.peakMegabytes;
        return run.processorSeconds;
    }
    double Seconds() {
        std::ranges::sort(m_seconds);
        return m_seconds[m_seconds.size() / 2];
    }
    double Megabytes() const { return m_megabytes; }

  private:
    std::vector<double> m_seconds;
    double m_megabytes = 0;
};

// The two in turn, so that both take the machine's moods alike.
void TranslateBesideSed(benchmark::State& state) {
    const TemplateFile file(LineCount);
    Runs sed, console;
    for (auto _ : state) {
        sed.Add({"sed", "s/e/E/", file.Template()}, file.Output());
        state.SetIterationTime(
            console.Add({QUILLON_BIN_DIR "/quillon-console", "translate", file.Template()}, file.Output()));
    }
    state.counters["sed_ms"] = 1000 * sed.Seconds();
    state.counters["ms"] = 1000 * console.Seconds();
    state.counters["ratio"] = console.Seconds() / sed.Seconds();
    state.counters["MB"] = console.Megabytes();
}
BENCHMARK(TranslateBesideSed)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);

// The session's road through the scratch files, with the whole script in memory; per line the memory must
// stay the same.
void SessionTranslate(benchmark::State& state) {
    const int lineCount = static_cast<int>(state.range(0));
    const TemplateFile file(lineCount);
    adapters::DiskFiles files(file.Folder(), file.Folder());
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
