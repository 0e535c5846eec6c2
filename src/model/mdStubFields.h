// Names in a list: the keys that contain a primary key column.
#pragma once

#include <string>

#include "model/ModelCollection.h"

namespace quillon {

class mdStubField : public ModelObject {
  public:
    mdStubField() = default;
    explicit mdStubField(InternedText name)
        : m_name(std::move(name)) {}

    const std::string& Name() const noexcept { return m_name.str(); }
    const InternedText& Key() const noexcept { return m_name; }
    void SetName(InternedText name) { m_name = std::move(name); }

  private:
    InternedText m_name;
};

class mdStubFields : public ModelCollection<mdStubField> {
  public:
    const Element& Field() { return Scratch(); }

    // Raise 457 for a name in use.
    void Add(Element field) {
        const InternedText key = field->Key();
        Append(std::move(field), key);
    }
    Element Add(InternedText name) {
        auto field = std::make_shared<mdStubField>(name);
        Append(field, name);
        return field;
    }
};

} // namespace quillon
