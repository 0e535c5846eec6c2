// The sources of this project as the house tests see them: files below src/ and what each includes.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace quillon::tests {

struct SourceTree {
    // Path below src/ -> what it includes, in quotes as they stand, in angle brackets with "<" in front.
    std::map<std::string, std::vector<std::string>> includes;

    static SourceTree Read(const std::filesystem::path& folder);

    // The folders below src/ that hold a file.
    std::set<std::string> Rooms() const;
};

// The folder of a file, "" at the top.
std::string FolderOf(const std::string& file);

} // namespace quillon::tests
