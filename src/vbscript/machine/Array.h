// A script array: any number of dimensions of Variants, lower bounds 0, the first subscript running fastest.
//
// One piece of memory, since scripts make small ones by the million: the counts, one upper bound a dimension,
// the elements. Held by Variants through counted shares. A shared array is never written: OwnArray gives the
// writer a copy of his own first. While an element is lent out by reference, or a For Each walks the array,
// it is locked, and changing its size raises 10.
#pragma once

#include <cstdint>
#include <span>

#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

class ArrayBuffer {
  public:
    static constexpr std::size_t MaxDimensions = 60;

    // One upper bound a dimension, -1 or more each (raises 9), empty contents. Without dimensions it is an
    // array declared `Dim a()` and not yet sized: UBound of it raises 9. Raises 7 where memory ends.
    // The new buffer has no owner yet: put it into a Variant at once.
    static ArrayBuffer* Create(std::span<const std::int32_t> upperBounds, bool fixedSize = false);
    // One dimension of `count` empty elements.
    static ArrayBuffer* OfCount(std::size_t count);

    std::size_t Dimensions() const noexcept { return m_dimensions; }
    std::int32_t UpperBound(std::size_t dimension) const noexcept { // the dimension from 0
        return UpperBounds()[dimension];
    }
    std::span<const std::int32_t> UpperBounds() const noexcept {
        return {reinterpret_cast<const std::int32_t*>(this + 1), m_dimensions};
    }
    std::size_t Count() const noexcept { return m_count; }
    std::span<Variant> Elements() noexcept {
        return {reinterpret_cast<Variant*>(reinterpret_cast<char*>(this) + m_elements), m_count};
    }
    std::span<const Variant> Elements() const noexcept { return const_cast<ArrayBuffer*>(this)->Elements(); }

    // Declared with its size (`Dim a(3)`): ReDim raises 10.
    bool IsFixedSize() const noexcept { return m_fixedSize; }
    bool IsLocked() const noexcept { return m_locks != 0; }
    void Lock() noexcept { ++m_locks; }
    void Unlock() noexcept { --m_locks; }
    bool IsShared() const noexcept { return m_references - m_locks > 1; }

    // The place of an element; raises 9 for a subscript out of range or a wrong number of subscripts.
    std::size_t IndexOf(std::span<const std::int64_t> subscripts) const;

    // Erase of a fixed array: its elements become Empty.
    void ClearElements();
    // A copy with no owner yet.
    ArrayBuffer* Copy(bool fixedSize) const;

    void AddReference() noexcept { ++m_references; }
    void DropReference() noexcept {
        if (--m_references == 0)
            Destroy();
    }

  private:
    friend void ResizeArray(Variant& variable, std::span<const std::int32_t> upperBounds);

    ArrayBuffer(std::span<const std::int32_t> upperBounds, std::uint32_t count, bool fixedSize) noexcept;
    ~ArrayBuffer();
    ArrayBuffer* WithRoomFor(std::size_t count);
    static std::size_t ElementsFrom(std::size_t dimensions) noexcept;
    std::size_t Bytes(std::size_t count) const noexcept { return m_elements + count * sizeof(Variant); }
    void Free() noexcept;
    void Destroy() noexcept;

    std::uint32_t m_references = 0;
    std::uint32_t m_locks = 0;
    std::uint32_t m_count;
    std::uint32_t m_capacity;
    std::uint16_t m_elements; // how far from the beginning they lie
    std::uint8_t m_dimensions;
    bool m_fixedSize;
};

// The array in `variable` for writing: a copy of its own if others share it.
ArrayBuffer* OwnArray(Variant& variable);

// ReDim Preserve of the array in `variable`: only the last bound may differ (raises 9); raises 10 for a fixed
// or locked array.
void ResizeArray(Variant& variable, std::span<const std::int32_t> upperBounds);

} // namespace quillon::vbscript
