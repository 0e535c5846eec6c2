// What a command line prints.
#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>

namespace quillon::practice::testing {

inline std::string OutputOf(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("cannot run " + command);
    }
    char buffer[512];
    while (std::size_t count = fread(buffer, 1, sizeof buffer, pipe)) {
        output.append(buffer, count);
    }
    pclose(pipe);
    return output;
}

} // namespace quillon::practice::testing
