// The order and the keys of a collection's elements.
//
// Keys compare without regard to case and are optional; positions count from 0 here and from 1 in the index
// values that callers of a collection give. Small collections are searched in a row, larger ones through a
// table of slots, so a find costs the same however large the collection is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "model/InternedText.h"
#include "platform/Value.h"

namespace quillon {

class KeyIndex {
  public:
    std::size_t size() const noexcept { return m_entries.size(); }

    // Appends an element; an empty key means none. Raises 457 for a key in use.
    void Add(const InternedText& key);
    // O(n), as the elements behind move down.
    void Remove(std::size_t position);

    std::optional<std::size_t> Find(std::string_view key) const noexcept;

    // The position that an index value means: a number is a position, any text a key. Raises 9 for a position
    // below 1 or beyond the end, 5 for an unknown key, 13 for what is neither.
    std::size_t Locate(const Value& indexKey) const;
    // The same, but none for a number, also one written as text, beyond the end: loops over a collection may
    // run one too far.
    std::optional<std::size_t> LocateOrNone(const Value& indexKey) const;

  private:
    struct Entry {
        InternedText key;
        std::uint32_t hash;
    };

    std::optional<std::size_t> FindHashed(std::string_view key, std::uint32_t hash) const noexcept;
    bool Matches(std::size_t position, std::string_view key, std::uint32_t hash) const noexcept;
    void Rebuild();
    void Enter(std::size_t position) noexcept;

    std::vector<Entry> m_entries;
    std::vector<std::uint32_t>
        m_slots; // position + 1, 0 for a free slot; empty while the collection is small
};

// The value that a plain use of `value` means: an object stands for its default member. Raises 91 for
// Nothing, 438 for an object without a default member.
Value PlainValue(const Value& value);

} // namespace quillon
