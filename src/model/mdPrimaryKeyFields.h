// The columns of a table's primary key, in the table's column order, keyed by name.
//
// `Default` of such a column is a bound default's name alone, and Ordinal_Position its place in the table.
#pragma once

#include <memory>
#include <string_view>

#include "model/ModelCollection.h"
#include "model/mdColumn.h"
#include "model/mdStubFields.h"

namespace quillon {

class mdPrimaryKeyField : public mdColumn {
  public:
    mdPrimaryKeyField() = default;
    explicit mdPrimaryKeyField(ColumnProperties column)
        : mdColumn(std::move(column)) {}

    // Names of the keys that contain the column; never nothing.
    const std::shared_ptr<mdStubFields>& Keys() {
        if (!m_keys)
            m_keys = std::make_shared<mdStubFields>();
        return m_keys;
    }

  private:
    std::shared_ptr<mdStubFields> m_keys;
};

class mdPrimaryKeyFields : public ModelCollection<mdPrimaryKeyField> {
  public:
    const Element& PrimaryKeyField() { return Scratch(); }

    // Adds an object already filled. Raises 457 for a name in use.
    void Add(Element field) {
        const InternedText key = field->Key();
        Append(std::move(field), key);
    }

    // Adds a column from all its properties; without a key it is found by position alone.
    Element Add(ColumnProperties column, std::string_view key = {}) {
        auto field = std::make_shared<mdPrimaryKeyField>(std::move(column));
        Append(field, key);
        return field;
    }
};

} // namespace quillon
