#include "vbscript/machine/Heap.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::vbscript {

void Heap::RaiseOutOfMemory() {
    throw Failure(numbers::OutOfMemory);
}

} // namespace quillon::vbscript
