#include "vbscript/machine/Array.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/machine/Heap.h"

namespace quillon::vbscript {
namespace {

constexpr std::int64_t LargestCount = 0x40000000;

std::size_t CountOf(std::span<const std::int32_t> upperBounds) {
    std::int64_t count = upperBounds.empty() ? 0 : 1;
    for (const std::int32_t bound : upperBounds) {
        if (bound < -1)
            throw Failure(numbers::SubscriptOutOfRange);
        count *= std::int64_t{bound} + 1;
        if (count > LargestCount)
            throw Failure(numbers::OutOfMemory);
    }
    return static_cast<std::size_t>(count);
}

// Arrays whose last owner has gone while another one is being destroyed: arrays within arrays are taken
// apart one after the other where they lie deep.
constexpr int DeepestNesting = 64;
thread_local int t_depth = 0;
thread_local std::vector<ArrayBuffer*> t_waiting;

} // namespace

std::size_t ArrayBuffer::ElementsFrom(std::size_t dimensions) noexcept {
    const std::size_t behind = sizeof(ArrayBuffer) + dimensions * sizeof(std::int32_t);
    return (behind + alignof(Variant) - 1) / alignof(Variant) * alignof(Variant);
}

ArrayBuffer::ArrayBuffer(std::span<const std::int32_t> upperBounds, std::uint32_t count,
                         bool fixedSize) noexcept
    : m_count(count)
    , m_capacity(count)
    , m_elements(static_cast<std::uint16_t>(ElementsFrom(upperBounds.size())))
    , m_dimensions(static_cast<std::uint8_t>(upperBounds.size()))
    , m_fixedSize(fixedSize) {
    std::ranges::copy(upperBounds, reinterpret_cast<std::int32_t*>(this + 1));
    std::ranges::uninitialized_value_construct(Elements());
}

ArrayBuffer::~ArrayBuffer() {
    std::ranges::destroy(Elements());
}

ArrayBuffer* ArrayBuffer::Create(std::span<const std::int32_t> upperBounds, bool fixedSize) {
    const std::size_t count = CountOf(upperBounds);
    void* memory = Heap::Allocate(ElementsFrom(upperBounds.size()) + count * sizeof(Variant));
    return new (memory) ArrayBuffer(upperBounds, static_cast<std::uint32_t>(count), fixedSize);
}

ArrayBuffer* ArrayBuffer::OfCount(std::size_t count) {
    const std::int32_t bound = static_cast<std::int32_t>(count) - 1;
    return Create({&bound, 1});
}

void ArrayBuffer::Free() noexcept {
    const std::size_t bytes = Bytes(m_capacity);
    this->~ArrayBuffer();
    Heap::Free(this, bytes);
}

std::size_t ArrayBuffer::IndexOf(std::span<const std::int64_t> subscripts) const {
    if (subscripts.size() != m_dimensions)
        throw Failure(numbers::SubscriptOutOfRange);
    const std::span<const std::int32_t> bounds = UpperBounds();
    std::size_t index = 0;
    for (std::size_t dimension = bounds.size(); dimension-- > 0;) {
        const std::int64_t subscript = subscripts[dimension];
        if (subscript < 0 || subscript > bounds[dimension])
            throw Failure(numbers::SubscriptOutOfRange);
        index =
            index * (static_cast<std::size_t>(bounds[dimension]) + 1) + static_cast<std::size_t>(subscript);
    }
    return index;
}

// The array with room for so many elements, perhaps in another place. One that grows step by step gets room
// for the next steps, one that has shrunk gives the room back.
ArrayBuffer* ArrayBuffer::WithRoomFor(std::size_t count) {
    if (count <= m_capacity && count >= m_capacity / 2)
        return this;
    std::size_t capacity = count > m_capacity ? std::max(count, std::size_t{m_capacity} * 2) : count;
    if (Bytes(capacity) > Heap::Left())
        capacity = count;
    void* moved = Heap::Reallocate(this, Bytes(m_capacity), Bytes(capacity));
    auto* array = static_cast<ArrayBuffer*>(moved);
    array->m_capacity = static_cast<std::uint32_t>(capacity);
    return array;
}

void ArrayBuffer::ClearElements() {
    std::vector<Variant> cleared(m_count);
    std::ranges::swap_ranges(cleared, Elements());
}

ArrayBuffer* ArrayBuffer::Copy(bool fixedSize) const {
    ArrayBuffer* copy = Create(UpperBounds(), fixedSize);
    std::ranges::copy(Elements(), copy->Elements().begin());
    return copy;
}

void ArrayBuffer::Destroy() noexcept {
    if (t_depth >= DeepestNesting) {
        t_waiting.push_back(this);
        return;
    }
    ++t_depth;
    Free();
    while (t_depth == 1 && !t_waiting.empty()) {
        ArrayBuffer* next = t_waiting.back();
        t_waiting.pop_back();
        next->Free();
    }
    --t_depth;
}

ArrayBuffer* OwnArray(Variant& variable) {
    if (variable.AsArray()->IsShared()) {
        const Variant copy(variable.AsArray()->Copy(variable.AsArray()->IsFixedSize()));
        variable = copy;
    }
    return variable.AsArray();
}

// Only the last subscript changes, which runs slowest: the elements keep their places. What is dropped goes
// last: that may run script code.
void ResizeArray(Variant& variable, std::span<const std::int32_t> upperBounds) {
    ArrayBuffer* array = OwnArray(variable);
    if (array->m_fixedSize || array->IsLocked())
        throw Failure(numbers::ArrayLocked);
    const std::span<const std::int32_t> kept = array->UpperBounds();
    if (upperBounds.size() != kept.size() || !std::equal(kept.begin(), kept.end() - 1, upperBounds.begin()))
        throw Failure(numbers::SubscriptOutOfRange);
    const std::size_t count = CountOf(upperBounds), before = array->Count();
    std::vector<Variant> dropped;
    if (count < before) {
        const std::span<Variant> gone = array->Elements().subspan(count);
        dropped.assign(std::make_move_iterator(gone.begin()), std::make_move_iterator(gone.end()));
        array->m_count = static_cast<std::uint32_t>(count); // what was moved from needs no destruction
    }
    array = array->WithRoomFor(count);
    variable.ArrayMoved(array);
    array->m_count = static_cast<std::uint32_t>(count);
    if (count > before)
        std::ranges::uninitialized_value_construct(array->Elements().subspan(before));
    reinterpret_cast<std::int32_t*>(array + 1)[array->m_dimensions - 1] = upperBounds.back();
}

} // namespace quillon::vbscript
