#include "vbscript/machine/ScriptObject.h"

#include <algorithm>

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

// The pages of all registries of a thread by their numbers; null where a number is free.
struct ObjectRegistry::PageTable {
    std::vector<Page*> pages;
    std::size_t firstFree = 0; // no number below it is
    std::size_t used = 0;
};

thread_local constinit ObjectRegistry::PageTable* ObjectRegistry::s_table = nullptr;

ObjectRegistry::~ObjectRegistry() {
    DropAll();
}

ScriptObject*& ObjectRegistry::At(std::uint32_t place) noexcept {
    return s_table->pages[place / PageSize]->objects[place % PageSize];
}

ObjectRegistry* ObjectRegistry::Of(const ScriptObject& object) noexcept {
    return object.m_place == ScriptObject::NoPlace ? nullptr
                                                   : s_table->pages[object.m_place / PageSize]->registry;
}

void ObjectRegistry::AddPage() {
    if (s_table == nullptr)
        s_table = new PageTable;
    std::vector<Page*>& pages = s_table->pages;
    const auto number = static_cast<std::size_t>(
        std::find(pages.begin() + static_cast<std::ptrdiff_t>(s_table->firstFree), pages.end(), nullptr) -
        pages.begin());
    if (number == ScriptObject::NoPlace / PageSize)
        throw Failure(numbers::OutOfMemory);
    if (number == pages.size())
        pages.push_back(nullptr);
    auto page = std::make_unique<Page>(Page{this, {}});
    m_pages.push_back(static_cast<std::uint32_t>(number));
    pages[number] = page.release();
    s_table->firstFree = number + 1;
    ++s_table->used;
}

void ObjectRegistry::GiveUpPagesBut(std::size_t count) noexcept {
    while (m_pages.size() > count) {
        const std::size_t number = m_pages.back();
        m_pages.pop_back();
        delete std::exchange(s_table->pages[number], nullptr);
        s_table->firstFree = std::min(s_table->firstFree, number);
        if (--s_table->used == 0)
            delete std::exchange(s_table, nullptr);
    }
}

void ObjectRegistry::Add(ScriptObject& object) {
    if (m_count == m_pages.size() * PageSize)
        AddPage();
    object.m_place = PlaceOf(m_count) & ScriptObject::NoPlace;
    At(object.m_place) = &object;
    ++m_count;
}

// The last object takes the place that becomes free.
void ObjectRegistry::Remove(ScriptObject& object) noexcept {
    ScriptObject* const last = At(PlaceOf(--m_count));
    At(object.m_place) = last;
    last->m_place = object.m_place;
    object.m_place = ScriptObject::NoPlace;
    if (m_count % PageSize == 0)
        GiveUpPagesBut(m_count / PageSize + 1); // one stays for the next objects
}

void ObjectRegistry::DropAll() noexcept {
    while (m_count != 0) { // again for what was made meanwhile
        std::vector<ObjectRef> alive;
        alive.reserve(m_count);
        for (std::size_t number = 0; number < m_count; ++number)
            alive.emplace_back(At(PlaceOf(number)));
        for (const ObjectRef& object : alive) {
            auto* own = static_cast<ScriptObject*>(object.get());
            own->DropContents();
            own->Orphan();
            Remove(*own);
        }
    }
    GiveUpPagesBut(0);
}

NativeObject::NativeObject() {
    if (ObjectRegistry* const current = ObjectRegistry::Current())
        current->Add(*this);
}

NativeObject::~NativeObject() {
    if (ObjectRegistry* const registry = ObjectRegistry::Of(*this))
        registry->Remove(*this);
}

std::optional<MemberId> FindInTable(std::span<const std::string_view> table, std::string_view name) noexcept {
    for (std::size_t place = 0; place < table.size(); ++place)
        if (std::ranges::equal(table[place], name, {}, Lowered, Lowered))
            return static_cast<MemberId>(place + 1);
    return std::nullopt;
}

} // namespace quillon::vbscript
