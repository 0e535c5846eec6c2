#include "template/TextCase.h"

namespace quillon {
namespace {

constexpr std::uint32_t InvalidByte = 0x80000000; // marks a byte that is no UTF-8; above every character

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// How many bytes the lead byte announces; 0 if it is no lead byte.
std::size_t AnnouncedSize(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

std::uint32_t Lower(std::uint32_t c) {
    const auto within = [c](std::uint32_t first, std::uint32_t last) { return c >= first && c <= last; };
    if (within('A', 'Z') || (within(0xC0, 0xDE) && c != 0xD7) || within(0x391, 0x3A9) || within(0x410, 0x42F))
        return c + 0x20;
    if (within(0x400, 0x40F))
        return c + 0x50;
    const bool evenIsUpper = within(0x100, 0x12F) || within(0x132, 0x137) || within(0x14A, 0x177) ||
                             within(0x460, 0x481) || within(0x48A, 0x4BF) || within(0x1E00, 0x1E95);
    if (evenIsUpper)
        return c | 1;
    const bool oddIsUpper = within(0x139, 0x148) || within(0x179, 0x17E);
    if (oddIsUpper)
        return c + (c & 1);
    return c == 0x178 ? 0xFF : c;
}

// The character at `offset` in lower case; moves `offset` behind it.
std::uint32_t TakeFolded(std::string_view text, std::size_t& offset) {
    const auto lead = static_cast<unsigned char>(text[offset]);
    if (lead < 0x80) {
        ++offset;
        return lead >= 'A' && lead <= 'Z' ? lead | 0x20U : lead;
    }
    const std::size_t size = CharacterSize(text, offset);
    if (size == 1) {
        ++offset;
        return InvalidByte | lead;
    }
    std::uint32_t character = lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i)
        character = character << 6 | (static_cast<unsigned char>(text[offset + i]) & 0x3FU);
    offset += size;
    return Lower(character);
}

// Whether `wanted` stands at `offset` of `text`.
bool StandsAt(std::string_view text, std::size_t offset, std::string_view wanted) {
    std::size_t at = 0;
    while (at < wanted.size()) {
        if (offset >= text.size() || TakeFolded(text, offset) != TakeFolded(wanted, at))
            return false;
    }
    return true;
}

} // namespace

std::size_t CharacterSize(std::string_view text, std::size_t offset) noexcept {
    const std::size_t announced = AnnouncedSize(static_cast<unsigned char>(text[offset]));
    if (announced < 2 || offset + announced > text.size())
        return 1;
    for (std::size_t i = 1; i < announced; ++i) {
        if (!IsContinuation(text[offset + i]))
            return 1;
    }
    return announced;
}

std::size_t CharacterCount(std::string_view text) noexcept {
    std::size_t count = 0;
    for (std::size_t offset = 0; offset < text.size(); ++count)
        offset += CharacterSize(text, offset);
    return count;
}

std::uint32_t FoldedHash(std::string_view text) noexcept {
    std::uint32_t hash = 2166136261U; // FNV-1a over characters
    for (std::size_t offset = 0; offset < text.size();)
        hash = (hash ^ TakeFolded(text, offset)) * 16777619U;
    return hash;
}

bool EqualFolded(std::string_view left, std::string_view right) noexcept {
    std::size_t l = 0;
    std::size_t r = 0;
    while (l < left.size() && r < right.size()) {
        if (TakeFolded(left, l) != TakeFolded(right, r))
            return false;
    }
    return l == left.size() && r == right.size();
}

std::size_t FindFolded(std::string_view text, std::string_view wanted) noexcept {
    for (std::size_t offset = 0; offset < text.size(); offset += CharacterSize(text, offset)) {
        if (StandsAt(text, offset, wanted))
            return offset;
    }
    return wanted.empty() ? 0 : std::string_view::npos;
}

} // namespace quillon
