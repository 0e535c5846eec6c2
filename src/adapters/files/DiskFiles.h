// The platform's files on the disk.
#pragma once

#include <string>

#include "platform/Files.h"

namespace quillon::adapters {

class DiskFiles : public Files {
  public:
    // Native folders: the preferred one, which is the application folder when this user can write it,
    // and the one that takes its place otherwise, made when it is missing. Raises 70, 75, 76 when neither can
    // be had.
    DiskFiles(const std::string& executableFolder, const std::string& dataFolder);
    // For the running program and user: preferred is $QUILLON_HOME, else the executable's folder unless the
    // system installed it there.
    DiskFiles();

    std::string ApplicationFolder() const override { return m_applicationFolder; }
    // Of a file; a folder is none.
    bool Exists(const std::string& path) const override;
    bool IsReadOnly(const std::string& path) const override;
    std::string CurrentFolder() const override;
    void ChangeFolder(const std::string& folder) override;
    std::unique_ptr<LineReader> OpenInput(const std::string& path) override;
    std::unique_ptr<FileWriter> OpenOutput(const std::string& path) override;
    std::unique_ptr<FileWriter> OpenAppend(const std::string& path) override;
    std::string ReadAll(const std::string& path) override;
    void Replace(const std::string& path, std::string_view contents, bool isPrivate) override;
    void Delete(const std::string& path) override;

  private:
    std::string m_applicationFolder; // in the system's form
};

} // namespace quillon::adapters
