// The user tables of a database, in the catalogue's order, keyed by owner and name.
#pragma once

#include <cstdint>

#include "model/ModelCollection.h"
#include "model/mdTable.h"

namespace quillon {

class mdTables : public ModelCollection<mdTable> {
  public:
    const Element& Table() { return Scratch(); }

    // Raises 457 for a table already there.
    Element Add(InternedText name, InternedText owner, DateValue createDate);
    void Remove(const Value& indexKey);
    // Whether this very table is an element.
    bool Holds(const mdTable& table) const;

    // Grows whenever a table is added or removed.
    std::uint32_t Changes() const noexcept { return m_changes; }

  private:
    std::uint32_t m_changes = 0;
};

} // namespace quillon
