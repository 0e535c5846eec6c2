// The number with which an act fails, 0 when it does not: for tables of faults.
#pragma once

#include "platform/Failure.h"

namespace quillon::tests {

template <class Act>
std::int32_t FailureNumberOf(Act&& act) {
    try {
        act();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

} // namespace quillon::tests
