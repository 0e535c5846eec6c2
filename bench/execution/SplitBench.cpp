// Cutting a script at its GO lines: 50 MB with 100,000 of them are promised in under half a second, and twice
// the script in twice the time.
#include <benchmark/benchmark.h>

#include <stdexcept>

#include "execution/GoSplitter.h"

namespace {

// Batches like those of generated triggers: words that hold the letters, short lines, CR LF.
std::string Script(std::size_t batches) {
    constexpr std::string_view line =
        "    INSERT INTO AUDIT_LOG_DATA (CATEGORY, OLD_VALUE) SELECT c, v FROM deleted\r\n";
    std::string batch;
    while (batch.size() + line.size() < 500)
        batch += line;
    batch += "\r\nGO\r\n";
    std::string script;
    script.reserve(batches * batch.size());
    for (std::size_t index = 0; index < batches; ++index)
        script += batch;
    return script;
}

void Split(benchmark::State& state) {
    const auto batches = static_cast<std::size_t>(state.range(0));
    const std::string script = Script(batches);
    std::size_t turns = 0;
    for (auto _ : state) {
        const auto found = quillon::SplitAtGo(script, [&] { ++turns; });
        if (found.size() != batches)
            throw std::logic_error("a batch was lost");
        benchmark::DoNotOptimize(found);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(script.size()));
    state.counters["MB"] = static_cast<double>(script.size()) / 1e6;
}
BENCHMARK(Split)->Arg(50000)->Arg(100000)->Arg(200000)->Unit(benchmark::kMillisecond);

} // namespace
