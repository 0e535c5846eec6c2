// The columns of a table, in table order, keyed by name.
#pragma once

#include <string_view>

#include "model/ModelCollection.h"
#include "model/mdField.h"

namespace quillon {

class mdFields : public ModelCollection<mdField> {
  public:
    const Element& Field() { return Scratch(); }

    // Adds an object already filled. Raises 457 for a name in use.
    void Add(Element field) {
        const InternedText key = field->Key();
        Append(std::move(field), key);
    }

    // Adds a column from all its properties; without a key it is found by position alone.
    Element Add(ColumnProperties column, bool isInPrimaryKey, bool isChecked, bool isKey,
                std::string_view key = {}) {
        auto field = std::make_shared<mdField>(std::move(column));
        field->SetIsInPrimaryKey(isInPrimaryKey);
        field->SetIsChecked(isChecked);
        field->SetIsKey(isKey);
        Append(field, key);
        return field;
    }
};

} // namespace quillon
