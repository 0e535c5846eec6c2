#include "support/HeapMeter.h"

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t held = 0;
std::size_t peak = 0;

} // namespace

namespace quillon::bench {

std::size_t HeapBytes() noexcept {
    return held;
}

std::size_t PeakHeapBytes() noexcept {
    return peak;
}

void StartPeak() noexcept {
    peak = held;
}

} // namespace quillon::bench

void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    if (block == nullptr)
        throw std::bad_alloc();
    held += malloc_usable_size(block);
    peak = held > peak ? held : peak;
    return block;
}

void operator delete(void* block) noexcept {
    held -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
