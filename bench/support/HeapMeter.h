// Counts what a bench program holds on the heap: linking HeapMeter.cpp replaces operator new and delete.
#pragma once

#include <cstddef>

namespace quillon::bench {

// Bytes held now.
std::size_t HeapBytes() noexcept;
// The most that was held since the last call of StartPeak.
std::size_t PeakHeapBytes() noexcept;
void StartPeak() noexcept;

inline double Megabytes(std::size_t bytes) {
    return static_cast<double>(bytes) / (1024 * 1024);
}

} // namespace quillon::bench
