#include "practice/session/Ends.h"

#include <algorithm>
#include <iterator>

namespace quillon::practice {

namespace {

// Both sorted.
constexpr int kBinding[] = {107, 121, 147, 164, 206, 207, 208, 209, 213, 402, 4104, 4121, 8117, 8120, 8121};
constexpr int kAborting[] = {217,  235,  241,  242,  244,  245,  248,  295,
                             1205, 3609, 3616, 3930, 8114, 9803, 16949};

template <std::size_t Count>
bool Holds(const int (&numbers)[Count], int number) {
    return std::binary_search(std::begin(numbers), std::end(numbers), number);
}

} // namespace

bool IsBindingError(int number) {
    return Holds(kBinding, number);
}

ErrorEffect EffectOf(int number, int severity) {
    if (severity >= 20)
        return ErrorEffect::Connection;
    if (Holds(kAborting, number))
        return ErrorEffect::Batch;
    return IsBindingError(number) ? ErrorEffect::Scope : ErrorEffect::Statement;
}

} // namespace quillon::practice
