#include "adapters/files/LineFile.h"

#include <fcntl.h>

#include <algorithm>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

constexpr std::size_t BufferSize = std::size_t{64} * 1024;

bool EndsLine(char c) {
    return c == '\n' || c == '\r';
}

} // namespace

BufferedLineReader::BufferedLineReader(const std::string& nativePath)
    : m_file(nativePath, O_RDONLY)
    , m_buffer(BufferSize) {}

bool BufferedLineReader::Fill() {
    m_begin = 0;
    m_end = m_file.Read(m_buffer.data(), m_buffer.size());
    if (m_end == 0)
        return false;
    if (m_afterCarriageReturn && m_buffer[0] == '\n')
        m_begin = 1;
    m_afterCarriageReturn = false;
    return true;
}

bool BufferedLineReader::ReadLine(std::string& line) {
    line.clear();
    bool found = false;
    while (m_begin < m_end || Fill()) {
        if (m_begin == m_end) // nothing but the line feed of the last line was read
            continue;
        found = true;
        const char* begin = m_buffer.data() + m_begin;
        const char* end = m_buffer.data() + m_end;
        const char* lineEnd = std::find_if(begin, end, EndsLine);
        line.append(begin, lineEnd);
        m_begin = static_cast<std::size_t>(lineEnd - m_buffer.data());
        if (lineEnd == end)
            continue;
        ++m_begin;
        if (*lineEnd == '\r') {
            if (m_begin == m_end)
                m_afterCarriageReturn = true;
            else if (m_buffer[m_begin] == '\n')
                ++m_begin;
        }
        return true;
    }
    return found;
}

BufferedFileWriter::BufferedFileWriter(const std::string& nativePath, Start start)
    : m_file(nativePath, O_WRONLY | O_CREAT | (start == Start::AtEnd ? O_APPEND : 0))
    , m_start(start) {
    m_buffer.reserve(BufferSize);
}

BufferedFileWriter::~BufferedFileWriter() {
    try {
        Close();
    } catch (const Failure&) {
        // A destructor has nobody to tell.
    }
}

void BufferedFileWriter::Write(std::string_view text) {
    if (!m_file.IsOpen())
        throw Failure(numbers::BadFileNameOrNumber);
    if (m_buffer.size() + text.size() > BufferSize)
        Flush();
    if (text.size() >= BufferSize)
        WriteThrough(text);
    else
        m_buffer += text;
}

void BufferedFileWriter::WriteLine(std::string_view text) {
    Write(text);
    Write("\r\n");
}

void BufferedFileWriter::WriteThrough(std::string_view bytes) {
    m_file.Write(bytes);
    m_written += bytes.size();
}

void BufferedFileWriter::Flush() {
    // What could not be written is not tried again at the next call: the caller has been told.
    std::string bytes = std::exchange(m_buffer, {});
    WriteThrough(bytes);
    bytes.clear();
    m_buffer = std::move(bytes);
}

// A file that is emptied first has its blocks given back and allocated anew, and some systems then write it
// to the disk at once: many times the cost of writing over it. Scratch files are written for every table.
void BufferedFileWriter::CutOffFormerContents() {
    if (m_start == Start::Afresh && m_file.Size() > m_written)
        m_file.Truncate(m_written);
}

void BufferedFileWriter::Close() {
    if (!m_file.IsOpen())
        return;
    Flush();
    CutOffFormerContents();
    m_file.Close();
}

} // namespace quillon::adapters
