// A file system in memory, with the system's paths: no folder need be made, a file's folder exists with it.
// Relative paths are taken from the current folder. Names are told apart by case.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/Files.h"

namespace quillon::tests {

class MemoryFiles : public Files {
  public:
    // --- what is there ---
    std::string Folder = "\\app"; // the application folder
    std::string Current = "\\home";
    std::map<std::string, std::string> Contents; // by full path; what is written shows at once
    std::set<std::string> ReadOnly;              // full paths
    std::set<std::string> Private;               // replaced with the wish to be private

    // --- Files ---
    std::string ApplicationFolder() const override { return Folder; }
    bool Exists(const std::string& path) const override;
    bool IsReadOnly(const std::string& path) const override;
    std::string CurrentFolder() const override { return Current; }
    void ChangeFolder(const std::string& folder) override { Current = Full(folder); }
    std::unique_ptr<LineReader> OpenInput(const std::string& path) override;
    std::unique_ptr<FileWriter> OpenOutput(const std::string& path) override;
    std::unique_ptr<FileWriter> OpenAppend(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view contents, bool isPrivate) override;
    void Delete(const std::string& path) override;

  private:
    std::string Full(const std::string& path) const;
    std::string ForWriting(const std::string& path) const;
};

} // namespace quillon::tests
