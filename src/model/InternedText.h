// A text that is stored once however often the model repeats it.
//
// A database repeats a few thousand texts over hundreds of thousands of columns: type names, parents, common
// column names. A handle is one pointer; the text goes when its last handle goes, so a replaced model leaves
// nothing behind. Not thread-safe: the model lives on the interface thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quillon {

class InternedText {
  public:
    InternedText() noexcept = default;
    InternedText(std::string_view text);
    InternedText(const std::string& text)
        : InternedText(std::string_view(text)) {}
    InternedText(const char* text)
        : InternedText(std::string_view(text)) {}
    InternedText(const InternedText& other) noexcept
        : m_entry(other.m_entry) {
        if (m_entry != nullptr)
            ++m_entry->second;
    }
    InternedText(InternedText&& other) noexcept
        : m_entry(std::exchange(other.m_entry, nullptr)) {}
    InternedText& operator=(InternedText other) noexcept {
        std::swap(m_entry, other.m_entry);
        return *this;
    }
    ~InternedText() {
        if (m_entry != nullptr && --m_entry->second == 0)
            Forget();
    }

    // Good as long as this handle, or another one of the same text, lives.
    const std::string& str() const noexcept;
    bool empty() const noexcept { return m_entry == nullptr; }
    bool operator==(const InternedText& other) const noexcept { return m_entry == other.m_entry; }

    // Distinct texts held by all handles of the process.
    static std::size_t PoolSize() noexcept;

  private:
    using Entry = std::pair<const std::string, std::uint32_t>; // the text and the number of its handles

    void Forget() noexcept;

    Entry* m_entry = nullptr; // none for the empty text
};

} // namespace quillon
