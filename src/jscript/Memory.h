// The memory that one script heap takes: counted and limited.
//
// A heap that is refused memory collects its garbage and asks again; what is then refused is an error of the
// script's. One that still keeps nearly all it may have would spend its time on collecting, so it is short of
// memory: it gets a last eighth, for its errors and for what the host does after them, and the script must
// end.
//
// Every block has a tag, null at first, by which the owner of the heap knows blocks again.
#pragma once

#include <cstddef>

namespace quillon::jscript {

class Memory {
  public:
    explicit Memory(std::size_t limit) noexcept
        : m_limit(limit)
        , m_allowed(limit) {}

    void* Allocate(std::size_t size) noexcept;
    void* Reallocate(void* memory, std::size_t size) noexcept; // keeps the tag
    void Free(void* memory) noexcept;

    static void*& TagOf(void* memory) noexcept;

    bool IsShort() const noexcept { return m_short; }
    // Another script gets a little of its own, though an earlier one may have left the heap full.
    void BeginScript() noexcept;

  private:
    bool HasRoomFor(std::size_t bytes) noexcept;

    std::size_t m_limit, m_allowed, m_used = 0;
    int m_refusals = 0;
    bool m_isRefused = false, m_short = false;
};

} // namespace quillon::jscript
