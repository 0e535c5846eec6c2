#include "support/MemoryFiles.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::tests {
namespace {

class MemoryReader : public LineReader {
  public:
    explicit MemoryReader(std::string text)
        : m_text(std::move(text)) {}

    bool ReadLine(std::string& line) override {
        if (m_at >= m_text.size())
            return false;
        const std::size_t end = std::min(m_text.find_first_of("\r\n", m_at), m_text.size());
        line = m_text.substr(m_at, end - m_at);
        m_at = end + (m_text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        return true;
    }

  private:
    std::string m_text;
    std::size_t m_at = 0;
};

class MemoryWriter : public FileWriter {
  public:
    explicit MemoryWriter(std::string& text)
        : m_text(&text) {}

    void Write(std::string_view text) override {
        if (m_text == nullptr)
            throw Failure(numbers::BadFileNameOrNumber);
        *m_text += text;
    }
    void WriteLine(std::string_view text) override {
        Write(text);
        Write("\r\n");
    }
    void Close() override { m_text = nullptr; }

  private:
    std::string* m_text;
};

} // namespace

std::string MemoryFiles::Full(const std::string& path) const {
    return path.starts_with('\\') ? path : Current + "\\" + path;
}

std::string MemoryFiles::ForWriting(const std::string& path) const {
    if (path.empty())
        throw Failure(numbers::BadFileNameOrNumber);
    if (ReadOnly.contains(Full(path)))
        throw Failure(numbers::PathFileAccess);
    return Full(path);
}

bool MemoryFiles::Exists(const std::string& path) const {
    return !path.empty() && Contents.contains(Full(path));
}

bool MemoryFiles::IsReadOnly(const std::string& path) const {
    if (!Exists(path))
        throw Failure(numbers::FileNotFound);
    return ReadOnly.contains(Full(path));
}

std::unique_ptr<LineReader> MemoryFiles::OpenInput(const std::string& path) {
    return std::make_unique<MemoryReader>(ReadAll(path));
}

std::unique_ptr<FileWriter> MemoryFiles::OpenOutput(const std::string& path) {
    std::string& contents = Contents[ForWriting(path)];
    contents.clear();
    return std::make_unique<MemoryWriter>(contents);
}

std::unique_ptr<FileWriter> MemoryFiles::OpenAppend(const std::string& path) {
    return std::make_unique<MemoryWriter>(Contents[ForWriting(path)]);
}

std::string MemoryFiles::ReadAll(const std::string& path) {
    const auto found = Contents.find(Full(path));
    if (found == Contents.end())
        throw Failure(numbers::FileNotFound);
    return found->second;
}

void MemoryFiles::Replace(const std::string& path, std::string_view contents, bool isPrivate) {
    const std::string full = ForWriting(path);
    Contents[full] = contents;
    if (isPrivate)
        Private.insert(full);
}

void MemoryFiles::Delete(const std::string& path) {
    if (Contents.erase(Full(path)) == 0)
        throw Failure(numbers::FileNotFound);
}

} // namespace quillon::tests
