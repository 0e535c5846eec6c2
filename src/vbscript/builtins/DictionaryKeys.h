// How a dictionary tells its keys apart: texts and numbers are different keys; numbers of all sub-types are
// equal by value, objects by identity.
#pragma once

#include <cstdint>

#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

class KeyRule {
  public:
    explicit KeyRule(bool ignoresCase) noexcept
        : m_ignoresCase(ignoresCase) {}

    // Raises 5 for what can be no key: an array, an argument left out.
    static void Require(const Variant& key);
    // Equal for keys that are the same. Raises as Require.
    std::uint32_t HashOf(const Variant& key) const;
    bool AreSame(const Variant& left, const Variant& right) const;

  private:
    bool m_ignoresCase;
};

} // namespace quillon::vbscript
