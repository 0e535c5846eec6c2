#include "jscript/ScriptedObject.h"

#include <algorithm>

#include "platform/FailureNumbers.h"

namespace quillon::jscript {
namespace {

constexpr const char* ReferencesKey = DUK_HIDDEN_SYMBOL("references");

struct Question {
    const ScriptedObject* object;
    std::string_view name;
    InvokeKind kind;
    std::span<Value> arguments;
    bool found;
    Value result;
    std::vector<Value> elements;
};

void PushReferences(duk_context* context) {
    duk_push_global_stash(context);
    if (duk_get_prop_string(context, -1, ReferencesKey) == 0) {
        duk_pop(context);
        duk_push_object(context);
        duk_dup_top(context);
        duk_put_prop_string(context, -3, ReferencesKey);
    }
    duk_remove(context, -2);
}

void PushName(duk_context* context, std::string_view name) {
    duk_push_lstring(context, name.data(), name.size());
}

void Has(Engine&, duk_context* context, void* data) {
    auto& question = *static_cast<Question*>(data);
    question.object->Push(context);
    PushName(context, question.name);
    question.found = duk_has_prop(context, -2) != 0;
}

void Write(Engine& engine, duk_context* context, void* data) {
    const auto& question = *static_cast<Question*>(data);
    question.object->Push(context);
    PushName(context, question.name);
    engine.PushValue(context, question.arguments.back());
    duk_put_prop(context, -3);
}

// [... function this] to [... result]
void CallWith(Engine& engine, duk_context* context, std::span<Value> arguments) {
    duk_require_stack(context, static_cast<duk_idx_t>(arguments.size()) + 8);
    for (const Value& argument : arguments)
        engine.PushValue(context, argument);
    duk_call_method(context, static_cast<duk_idx_t>(arguments.size()));
}

void Read(Engine& engine, duk_context* context, void* data) {
    auto& question = *static_cast<Question*>(data);
    question.object->Push(context);
    PushName(context, question.name);
    duk_get_prop(context, -2);
    if (duk_is_function(context, -1)) {
        duk_dup(context, -2);
        CallWith(engine, context, question.arguments);
    } else if (!question.arguments.empty()) {
        engine.Throw(context, numbers::WrongArgumentCount);
    }
    question.result = engine.ReadValue(context, -1);
}

void ReadDefault(Engine& engine, duk_context* context, void* data) {
    auto& question = *static_cast<Question*>(data);
    question.object->Push(context);
    if (duk_is_function(context, -1)) {
        duk_push_undefined(context);
        CallWith(engine, context, question.arguments);
    } else if (!question.arguments.empty()) {
        engine.Throw(context, numbers::WrongArgumentCount);
    } else {
        duk_to_primitive(context, -1, DUK_HINT_NONE);
    }
    question.result = engine.ReadValue(context, -1);
}

void ReadElements(Engine& engine, duk_context* context, void* data) {
    auto& question = *static_cast<Question*>(data);
    question.object->Push(context);
    if (!duk_is_array(context, -1))
        engine.Throw(context, numbers::NotACollection);
    question.elements = engine.ReadList(context, -1);
}

class ElementWalk final : public ObjectEnumerator {
  public:
    explicit ElementWalk(std::vector<Value> elements)
        : m_elements(std::move(elements)) {}
    std::optional<Value> Next() override {
        if (m_next == m_elements.size())
            return std::nullopt;
        return m_elements[m_next++];
    }

  private:
    std::vector<Value> m_elements;
    std::size_t m_next = 0;
};

} // namespace

ScriptedObject::~ScriptedObject() {
    if (m_link->engine != nullptr)
        m_link->engine->Forget(m_block, m_reference);
}

Engine& ScriptedObject::Live() const {
    if (m_link->engine == nullptr)
        throw Failure(numbers::ObjectRequired);
    return *m_link->engine;
}

std::optional<MemberId> ScriptedObject::FindMember(std::string_view name) const {
    Question question{this, name, InvokeKind::Get, {}, false, {}, {}};
    Live().Guarded(Has, &question);
    if (!question.found)
        return std::nullopt;
    const auto known = std::ranges::find(m_names, name);
    const auto place = static_cast<MemberId>(known - m_names.begin()) + 1;
    if (known == m_names.end())
        m_names.emplace_back(name);
    return place;
}

Value ScriptedObject::Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) {
    const bool isDefault = member == DefaultMemberId;
    const bool writes = kind == InvokeKind::Let || kind == InvokeKind::Set;
    const auto index = static_cast<std::size_t>(member) - 1;
    if ((isDefault && writes) || (!isDefault && index >= m_names.size()))
        throw Failure(numbers::MemberNotSupported);
    if (writes && arguments.size() != 1)
        throw Failure(numbers::WrongArgumentCount);
    Question question{this, isDefault ? std::string_view() : m_names[index], kind, arguments, false, {}, {}};
    Live().Guarded(isDefault ? ReadDefault : writes ? Write : Read, &question);
    return std::move(question.result);
}

std::unique_ptr<ObjectEnumerator> ScriptedObject::Enumerate() {
    Question question{this, {}, InvokeKind::Get, {}, false, {}, {}};
    Live().Guarded(ReadElements, &question);
    return std::make_unique<ElementWalk>(std::move(question.elements));
}

void ScriptedObject::Push(duk_context* context) const {
    PushReferences(context);
    duk_get_prop_index(context, -1, m_reference);
    duk_remove(context, -2);
}

void ScriptedObject::Keep(duk_context* context, duk_idx_t index, std::uint32_t reference) {
    index = duk_normalize_index(context, index);
    PushReferences(context);
    duk_dup(context, index);
    duk_put_prop_index(context, -2, reference);
    duk_pop(context);
}

void ScriptedObject::Drop(duk_context* context, std::uint32_t reference) {
    PushReferences(context);
    duk_del_prop_index(context, -1, reference);
    duk_pop(context);
}

} // namespace quillon::jscript
