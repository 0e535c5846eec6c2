// bench_practice: measures what is promised and says whether the promise holds. Exit code 1 when one does
// not.
#include "bench/practice/Measures.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdio>
#include <functional>
#include <map>

namespace quillon::practice::bench {

double SecondsNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

namespace {

bool Report(const std::vector<Measure>& measures) {
    bool all = true;
    for (const Measure& measure : measures) {
        std::printf("%-58s %12.2f %-10s %s %.2f  %s\n", measure.what.c_str(), measure.value,
                    measure.unit.c_str(), measure.atLeast ? "at least" : "at most ", measure.target,
                    measure.Met() ? "met" : "MISSED");
        all = all && measure.Met();
    }
    std::fflush(stdout);
    return all;
}

int Main(int argumentCount, char** arguments) {
    const std::filesystem::path binFolder = std::filesystem::canonical("/proc/self/exe").parent_path();
    const std::map<std::string, std::function<std::vector<Measure>()>> measures{
        {"inserts", [&] { return MeasureInserts(binFolder); }},
        {"bulk", [&] { return MeasureBulk(binFolder); }},
        {"streaming", [&] { return MeasureStreaming(binFolder); }},
        {"triggers", [&] { return MeasureTriggers(binFolder); }},
        {"parsing", [] { return MeasureParsing(); }},
    };
    std::vector<std::string> chosen;
    CLI::App program("Measures what is promised of the practice server's speed.");
    program.add_option("measure", chosen,
                       "inserts, bulk, streaming, triggers, parsing; all of them when none is named");
    CLI11_PARSE(program, argumentCount, arguments);
    bool all = true;
    for (const auto& [name, measure] : measures) {
        if (chosen.empty() || std::find(chosen.begin(), chosen.end(), name) != chosen.end()) {
            all = Report(measure()) && all;
        }
    }
    return all ? 0 : 1;
}

} // namespace
} // namespace quillon::practice::bench

int main(int argumentCount, char** arguments) {
    return quillon::practice::bench::Main(argumentCount, arguments);
}
