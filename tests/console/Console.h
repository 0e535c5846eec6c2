// What tests of the command line share: the built program in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include <sys/wait.h>

#include "support/TemporaryFolder.h"

namespace quillon::tests {

class Console : public testing::Test {
  protected:
    // Runs quillon-console with a home of its own; standard output is the result.
    std::string Run(const std::string& arguments) {
        const std::string command = "cd '" + folder.path().string() +
                                    "' && HOME=. XDG_CONFIG_HOME= XDG_DATA_HOME= QUILLON_HOME=$PWD/app '" +
                                    QUILLON_BIN_DIR "/quillon-console' " + arguments + " 2>errors.txt";
        FILE* pipe = popen(command.c_str(), "r");
        std::string output;
        char buffer[4096];
        while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe))
            output.append(buffer, count);
        const int status = pclose(pipe);
        exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return output;
    }
    std::string Errors() const { return folder.Read("errors.txt"); }
    bool ErrorsTell(const std::string& text) const { return Errors().find(text) != std::string::npos; }

    TemporaryFolder folder;
    int exitCode = -1;
};

} // namespace quillon::tests
