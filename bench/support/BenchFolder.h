// A folder for the files of a bench, gone at its end.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <unistd.h>

namespace quillon::bench {

class BenchFolder {
  public:
    BenchFolder()
        : m_path(std::filesystem::temp_directory_path() / ("quillon-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(m_path);
    }
    ~BenchFolder() { std::filesystem::remove_all(m_path); }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::string PathOf(const std::string& name) const { return (m_path / name).string(); }
    void Write(const std::string& name, std::string_view contents) const {
        std::ofstream(m_path / name, std::ios::binary) << contents;
    }

  private:
    std::filesystem::path m_path;
};

} // namespace quillon::bench
