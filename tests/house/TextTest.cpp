// What every source file keeps: its size, and an opening that says what it is for.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace quillon::tests {
namespace {

namespace fs = std::filesystem;

constexpr int MostLines = 600; // past that there is a second idea in the file

template <class Check>
void ForEachSource(const Check& check) {
    for (const char* folder : {"src", "tests", "bench", "fuzz"})
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(QUILLON_SOURCE_DIR) / folder)) {
            const auto ending = entry.path().extension();
            if (ending == ".h" || ending == ".cpp")
                check(entry.path());
        }
}

TEST(SourceText, FilesHoldOneIdea) {
    ForEachSource([](const fs::path& path) {
        std::ifstream file(path);
        int lines = 0;
        for (std::string line; std::getline(file, line);)
            ++lines;
        EXPECT_LE(lines, MostLines) << path;
    });
}

TEST(SourceText, HeadersSayWhatTheyAreFor) {
    ForEachSource([](const fs::path& path) {
        if (path.extension() != ".h")
            return;
        std::ifstream file(path);
        std::string line;
        while (std::getline(file, line) && (line.empty() || line == "#pragma once"))
            ;
        EXPECT_TRUE(line.starts_with("// ")) << path << " opens with: " << line;
    });
}

} // namespace
} // namespace quillon::tests
