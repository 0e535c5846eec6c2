#include "platform/Object.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {

std::unique_ptr<ObjectEnumerator> Object::Enumerate() {
    throw Failure(numbers::NotACollection);
}

} // namespace quillon
