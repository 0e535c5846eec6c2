#include "vbscript/builtins/Dictionary.h"

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Members.h"
#include "vbscript/machine/Array.h"

namespace quillon::vbscript {
namespace {

constexpr std::int32_t ElementNotFound = 32811;

enum Member : MemberId {
    ItemMember = 1,
    AddMember,
    ExistsMember,
    KeysMember,
    ItemsMember,
    RemoveMember,
    RemoveAllMember,
    CountMember,
    KeyMember,
    CompareModeMember,
    HashValMember
};

constexpr std::string_view Members[] = {"Item",      "Add",   "Exists", "Keys",        "Items",  "Remove",
                                        "RemoveAll", "Count", "Key",    "CompareMode", "HashVal"};

// For Each runs over the keys there were when it began, so that the body may add and remove.
class KeyWalk final : public VariantEnumerator {
  public:
    explicit KeyWalk(Variant keys)
        : m_keys(std::move(keys)) {}
    bool Next(Variant& element) override {
        const auto keys = m_keys.AsArray()->Elements();
        if (m_next == keys.size())
            return false;
        element = keys[m_next++];
        return true;
    }

  private:
    Variant m_keys;
    std::size_t m_next = 0;
};

} // namespace

ObjectRef Dictionary::Create() {
    return MakeObject<Dictionary>();
}

std::optional<MemberId> Dictionary::FindMember(std::string_view name) const {
    return FindInTable(Members, name);
}

const void* Dictionary::Shape() const noexcept {
    return Members;
}

DictionaryTable::Entry& Dictionary::Require(const Variant& key) const {
    DictionaryTable::Entry* const entry = m_table.Find(key, Rule());
    if (entry == nullptr)
        throw Failure(ElementNotFound, "Element not found");
    return *entry;
}

Variant& Dictionary::ItemOf(const Variant& key) {
    DictionaryTable::Entry* const entry = m_table.Find(key, Rule());
    return entry != nullptr ? entry->item : m_table.Append(key, Rule()).item;
}

Variant Dictionary::Add(std::span<Variant> arguments) {
    RequireCount(arguments, 2);
    if (m_table.Find(arguments[0], Rule()) != nullptr)
        throw Failure(numbers::KeyAlreadyInUse);
    m_table.Append(arguments[0], Rule()).item = arguments[1];
    return {};
}

Variant Dictionary::Item(InvokeKind kind, std::span<Variant> arguments) {
    if (!IsWrite(kind)) {
        RequireCount(arguments, 1);
        return ItemOf(arguments[0]);
    }
    RequireCount(arguments, 2);
    // What was there is released last: an object's Terminate may use this very dictionary.
    Variant held = arguments[1];
    ItemOf(arguments[0]).Swap(held);
    return {};
}

// Key(old) = new: the entry keeps its item and its place in the order.
Variant Dictionary::Rename(InvokeKind kind, std::span<Variant> arguments) {
    if (!IsWrite(kind))
        throw Failure(numbers::WrongArgumentCount);
    RequireCount(arguments, 2);
    const DictionaryTable::Entry* const other = m_table.Find(arguments[1], Rule());
    if (other != &Require(arguments[0]) && other != nullptr)
        throw Failure(numbers::KeyAlreadyInUse);
    const Variant released = m_table.Rename(arguments[0], arguments[1], Rule());
    return {};
}

Variant Dictionary::Remove(const Variant& key) {
    (void)Require(key);
    const DictionaryTable::Entry released = m_table.Remove(key, Rule());
    return {};
}

Variant Dictionary::RemoveAll() noexcept {
    m_table.Clear();
    return {};
}

Variant Dictionary::CompareMode(InvokeKind kind, std::span<Variant> arguments) {
    if (!IsWrite(kind)) {
        RequireCount(arguments, 0);
        return static_cast<std::int32_t>(m_mark);
    }
    RequireCount(arguments, 1);
    const std::int32_t mode = ToLong(arguments[0]);
    if (m_table.Count() != 0 || mode < 0 || mode > 2)
        RaiseInvalidCall();
    m_table.Clear(); // nothing that was removed may stay under another rule
    m_mark = static_cast<std::uint32_t>(mode) & 3;
    return {};
}

Variant Dictionary::List(Variant DictionaryTable::Entry::*part) const {
    ArrayBuffer* const array = ArrayBuffer::OfCount(m_table.Count());
    const Variant result(array);
    auto place = array->Elements().begin();
    for (const DictionaryTable::Entry& slot : m_table.Slots()) {
        if (DictionaryTable::IsLive(slot))
            *place++ = slot.*part;
    }
    return result;
}

Variant Dictionary::Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    const auto read = [&](std::size_t count) { RequireRead(kind, arguments, count, Members[member - 1]); };
    switch (member) {
    case DefaultMemberId:
    case ItemMember: return Item(kind, arguments);
    case AddMember: read(2); return Add(arguments);
    case ExistsMember: read(1); return m_table.Find(arguments[0], Rule()) != nullptr;
    case KeysMember: read(0); return List(&DictionaryTable::Entry::key);
    case ItemsMember: read(0); return List(&DictionaryTable::Entry::item);
    case RemoveMember: read(1); return Remove(arguments[0]);
    case RemoveAllMember: read(0); return RemoveAll();
    case CountMember: read(0); return static_cast<std::int32_t>(m_table.Count());
    case KeyMember: return Rename(kind, arguments);
    case CompareModeMember: return CompareMode(kind, arguments);
    case HashValMember: read(1); return static_cast<std::int32_t>(Rule().HashOf(arguments[0]) & 0x7FFFFFFF);
    default: throw Failure(numbers::MemberNotSupported);
    }
}

std::unique_ptr<VariantEnumerator> Dictionary::Walk() {
    return std::make_unique<KeyWalk>(List(&DictionaryTable::Entry::key));
}

} // namespace quillon::vbscript
