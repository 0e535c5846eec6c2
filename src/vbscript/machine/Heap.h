// What script data may take of the process's memory, and what it takes now.
//
// Used by: texts, arrays, script objects, dictionaries: everything whose size a script decides. An allocation
// beyond the limit raises Failure 7 (out of memory), which a script can handle, instead of exhausting the
// process. The count is kept a thread: scripts run on one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <vector>

#include "vbscript/machine/Work.h"

namespace quillon::vbscript {

class Heap {
  public:
    static constexpr std::size_t DefaultLimit = std::size_t{2} << 30;

    // Counted memory; raises 7 beyond the limit.
    static void* Allocate(std::size_t bytes) {
        Reserve(bytes);
        void* memory = std::malloc(bytes);
        if (memory == nullptr)
            Refuse(bytes);
        return memory;
    }
    // The same memory in another size, perhaps in another place. Raises 7 and then changes nothing.
    static void* Reallocate(void* memory, std::size_t from, std::size_t to) {
        if (to > from)
            Reserve(to - from);
        void* moved = std::realloc(memory, to);
        if (moved == nullptr)
            Refuse(to - from);
        if (to < from)
            Unreserve(from - to);
        return moved;
    }
    // `bytes` as they were asked for.
    static void Free(void* memory, std::size_t bytes) noexcept {
        s_used -= bytes;
        std::free(memory);
    }

    // Counts memory that someone else allocates; raises 7 beyond the limit and then counts nothing.
    static void Reserve(std::size_t bytes) {
        if (bytes > s_limit || s_used > s_limit - bytes)
            RaiseOutOfMemory();
        Work::Done(bytes); // they will be written to
        s_used += bytes;
    }
    static void Unreserve(std::size_t bytes) noexcept { s_used -= bytes; }

    static std::size_t Used() noexcept { return s_used; }
    static std::size_t Limit() noexcept { return s_limit; }
    static std::size_t Left() noexcept { return s_used < s_limit ? s_limit - s_used : 0; }
    static void SetLimit(std::size_t bytes) noexcept { s_limit = bytes; }

  private:
    [[noreturn]] static void RaiseOutOfMemory();
    [[noreturn]] static void Refuse(std::size_t reserved); // the system has no more

    static inline thread_local constinit std::size_t s_used = 0;
    static inline thread_local constinit std::size_t s_limit = DefaultLimit;
};

// For standard containers whose size a script decides.
template <class T>
struct HeapAllocator {
    using value_type = T;
    HeapAllocator() = default;
    template <class U>
    HeapAllocator(const HeapAllocator<U>&) noexcept {}

    T* allocate(std::size_t count) {
        if (count > SIZE_MAX / sizeof(T))
            throw std::bad_array_new_length();
        return static_cast<T*>(Heap::Allocate(count * sizeof(T)));
    }
    void deallocate(T* memory, std::size_t count) noexcept { Heap::Free(memory, count * sizeof(T)); }

    template <class U>
    bool operator==(const HeapAllocator<U>&) const noexcept {
        return true;
    }
};

template <class T>
using HeapVector = std::vector<T, HeapAllocator<T>>;

} // namespace quillon::vbscript
