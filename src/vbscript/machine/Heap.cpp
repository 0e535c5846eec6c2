#include "vbscript/machine/Heap.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::vbscript {

void Heap::RaiseOutOfMemory() {
    throw Failure(numbers::OutOfMemory);
}

void Heap::Refuse(std::size_t reserved) {
    Unreserve(reserved);
    RaiseOutOfMemory();
}

} // namespace quillon::vbscript
