#include "vbscript/machine/ScriptObject.h"

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::vbscript {
namespace {

// Objects whose last reference has gone while another one is being destroyed. A list that a script linked
// together a million long would otherwise be destroyed by a million nested calls.
class Graveyard {
  public:
    template <class Destroy>
    void Bury(ScriptObject* object, Destroy&& destroy) noexcept {
        if (m_depth >= DeepestNesting) {
            m_waiting.push_back(object);
            return;
        }
        ++m_depth;
        destroy(object);
        if (m_depth == 1) {
            while (!m_waiting.empty()) {
                ScriptObject* next = m_waiting.back();
                m_waiting.pop_back();
                destroy(next);
            }
        }
        --m_depth;
    }

  private:
    static constexpr int DeepestNesting = 16;
    int m_depth = 0;
    std::vector<ScriptObject*> m_waiting;
};

thread_local Graveyard t_graveyard;

class EnumeratorOfValues : public ObjectEnumerator {
  public:
    explicit EnumeratorOfValues(std::unique_ptr<VariantEnumerator> walk)
        : m_walk(std::move(walk)) {}
    std::optional<Value> Next() override {
        Variant element;
        if (!m_walk->Next(element))
            return std::nullopt;
        return ToValue(element);
    }

  private:
    std::unique_ptr<VariantEnumerator> m_walk;
};

char Lowered(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

} // namespace

std::unique_ptr<VariantEnumerator> ScriptObject::Walk() {
    throw Failure(numbers::NotACollection);
}

Value ScriptObject::Invoke(MemberId member, InvokeKind kind, std::span<Value> arguments) {
    std::vector<Variant> variants;
    variants.reserve(arguments.size());
    for (const Value& argument : arguments)
        variants.push_back(FromValue(argument));
    return ToValue(Access(member, kind, variants));
}

std::unique_ptr<ObjectEnumerator> ScriptObject::Enumerate() {
    return std::make_unique<EnumeratorOfValues>(Walk());
}

void ScriptObject::Release() noexcept {
    if (LastRelease())
        t_graveyard.Bury(this, [](ScriptObject* object) { delete object; });
}

ObjectRegistry::~ObjectRegistry() {
    DropAll();
}

void ObjectRegistry::Add(ScriptObject& object) {
    object.m_place = static_cast<std::uint32_t>(m_objects.size()) & 0x7FFFFFFF;
    m_objects.push_back(&object);
}

void ObjectRegistry::Remove(ScriptObject& object) noexcept {
    m_objects.back()->m_place = object.m_place;
    m_objects[object.m_place] = m_objects.back();
    m_objects.pop_back();
}

void ObjectRegistry::DropAll() noexcept {
    std::vector<ObjectRef> alive;
    alive.reserve(m_objects.size());
    for (ScriptObject* object : m_objects)
        alive.emplace_back(object);
    for (const ObjectRef& object : alive) {
        auto* own = static_cast<ScriptObject*>(object.get());
        own->DropContents();
        own->Orphan();
    }
    m_objects.clear();
}

NativeObject::NativeObject()
    : m_registry(ObjectRegistry::Current()) {
    if (m_registry != nullptr)
        m_registry->Add(*this);
}

NativeObject::~NativeObject() {
    if (m_registry != nullptr)
        m_registry->Remove(*this);
}

std::optional<MemberId> FindInTable(std::span<const std::string_view> table, std::string_view name) noexcept {
    for (std::size_t place = 0; place < table.size(); ++place)
        if (std::ranges::equal(table[place], name, {}, Lowered, Lowered))
            return static_cast<MemberId>(place + 1);
    return std::nullopt;
}

} // namespace quillon::vbscript
