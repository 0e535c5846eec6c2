// What is promised of the practice server's speed, one measure a promise.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillon::practice::bench {

struct Measure {
    std::string what;
    double value = 0;
    std::string unit;
    double target = 0;
    bool atLeast = false; // else: at most
    bool Met() const { return atLeast ? value >= target : value <= target; }
};

// `binFolder` holds the program. Data lies in the current folder, so that the disk is the one that the person
// chose.
std::vector<Measure> MeasureInserts(const std::filesystem::path& binFolder);
std::vector<Measure> MeasureBulk(const std::filesystem::path& binFolder);
std::vector<Measure> MeasureStreaming(const std::filesystem::path& binFolder);
std::vector<Measure> MeasureTriggers(const std::filesystem::path& binFolder);
std::vector<Measure> MeasureParsing();

double SecondsNow();

} // namespace quillon::practice::bench
