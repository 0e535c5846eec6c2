// A script's text: counted, shared, in UTF-16 code units, which are the characters that Len and Mid count.
//
// A Text is one pointer; copies share the characters. Nobody changes shared characters: Append works in
// place only on a text that has one owner, and leaves room behind it, so that appending in a loop costs
// linear time in all. The empty text needs no memory.
//
// A text can be made of bytes, two a character, the low one first. With an odd number of them it ends in half
// a character: the high byte of its last one is zero and does not count among the bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::vbscript {

class Text {
  public:
    // Longer texts are refused with 14 (out of string space).
    static constexpr std::size_t MaxLength = 0x3FFFFFF0;

    Text() noexcept = default;
    explicit Text(std::u16string_view characters);
    Text(const Text& other) noexcept
        : m_buffer(other.m_buffer) {
        if (m_buffer != nullptr)
            ++m_buffer->references;
    }
    Text(Text&& other) noexcept
        : m_buffer(std::exchange(other.m_buffer, nullptr)) {}
    Text& operator=(Text other) noexcept {
        std::swap(m_buffer, other.m_buffer);
        return *this;
    }
    ~Text() {
        if (m_buffer != nullptr && --m_buffer->references == 0)
            Destroy(m_buffer);
    }

    // Bytes that are not UTF-8 become U+FFFD, one each.
    static Text FromUtf8(std::string_view bytes);
    // Of ASCII characters only.
    static Text FromAscii(std::string_view characters);
    // Room for `length` characters, which the caller writes through Writable() before anybody shares it.
    static Text OfLength(std::size_t length);
    static Text OfBytes(std::string_view bytes);

    // Halves of surrogate pairs become U+FFFD.
    std::string ToUtf8() const;
    std::string ToBytes() const;

    std::u16string_view View() const noexcept {
        return m_buffer == nullptr ? std::u16string_view{}
                                   : std::u16string_view(m_buffer->characters(), m_buffer->length);
    }
    std::size_t Length() const noexcept { return m_buffer == nullptr ? 0 : m_buffer->length; }
    bool EndsInHalf() const noexcept { return m_buffer != nullptr && m_buffer->endsInHalf != 0; }
    bool IsUnique() const noexcept { return m_buffer != nullptr && m_buffer->references == 1; }
    bool SharesWith(const Text& other) const noexcept { return m_buffer == other.m_buffer; }
    std::uint32_t Owners() const noexcept { return m_buffer == nullptr ? 0 : m_buffer->references; }

    // The characters for writing. Only for a text with one owner.
    char16_t* Writable() noexcept { return m_buffer == nullptr ? nullptr : m_buffer->characters(); }

    // For an owner whose handle was copied bit by bit.
    void AddOwner() noexcept {
        if (m_buffer != nullptr)
            ++m_buffer->references;
    }

    // Appends characters to whole ones; in place where this is the only owner. `tail` may lie within this
    // text.
    void Append(std::u16string_view tail);
    // Appends; byte by byte where one of the two ends in half a character.
    void Append(const Text& tail) {
        if (EndsInHalf() || tail.EndsInHalf()) [[unlikely]]
            AppendBytes(tail);
        else
            Append(tail.View());
    }

    // A hash of the characters, kept with them.
    std::uint32_t Hash() const noexcept;

    bool operator==(const Text& other) const noexcept {
        return m_buffer == other.m_buffer || (View() == other.View() && EndsInHalf() == other.EndsInHalf());
    }

  private:
    struct Buffer {
        std::uint32_t references;
        std::uint32_t length;
        std::uint32_t capacity : 31;
        std::uint32_t endsInHalf : 1;
        std::uint32_t hash; // 0: not computed yet
        char16_t* characters() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
    };

    static Buffer* Create(std::size_t length, std::size_t capacity);
    static void Destroy(Buffer* buffer) noexcept;
    void Grow(std::size_t length);
    void AppendBytes(const Text& tail);

    Buffer* m_buffer = nullptr;
};

// Halves of surrogate pairs become U+FFFD.
std::string ToUtf8(std::u16string_view characters);

} // namespace quillon::vbscript
