// Late-bound objects as a host would give them to scripts, for the tests of the script engine.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"

namespace quillon::vbscript::tests {

// An object whose members are what the test says.
class FreeObject : public Object {
  public:
    using Member = std::function<Value(InvokeKind, std::span<Value>)>;

    explicit FreeObject(std::string typeName)
        : m_typeName(std::move(typeName)) {}

    // Members are numbered from 1; number 0 is what `SetDefault` names.
    FreeObject& Add(std::string name, Member member);
    FreeObject& AddReadOnly(std::string name, Value value);
    FreeObject& AddVariable(std::string name, Value value);
    FreeObject& SetDefault(std::string_view name);
    FreeObject& SetElements(std::vector<Value> elements);

    std::string TypeName() const override { return m_typeName; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    Value Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) override;
    std::unique_ptr<ObjectEnumerator> Enumerate() override;

  private:
    std::string m_typeName;
    std::vector<std::pair<std::string, Member>> m_members;
    MemberId m_default = -1;
    bool m_isCollection = false;
    std::vector<Value> m_elements;
};

// "Host": Name (variable), ReadOnly, Items(key) with a default member and For Each, Items.Count, Add(a, b),
// Twice(x) which doubles its argument in place, Grid(any subscripts) to read and write, Self, Fail(number).
ObjectRef MakeHostObject();

} // namespace quillon::vbscript::tests
