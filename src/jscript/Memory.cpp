#include "jscript/Memory.h"

#include <algorithm>
#include <cstdlib>

namespace quillon::jscript {
namespace {

// Before every block, since the heap does not say how large it is when it gives it back.
struct alignas(std::max_align_t) Header {
    std::size_t size;
    void* tag;
};

Header& HeaderOf(void* memory) {
    return *(static_cast<Header*>(memory) - 1);
}

} // namespace

void*& Memory::TagOf(void* memory) noexcept {
    return HeaderOf(memory).tag;
}

void Memory::BeginScript() noexcept {
    m_short = m_isRefused = false;
    m_refusals = 0;
    m_allowed = std::max(m_limit, std::min(m_used + m_limit / 16, m_limit + m_limit / 8));
}

bool Memory::HasRoomFor(std::size_t bytes) noexcept {
    constexpr int mostRefusals = 30;
    if (m_used + bytes <= m_allowed) {
        m_isRefused = false;
        return true;
    }
    if ((m_isRefused && m_used > m_allowed / 8 * 7) || ++m_refusals > mostRefusals)
        m_short = true;
    m_isRefused = true;
    return m_short && m_used + bytes <= m_allowed + m_limit / 8;
}

void* Memory::Allocate(std::size_t size) noexcept {
    if (size == 0 || !HasRoomFor(size))
        return nullptr;
    auto* const header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
    if (header == nullptr)
        return nullptr;
    *header = {size, nullptr};
    m_used += size;
    return header + 1;
}

void* Memory::Reallocate(void* memory, std::size_t size) noexcept {
    if (memory == nullptr)
        return Allocate(size);
    if (size == 0) {
        Free(memory);
        return nullptr;
    }
    const std::size_t old = HeaderOf(memory).size;
    if (size > old && !HasRoomFor(size - old))
        return nullptr;
    auto* const header = static_cast<Header*>(std::realloc(&HeaderOf(memory), sizeof(Header) + size));
    if (header == nullptr)
        return nullptr;
    header->size = size;
    m_used += size - old;
    return header + 1;
}

void Memory::Free(void* memory) noexcept {
    if (memory == nullptr)
        return;
    m_used -= HeaderOf(memory).size;
    std::free(&HeaderOf(memory));
}

} // namespace quillon::jscript
