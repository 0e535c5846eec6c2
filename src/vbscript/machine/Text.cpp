#include "vbscript/machine/Text.h"

#include <cstring>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Heap.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

constexpr char16_t Replacement = 0xFFFD;
constexpr std::uint32_t CapacityBits = 0x7FFFFFFF;

// One code point at `at`, which moves behind it; a byte that starts none is a replacement character.
char32_t NextCodePoint(std::string_view bytes, std::size_t& at) noexcept {
    const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(bytes[place]); };
    const unsigned first = byte(at++);
    if (first < 0x80)
        return first;
    const int tail = first >= 0xF0 && first < 0xF5   ? 3
                     : first >= 0xE0 && first < 0xF0 ? 2
                     : first >= 0xC2 && first < 0xE0 ? 1
                                                     : 0;
    if (tail == 0 || at + tail > bytes.size())
        return Replacement;
    char32_t point = first & (0x3Fu >> tail);
    for (int i = 0; i < tail; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80)
            return Replacement;
        point = (point << 6) | (byte(at + i) & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (point < smallest[tail] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000))
        return Replacement;
    at += tail;
    return point;
}

void AppendUtf8(std::string& bytes, char32_t point) {
    const auto put = [&](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

} // namespace

Text::Text(std::u16string_view characters) {
    if (characters.empty())
        return;
    m_buffer = Create(characters.size(), characters.size());
    std::memcpy(m_buffer->characters(), characters.data(), characters.size() * sizeof(char16_t));
}

Text::Buffer* Text::Create(std::size_t length, std::size_t capacity) {
    if (length > MaxLength)
        throw Failure(numbers::OutOfStringSpace);
    void* memory = Heap::Allocate(sizeof(Buffer) + capacity * sizeof(char16_t));
    return new (memory) Buffer{1, static_cast<std::uint32_t>(length),
                               static_cast<std::uint32_t>(capacity) & CapacityBits, 0, 0};
}

void Text::Destroy(Buffer* buffer) noexcept {
    Heap::Free(buffer, sizeof(Buffer) + buffer->capacity * sizeof(char16_t));
}

Text Text::OfLength(std::size_t length) {
    Text text;
    if (length != 0)
        text.m_buffer = Create(length, length);
    return text;
}

Text Text::FromAscii(std::string_view characters) {
    Text text = OfLength(characters.size());
    std::copy(characters.begin(), characters.end(), text.Writable());
    return text;
}

Text Text::FromUtf8(std::string_view bytes) {
    const bool ascii =
        std::ranges::all_of(bytes, [](char byte) { return static_cast<signed char>(byte) >= 0; });
    if (ascii)
        return FromAscii(bytes);
    std::u16string characters;
    characters.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t point = NextCodePoint(bytes, at);
        if (point < 0x10000) {
            characters.push_back(static_cast<char16_t>(point));
        } else {
            characters.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
            characters.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
        }
    }
    return Text(characters);
}

std::string ToUtf8(std::u16string_view characters) {
    Work::Done(characters.size());
    std::string bytes;
    bytes.reserve(characters.size());
    for (std::size_t at = 0; at < characters.size(); ++at) {
        const char32_t unit = characters[at];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        if (high && at + 1 < characters.size() && (characters[at + 1] & 0xFC00) == 0xDC00)
            AppendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10) + (characters[++at] - 0xDC00u));
        else
            AppendUtf8(bytes, unit >= 0xD800 && unit < 0xE000 ? Replacement : unit);
    }
    return bytes;
}

std::string Text::ToUtf8() const {
    return vbscript::ToUtf8(View());
}

Text Text::OfBytes(std::string_view bytes) {
    const bool endsInHalf = bytes.size() % 2 != 0;
    Text text = OfLength((bytes.size() + 1) / 2);
    char16_t* out = text.Writable();
    const auto byteAt = [&](std::size_t i) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes[i]));
    };
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        *out++ = static_cast<char16_t>(byteAt(i) | byteAt(i + 1) << 8);
    if (endsInHalf) {
        *out = static_cast<char16_t>(byteAt(bytes.size() - 1));
        text.m_buffer->endsInHalf = 1;
    }
    return text;
}

std::string Text::ToBytes() const {
    Work::Done(Length() * 2);
    std::string bytes;
    bytes.reserve(Length() * 2);
    for (const char16_t c : View()) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    if (EndsInHalf())
        bytes.pop_back();
    return bytes;
}

void Text::Grow(std::size_t length) {
    if (length > MaxLength)
        throw Failure(numbers::OutOfStringSpace);
    std::size_t capacity = std::min(std::max<std::size_t>(length * 2, 24), MaxLength);
    if (capacity * sizeof(char16_t) > Heap::Left())
        capacity = length; // the room behind is a convenience; near the limit do without
    const auto bytesFor = [](std::size_t characters) {
        return sizeof(Buffer) + characters * sizeof(char16_t);
    };
    if (IsUnique()) {
        void* moved = Heap::Reallocate(m_buffer, bytesFor(m_buffer->capacity), bytesFor(capacity));
        m_buffer = static_cast<Buffer*>(moved);
        m_buffer->capacity = static_cast<std::uint32_t>(capacity) & CapacityBits;
        return;
    }
    Buffer* grown = Create(Length(), capacity);
    if (m_buffer != nullptr) {
        std::memcpy(grown->characters(), m_buffer->characters(), m_buffer->length * sizeof(char16_t));
        --m_buffer->references;
    }
    m_buffer = grown;
}

void Text::Append(std::u16string_view tail) {
    if (tail.empty())
        return;
    const std::size_t before = Length();
    const std::size_t length = before + tail.size();
    const std::uintptr_t own =
        reinterpret_cast<std::uintptr_t>(m_buffer == nullptr ? nullptr : m_buffer->characters());
    const std::uintptr_t source = reinterpret_cast<std::uintptr_t>(tail.data());
    const bool isWithin = source >= own && source < own + before * sizeof(char16_t);
    if (!IsUnique() || length > m_buffer->capacity) {
        const Text other = isWithin && !IsUnique() ? *this : Text(); // keeps the characters of `tail`
        Grow(length);
        if (isWithin && other.m_buffer == nullptr)
            tail = {m_buffer->characters() + (source - own) / sizeof(char16_t), tail.size()};
        std::memcpy(m_buffer->characters() + before, tail.data(), tail.size() * sizeof(char16_t));
    } else {
        std::memcpy(m_buffer->characters() + before, tail.data(), tail.size() * sizeof(char16_t));
    }
    m_buffer->length = static_cast<std::uint32_t>(length);
    m_buffer->hash = 0;
}

// What completes the half of a character moves everything behind it by a byte.
void Text::AppendBytes(const Text& tail) {
    const std::string bytes = tail.ToBytes();
    if (bytes.empty())
        return;
    if (!EndsInHalf()) {
        const bool endsInHalf = tail.EndsInHalf();
        Append(tail.View());
        m_buffer->endsInHalf = endsInHalf ? 1 : 0;
        return;
    }
    if (!IsUnique())
        Grow(Length());
    const auto second = static_cast<unsigned char>(bytes.front());
    m_buffer->characters()[m_buffer->length - 1] |= static_cast<char16_t>(second << 8);
    m_buffer->endsInHalf = 0;
    m_buffer->hash = 0;
    AppendBytes(OfBytes(std::string_view(bytes).substr(1)));
}

std::uint32_t Text::Hash() const noexcept {
    if (m_buffer == nullptr)
        return 1;
    if (m_buffer->hash != 0)
        return m_buffer->hash;
    std::uint32_t hash = 2166136261u;
    for (const char16_t unit : View())
        hash = (hash ^ unit) * 16777619u;
    m_buffer->hash = hash == 0 ? 1 : hash;
    return m_buffer->hash;
}

} // namespace quillon::vbscript
