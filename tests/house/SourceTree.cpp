#include "house/SourceTree.h"

#include <fstream>

namespace quillon::tests {
namespace fs = std::filesystem;
namespace {

std::vector<std::string> IncludesOf(const fs::path& path) {
    std::vector<std::string> found;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("#include "))
            continue;
        const char close = line[9] == '<' ? '>' : '"';
        const auto end = line.find(close, 10);
        if (end != std::string::npos)
            found.push_back(close == '>' ? line.substr(9, end - 9) : line.substr(10, end - 10));
    }
    return found;
}

} // namespace

std::string FolderOf(const std::string& file) {
    const auto slash = file.rfind('/');
    return slash == std::string::npos ? "" : file.substr(0, slash);
}

SourceTree SourceTree::Read(const fs::path& folder) {
    SourceTree tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto ending = entry.path().extension();
        if (ending == ".h" || ending == ".cpp")
            tree.includes[fs::relative(entry.path(), folder).generic_string()] = IncludesOf(entry.path());
    }
    return tree;
}

std::set<std::string> SourceTree::Rooms() const {
    std::set<std::string> rooms;
    for (const auto& [file, included] : includes)
        rooms.insert(FolderOf(file));
    return rooms;
}

} // namespace quillon::tests
