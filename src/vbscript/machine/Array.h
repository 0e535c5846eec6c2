// A script array: any number of dimensions of Variants, lower bounds 0, the first subscript running fastest.
//
// Held by Variants through counted shares (ArrayRef). A shared array is never written: Own() gives the
// writer a copy of his own first. While an element is lent out by reference, or a For Each walks the array,
// it is locked, and changing its size raises 10.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

class ArrayBuffer {
  public:
    static constexpr std::size_t MaxDimensions = 60;

    // One upper bound a dimension, -1 or more each (raises 9), empty contents. Without dimensions it is an
    // array declared `Dim a()` and not yet sized: UBound of it raises 9. Raises 7 where memory ends.
    // The new buffer has no owner yet: put it into an ArrayRef or a Variant at once.
    static ArrayBuffer* Create(std::span<const std::int32_t> upperBounds, bool fixedSize = false);
    // One dimension of `count` empty elements.
    static ArrayBuffer* OfCount(std::size_t count);

    std::size_t Dimensions() const noexcept { return m_bounds.size(); }
    std::int32_t UpperBound(std::size_t dimension) const noexcept { return m_bounds[dimension]; } // from 0
    const std::vector<std::int32_t>& UpperBounds() const noexcept { return m_bounds; }
    std::size_t Count() const noexcept { return m_elements.size(); }
    std::span<Variant> Elements() noexcept { return m_elements; }
    std::span<const Variant> Elements() const noexcept { return m_elements; }

    // Declared with its size (`Dim a(3)`): ReDim raises 10.
    bool IsFixedSize() const noexcept { return m_fixedSize; }
    bool IsLocked() const noexcept { return m_locks != 0; }
    void Lock() noexcept { ++m_locks; }
    void Unlock() noexcept { --m_locks; }
    bool IsShared() const noexcept { return m_references - m_locks > 1; }

    // The place of an element; raises 9 for a subscript out of range or a wrong number of subscripts.
    std::size_t IndexOf(std::span<const std::int64_t> subscripts) const;

    // ReDim Preserve: only the last bound may differ (raises 9); raises 10 for a fixed or locked array.
    void Resize(std::span<const std::int32_t> upperBounds);
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
    ArrayBuffer() = default;
    ~ArrayBuffer();
    void Destroy() noexcept;
    void Reserve(std::size_t count);

    std::uint32_t m_references = 0;
    std::uint32_t m_locks = 0;
    bool m_fixedSize = false;
    std::size_t m_reserved = 0;
    std::vector<std::int32_t> m_bounds;
    std::vector<Variant> m_elements;
};

// Owns a share of an array.
class ArrayRef {
  public:
    explicit ArrayRef(ArrayBuffer* array) noexcept
        : m_array(array) {
        if (m_array != nullptr)
            m_array->AddReference();
    }
    ArrayRef(const ArrayRef& other) noexcept
        : ArrayRef(other.m_array) {}
    ArrayRef& operator=(ArrayRef other) noexcept {
        std::swap(m_array, other.m_array);
        return *this;
    }
    ~ArrayRef() {
        if (m_array != nullptr)
            m_array->DropReference();
    }
    ArrayBuffer* operator->() const noexcept { return m_array; }
    ArrayBuffer* get() const noexcept { return m_array; }

  private:
    ArrayBuffer* m_array;
};

// The array in `variable` for writing: a copy of its own if others share it.
ArrayBuffer* OwnArray(Variant& variable);

} // namespace quillon::vbscript
