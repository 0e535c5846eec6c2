#include "vbscript/machine/Array.h"

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

ArrayBuffer::~ArrayBuffer() {
    Heap::Unreserve(m_reserved);
}

void ArrayBuffer::Reserve(std::size_t count) {
    constexpr std::size_t around = 64; // the bounds, and what the blocks of memory need themselves
    const std::size_t bytes = count * sizeof(Variant) + sizeof(ArrayBuffer) + around;
    if (bytes > m_reserved)
        Heap::Reserve(bytes - m_reserved);
    else
        Heap::Unreserve(m_reserved - bytes);
    m_reserved = bytes;
}

ArrayBuffer* ArrayBuffer::Create(std::span<const std::int32_t> upperBounds, bool fixedSize) {
    const std::size_t count = CountOf(upperBounds);
    struct Deleter {
        void operator()(ArrayBuffer* array) const { delete array; }
    };
    std::unique_ptr<ArrayBuffer, Deleter> array(new ArrayBuffer);
    array->Reserve(count);
    array->m_bounds.assign(upperBounds.begin(), upperBounds.end());
    array->m_elements.resize(count);
    array->m_fixedSize = fixedSize;
    return array.release();
}

ArrayBuffer* ArrayBuffer::OfCount(std::size_t count) {
    const std::int32_t bound = static_cast<std::int32_t>(count) - 1;
    return Create({&bound, 1});
}

std::size_t ArrayBuffer::IndexOf(std::span<const std::int64_t> subscripts) const {
    if (subscripts.size() != m_bounds.size())
        throw Failure(numbers::SubscriptOutOfRange);
    std::size_t index = 0;
    for (std::size_t dimension = m_bounds.size(); dimension-- > 0;) {
        const std::int64_t subscript = subscripts[dimension];
        if (subscript < 0 || subscript > m_bounds[dimension])
            throw Failure(numbers::SubscriptOutOfRange);
        index =
            index * (static_cast<std::size_t>(m_bounds[dimension]) + 1) + static_cast<std::size_t>(subscript);
    }
    return index;
}

void ArrayBuffer::Resize(std::span<const std::int32_t> upperBounds) {
    if (m_fixedSize || IsLocked())
        throw Failure(numbers::ArrayLocked);
    if (upperBounds.size() != m_bounds.size() ||
        !std::equal(upperBounds.begin(), upperBounds.end() - 1, m_bounds.begin()))
        throw Failure(numbers::SubscriptOutOfRange);
    const std::size_t count = CountOf(upperBounds);
    Reserve(count);
    // Only the last subscript changes, which runs slowest: the elements keep their places.
    std::vector<Variant> dropped;
    if (count < m_elements.size()) {
        const auto first = m_elements.begin() + static_cast<std::ptrdiff_t>(count);
        dropped.assign(std::make_move_iterator(first), std::make_move_iterator(m_elements.end()));
    }
    m_elements.resize(count);
    m_bounds.back() = upperBounds.back();
}

void ArrayBuffer::ClearElements() {
    std::vector<Variant> cleared(m_elements.size());
    m_elements.swap(cleared);
}

ArrayBuffer* ArrayBuffer::Copy(bool fixedSize) const {
    ArrayBuffer* copy = Create(m_bounds, fixedSize);
    copy->m_elements = m_elements;
    return copy;
}

void ArrayBuffer::Destroy() noexcept {
    if (t_depth >= DeepestNesting) {
        t_waiting.push_back(this);
        return;
    }
    ++t_depth;
    delete this;
    while (t_depth == 1 && !t_waiting.empty()) {
        ArrayBuffer* next = t_waiting.back();
        t_waiting.pop_back();
        delete next;
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

} // namespace quillon::vbscript
