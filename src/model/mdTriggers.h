// The audit triggers of a table, keyed by owner and name.
#pragma once

#include <cstdint>

#include "model/ModelCollection.h"
#include "model/mdTrigger.h"

namespace quillon {

class mdTriggers : public ModelCollection<mdTrigger> {
  public:
    const Element& Trigger() { return Scratch(); }

    // Raises 457 for a trigger already there. Never touches the server: the parent names are filled last.
    Element Add(InternedText name, InternedText owner, std::int16_t type, DateValue createDate, bool enabled,
                InternedText parentName, InternedText parentOwner);

    // Takes a trigger out of the model and, unless `memoryOnly`, drops it on the server, where the same index
    // value must find it. A failure of the server leaves the model without the trigger.
    void Remove(const Value& indexKey, bool memoryOnly = false);
};

} // namespace quillon
