#include "practice/values/Growth.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

constexpr std::size_t mostBytes = 1'000'000'000;

} // namespace

void RequireGrowth(std::size_t bytes) {
    if (bytes > mostBytes)
        RefuseGrowth();
}

void RefuseGrowth() {
    throw SqlError(7119, {std::to_string(mostBytes)});
}

} // namespace quillon::practice
