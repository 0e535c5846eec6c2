// The folder in which a server keeps its databases and logins. It belongs to one server at a time and to its
// user alone.
#pragma once

#include <filesystem>

namespace quillon::practice {

class DataFolder {
  public:
    // Makes the folder where it is missing and claims it. Throws std::runtime_error when another server has
    // it.
    explicit DataFolder(std::filesystem::path path);
    // A new folder among the temporary files, removed with everything in it when the server ends.
    static DataFolder Temporary();
    DataFolder(DataFolder&& other) noexcept;
    ~DataFolder();

    const std::filesystem::path& Path() const { return m_path; }

  private:
    std::filesystem::path m_path;
    int m_claim = -1;
    bool m_temporary = false;
};

} // namespace quillon::practice
