// Files read by lines and written as text, both through a buffer: templates and scripts have hundreds of
// thousands of lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/files/Descriptor.h"
#include "platform/Files.h"

namespace quillon::adapters {

class BufferedLineReader : public LineReader {
  public:
    explicit BufferedLineReader(const std::string& nativePath);
    bool ReadLine(std::string& line) override;

  private:
    // False at the end of the file.
    bool Fill();

    Descriptor m_file;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_afterCarriageReturn = false; // a line feed that follows belongs to the line already given
};

class BufferedFileWriter : public FileWriter {
  public:
    // `flags` as for open(2), beside those for writing and creating.
    BufferedFileWriter(const std::string& nativePath, int flags);
    // Writes and closes; a failure then is lost, so whoever cares calls Close.
    ~BufferedFileWriter() override;
    void Write(std::string_view text) override;
    void WriteLine(std::string_view text) override;
    void Close() override;

  private:
    void Flush();

    Descriptor m_file;
    std::string m_buffer;
};

} // namespace quillon::adapters
