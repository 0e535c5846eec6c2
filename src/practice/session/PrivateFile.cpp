#include "practice/session/PrivateFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace quillon::practice {
namespace {

[[noreturn]] void Fail(const std::string& what, const std::filesystem::path& file) {
    throw std::runtime_error(what + " " + file.string() + ": " + std::generic_category().message(errno));
}

class Descriptor {
  public:
    explicit Descriptor(int number)
        : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_number >= 0) {
            ::close(m_number);
        }
    }
    int Number() const { return m_number; }

  private:
    int m_number;
};

void WriteWhole(const std::filesystem::path& file, const std::string& content) {
    Descriptor target(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
    // A file of that name may have been there with other rights.
    if (target.Number() < 0 || ::fchmod(target.Number(), S_IRUSR | S_IWUSR) != 0) {
        Fail("cannot write", file);
    }
    std::size_t written = 0;
    while (written < content.size()) {
        ssize_t count = ::write(target.Number(), content.data() + written, content.size() - written);
        if (count < 0) {
            Fail("cannot write", file);
        }
        written += static_cast<std::size_t>(count);
    }
    if (::fsync(target.Number()) != 0) {
        Fail("cannot write", file);
    }
}

} // namespace

std::string ReadPrivateFile(const std::filesystem::path& file) {
    struct stat facts {};
    if (::stat(file.c_str(), &facts) != 0) {
        Fail("cannot read", file);
    }
    if ((facts.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        throw std::runtime_error(file.string() +
                                 " holds secrets, but others than its user may use it; chmod 600 it");
    }
    std::ifstream stream(file, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream.is_open() || stream.bad()) {
        Fail("cannot read", file);
    }
    return content;
}

void WritePrivateFile(const std::filesystem::path& file, const std::string& content) {
    std::filesystem::path temporary = file;
    temporary += ".new";
    WriteWhole(temporary, content);
    std::filesystem::rename(temporary, file);
}

} // namespace quillon::practice
