#include "HostObjects.h"

#include "platform/Conversion.h"

namespace quillon::vbscript::tests {
namespace {

std::string Lowered(std::string_view name) {
    std::string lowered(name);
    std::ranges::transform(lowered, lowered.begin(), [](unsigned char c) { return std::tolower(c); });
    return lowered;
}

class ElementWalk : public ObjectEnumerator {
  public:
    explicit ElementWalk(std::vector<Value> elements)
        : m_elements(std::move(elements)) {}
    std::optional<Value> Next() override {
        return m_next < m_elements.size() ? std::optional(m_elements[m_next++]) : std::nullopt;
    }

  private:
    std::vector<Value> m_elements;
    std::size_t m_next = 0;
};

void RequireCount(std::span<Value> arguments, std::size_t count) {
    if (arguments.size() != count)
        throw Failure(numbers::WrongArgumentCount);
}

ObjectRef MakeItems() {
    auto* items = new FreeObject("Items");
    ObjectRef reference(items);
    const std::vector<Value> elements{Value("alpha"), Value("beta"), Value("gamma")};
    items->SetElements(elements).AddReadOnly("Count", std::int32_t{3});
    items->Add("Item", [elements](InvokeKind, std::span<Value> arguments) {
        RequireCount(arguments, 1);
        const std::int32_t place = conversion::ToLong(arguments[0]);
        if (place < 1 || place > 3)
            throw Failure(numbers::SubscriptOutOfRange);
        return elements[static_cast<std::size_t>(place - 1)];
    });
    items->SetDefault("Item");
    return reference;
}

} // namespace

FreeObject& FreeObject::Add(std::string name, Member member) {
    m_members.emplace_back(Lowered(name), std::move(member));
    return *this;
}

FreeObject& FreeObject::AddReadOnly(std::string name, Value value) {
    return Add(name, [value, name](InvokeKind kind, std::span<Value> arguments) {
        if (kind == InvokeKind::Let || kind == InvokeKind::Set)
            throw Failure(numbers::NotACollection, "Object not a collection: '" + name + "'");
        RequireCount(arguments, 0);
        return value;
    });
}

FreeObject& FreeObject::AddVariable(std::string name, Value value) {
    auto held = std::make_shared<Value>(std::move(value));
    return Add(std::move(name), [held](InvokeKind kind, std::span<Value> arguments) {
        if (kind == InvokeKind::Let || kind == InvokeKind::Set)
            *held = arguments.back();
        return *held;
    });
}

FreeObject& FreeObject::SetDefault(std::string_view name) {
    m_default = *FindMember(name);
    return *this;
}

FreeObject& FreeObject::SetElements(std::vector<Value> elements) {
    m_isCollection = true;
    m_elements = std::move(elements);
    return *this;
}

std::optional<MemberId> FreeObject::FindMember(std::string_view name) const {
    for (std::size_t place = 0; place < m_members.size(); ++place)
        if (m_members[place].first == Lowered(name))
            return static_cast<MemberId>(place + 1);
    return std::nullopt;
}

Value FreeObject::Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) {
    const MemberId meant = member == DefaultMemberId ? m_default : member;
    if (meant < 1)
        throw Failure(numbers::MemberNotSupported);
    return m_members[static_cast<std::size_t>(meant - 1)].second(kind, arguments);
}

std::unique_ptr<ObjectEnumerator> FreeObject::Enumerate() {
    return m_isCollection ? std::make_unique<ElementWalk>(m_elements) : Object::Enumerate();
}

ObjectRef MakeHostObject() {
    auto* host = new FreeObject("Host");
    ObjectRef reference(host);
    host->AddVariable("Name", "quillon")
        .AddReadOnly("ReadOnly", std::int16_t{7})
        .AddReadOnly("Items", MakeItems());
    host->Add("Add", [](InvokeKind, std::span<Value> arguments) {
        RequireCount(arguments, 2);
        return Value(conversion::ToDouble(arguments[0]) + conversion::ToDouble(arguments[1]));
    });
    host->Add("Twice", [](InvokeKind, std::span<Value> arguments) {
        RequireCount(arguments, 1);
        arguments[0] = Value(conversion::ToLong(arguments[0]) * 2);
        return Value();
    });
    host->Add("Grid",
              [cells = std::map<std::string, Value>()](InvokeKind kind, std::span<Value> arguments) mutable {
                  const bool writes = kind == InvokeKind::Let || kind == InvokeKind::Set;
                  std::string place;
                  for (const Value& subscript : arguments.first(arguments.size() - (writes ? 1 : 0)))
                      place += conversion::ToText(subscript) + ";";
                  if (writes)
                      cells[place] = arguments.back();
                  return cells[place];
              });
    host->Add("Self", [host](InvokeKind, std::span<Value>) { return Value(ObjectRef(host)); });
    host->Add("Fail", [](InvokeKind, std::span<Value> arguments) -> Value {
        throw Failure(conversion::ToLong(arguments[0]), "the host refused", "Host");
    });
    host->SetDefault("Name");
    return reference;
}

} // namespace quillon::vbscript::tests
