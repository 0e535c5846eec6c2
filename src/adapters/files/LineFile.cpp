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

BufferedFileWriter::BufferedFileWriter(const std::string& nativePath, int flags)
    : m_file(nativePath, O_WRONLY | O_CREAT | flags) {
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
        m_file.Write(text);
    else
        m_buffer += text;
}

void BufferedFileWriter::WriteLine(std::string_view text) {
    Write(text);
    Write("\r\n");
}

void BufferedFileWriter::Flush() {
    // What could not be written is not tried again at the next call: the caller has been told.
    const std::string bytes = std::exchange(m_buffer, {});
    m_file.Write(bytes);
    m_buffer.reserve(BufferSize);
}

void BufferedFileWriter::Close() {
    if (!m_file.IsOpen())
        return;
    Flush();
    m_file.Close();
}

} // namespace quillon::adapters
