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
    enum class Start {
        Afresh, // what the file held is gone when it is closed
        AtEnd,
    };
    BufferedFileWriter(const std::string& nativePath, Start start);
    // Writes and closes; a failure then is lost, so whoever cares calls Close.
    ~BufferedFileWriter() override;
    void Write(std::string_view text) override;
    void WriteLine(std::string_view text) override;
    void Close() override;

  private:
    void WriteThrough(std::string_view bytes);
    void Flush();
    void CutOffFormerContents();

    Descriptor m_file;
    Start m_start;
    std::string m_buffer;
    std::size_t m_written = 0;
};

} // namespace quillon::adapters
