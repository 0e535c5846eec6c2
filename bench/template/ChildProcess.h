// A program that a bench compares with, run to its end.
#pragma once

#include <string>
#include <vector>

namespace quillon::bench {

struct ChildRun {
    int exitCode = -1;
    double processorSeconds = 0; // its own and the kernel's for it
    double peakMegabytes = 0;    // resident
};

// Runs `arguments` (the program first, found by the search path) with its output into a file. Raises
// std::runtime_error when it cannot be started.
ChildRun RunChild(const std::vector<std::string>& arguments, const std::string& outputFile);

} // namespace quillon::bench
