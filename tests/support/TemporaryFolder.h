// A folder of its own for one test, gone at the test's end.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <unistd.h>

namespace quillon::tests {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    // The path of a file in it, in the form that the system uses inside.
    std::string SystemPath(const std::string& name) const {
        std::string path = (m_path / name).string();
        for (char& c : path)
            if (c == '/')
                c = '\\';
        return path;
    }
    void Write(const std::string& name, std::string_view contents) const {
        std::ofstream(m_path / name, std::ios::binary) << contents;
    }
    std::string Read(const std::string& name) const {
        std::ostringstream contents;
        contents << std::ifstream(m_path / name, std::ios::binary).rdbuf();
        return contents.str();
    }

  private:
    std::filesystem::path m_path;
};

} // namespace quillon::tests
