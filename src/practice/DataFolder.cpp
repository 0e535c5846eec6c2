#include "practice/DataFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace quillon::practice {

DataFolder::DataFolder(std::filesystem::path path)
    : m_path(std::filesystem::absolute(path)) {
    if (std::filesystem::create_directories(m_path)) {
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all);
    }
    const std::filesystem::path file = m_path / "server.lock";
    m_claim = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (m_claim < 0) {
        throw std::runtime_error("cannot write in " + m_path.string() + ": " +
                                 std::generic_category().message(errno));
    }
    // The claim ends with the process, however it ends.
    if (::flock(m_claim, LOCK_EX | LOCK_NB) != 0) {
        ::close(m_claim);
        throw std::runtime_error("another server uses " + m_path.string());
    }
}

DataFolder DataFolder::Temporary() {
    std::string name = (std::filesystem::temp_directory_path() / "quillon-practice-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make a temporary folder: " + std::generic_category().message(errno));
    }
    DataFolder folder(name);
    folder.m_temporary = true;
    return folder;
}

DataFolder::DataFolder(DataFolder&& other) noexcept
    : m_path(std::move(other.m_path))
    , m_claim(std::exchange(other.m_claim, -1))
    , m_temporary(std::exchange(other.m_temporary, false)) {}

DataFolder::~DataFolder() {
    if (m_temporary) {
        std::error_code ignored; // what cannot be removed stays among the temporary files
        std::filesystem::remove_all(m_path, ignored);
    }
    if (m_claim >= 0) {
        ::close(m_claim);
    }
}

} // namespace quillon::practice
