#include "practice/session/Ends.h"

#include <algorithm>
#include <iterator>

namespace quillon::practice {

namespace {

// All sorted.
constexpr int kConstraintFaults[] = {1711, 1715, 1753, 1757, 1763, 1766, 1767, 1768, 1769, 1770,
                                     1773, 1774, 1776, 1778, 1781, 1785, 1788, 8111, 8139};
constexpr int kBinding[] = {107, 121, 147, 164, 206, 207, 208, 209, 213, 402, 4104, 4121, 8117, 8120, 8121};
constexpr int kAborting[] = {217,  235,  241,  242,  244,  245,  248,  295,
                             1205, 3609, 3616, 3930, 8114, 9803, 16949};

template <std::size_t Count>
bool Holds(const int (&numbers)[Count], int number) {
    return std::binary_search(std::begin(numbers), std::end(numbers), number);
}

} // namespace

int FollowUpOf(int number) {
    if (number == 3725 || number == 3728)
        return 3727;
    return Holds(kConstraintFaults, number) ? 1750 : 0;
}

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
