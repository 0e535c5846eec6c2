// An open file of the operating system. The one place of this room that reads and writes bytes.
//
// Owns the descriptor and closes it. Failures: as RaiseSystemFailure says. Interrupted calls are taken up
// again.
#pragma once

#include <string>
#include <string_view>

namespace quillon::adapters {

class Descriptor {
  public:
    // `flags` and `mode` as for open(2); not inherited by programs that are started.
    Descriptor(std::string nativePath, int flags, unsigned mode = 0666);
    // Takes over an open descriptor.
    Descriptor(int openDescriptor, std::string nativePath);
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    // As the system tells it now; 0 where it does not tell.
    std::size_t Size() const noexcept;
    // Number of bytes read, 0 at the end.
    std::size_t Read(char* buffer, std::size_t size);
    void Write(std::string_view bytes);
    void Truncate(std::size_t size);
    // Waits until the bytes are on the disk itself.
    void Sync();
    // Reports what the system noticed late, as a full disk on some file systems. Closing twice does nothing.
    void Close();

    bool IsOpen() const noexcept { return m_descriptor >= 0; }
    int number() const noexcept { return m_descriptor; }
    const std::string& path() const noexcept { return m_path; }

  private:
    void RefuseFolder();

    std::string m_path;
    int m_descriptor;
};

} // namespace quillon::adapters
