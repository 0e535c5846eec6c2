#include "vbscript/builtins/Dictionary.h"

#include <algorithm>
#include <bit>

#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Members.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Work.h"

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

std::uint32_t Mixed(std::uint64_t bits) {
    bits ^= bits >> 32;
    bits *= 0x9E3779B97F4A7C15U;
    return static_cast<std::uint32_t>(bits >> 32);
}

bool IsNumber(const Variant& value) {
    return value.kind() >= Kind::Boolean && value.kind() <= Kind::Date;
}

double NumberOf(const Variant& value) {
    switch (value.kind()) {
    case Kind::Single: return static_cast<double>(value.Single());
    case Kind::Double:
    case Kind::Date: return value.Real();
    case Kind::Currency: return DoubleOf(value.Currency());
    default: return static_cast<double>(value.Number());
    }
}

std::uint32_t FoldedHash(std::u16string_view text) {
    Work::Done(text.size());
    std::uint32_t hash = 2166136261U;
    for (const char16_t c : text)
        hash = (hash ^ LowerOf(c)) * 16777619U;
    return hash;
}

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

std::uint32_t Dictionary::HashOf(const Variant& key) const {
    switch (key.kind()) {
    case Kind::Empty:
    case Kind::Null: return static_cast<std::uint32_t>(key.kind());
    case Kind::Text: return Mixed(m_compareMode == 0 ? key.AsText().Hash() : FoldedHash(key.View()));
    case Kind::Object:
    case Kind::ScriptObject: return Mixed(reinterpret_cast<std::uintptr_t>(key.AsObject().get()));
    default: break;
    }
    if (!IsNumber(key))
        RaiseInvalidCall();
    return Mixed(std::bit_cast<std::uint64_t>(NumberOf(key) + 0.0)); // -0.0 is 0.0
}

bool Dictionary::SameKey(const Variant& left, const Variant& right) const {
    if (left.IsText() || right.IsText()) {
        if (left.kind() != right.kind())
            return false;
        return m_compareMode == 0 ? left.AsText() == right.AsText()
                                  : CompareIgnoringCase(left.View(), right.View()) == 0;
    }
    if (IsNumber(left) && IsNumber(right))
        return NumberOf(left) == NumberOf(right);
    if (left.IsObject() && right.IsObject())
        return left.AsObject() == right.AsObject();
    return left.kind() == right.kind() && !IsNumber(left);
}

std::size_t Dictionary::PlaceOf(const Variant& key, std::uint32_t hash) const {
    const std::size_t mask = m_index.size() - 1;
    for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
        const std::uint32_t held = m_index[place];
        if (held == 0)
            return place;
        const Entry& entry = m_entries[held - 1];
        if (entry.hash == hash && SameKey(entry.key, key))
            return place;
    }
}

Dictionary::Entry* Dictionary::Find(const Variant& key) {
    const std::uint32_t hash = HashOf(key);
    if (m_index.empty()) {
        const auto found = std::ranges::find_if(
            m_entries, [&](const Entry& entry) { return entry.hash == hash && SameKey(entry.key, key); });
        return found == m_entries.end() ? nullptr : &*found;
    }
    const std::uint32_t held = m_index[PlaceOf(key, hash)];
    return held == 0 ? nullptr : &m_entries[held - 1];
}

Dictionary::Entry& Dictionary::Require(const Variant& key) {
    Entry* const entry = Find(key);
    if (entry == nullptr)
        throw Failure(ElementNotFound, "Element not found");
    return *entry;
}

Dictionary::Entry& Dictionary::FindOrAdd(const Variant& key) {
    if (Entry* const entry = Find(key))
        return *entry;
    return Append(key, HashOf(key));
}

Dictionary::Entry& Dictionary::Append(const Variant& key, std::uint32_t hash) {
    MakeRoom();
    m_entries.push_back({key, Variant(), hash});
    if (!m_index.empty())
        Place(m_entries.back());
    ++m_count;
    return m_entries.back();
}

void Dictionary::MakeRoom() {
    if (m_index.empty() ? m_entries.size() >= MostUnindexed : (m_used + 1) * 4 > m_index.size() * 3)
        Rebuild();
}

void Dictionary::Place(const Entry& entry) {
    std::uint32_t& place = m_index[PlaceOf(entry.key, entry.hash)];
    m_used += place == 0 ? 1 : 0;
    place = static_cast<std::uint32_t>(&entry - m_entries.data() + 1);
}

// Drops the removed entries and makes the index fit for twice as many as are left.
void Dictionary::Rebuild() {
    const bool isIndexed = m_count >= MostUnindexed;
    Index index(isIndexed ? std::bit_ceil(m_count * std::size_t{3}) : 0, 0);
    std::erase_if(m_entries, [](const Entry& entry) { return !IsLive(entry); });
    m_index.swap(index);
    m_used = isIndexed ? m_count : 0;
    if (!isIndexed)
        return;
    const std::size_t mask = m_index.size() - 1;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        std::size_t place = m_entries[i].hash & mask;
        while (m_index[place] != 0)
            place = (place + 1) & mask;
        m_index[place] = static_cast<std::uint32_t>(i + 1);
    }
}

Variant Dictionary::Add(std::span<Variant> arguments) {
    RequireCount(arguments, 2);
    if (Find(arguments[0]) != nullptr)
        throw Failure(numbers::KeyAlreadyInUse);
    Append(arguments[0], HashOf(arguments[0])).item = arguments[1];
    return {};
}

Variant Dictionary::Item(InvokeKind kind, std::span<Variant> arguments) {
    if (!IsWrite(kind)) {
        RequireCount(arguments, 1);
        return FindOrAdd(arguments[0]).item;
    }
    RequireCount(arguments, 2);
    // What was there is released last: an object's Terminate may use this very dictionary.
    Variant held = arguments[1];
    FindOrAdd(arguments[0]).item.Swap(held);
    return {};
}

// Key(old) = new: the entry keeps its item and its place in the order.
Variant Dictionary::Rename(InvokeKind kind, std::span<Variant> arguments) {
    if (!IsWrite(kind))
        throw Failure(numbers::WrongArgumentCount);
    RequireCount(arguments, 2);
    (void)Require(arguments[0]);
    MakeRoom();
    Entry& entry = Require(arguments[0]);
    if (const Entry* const other = Find(arguments[1])) {
        if (other != &entry)
            throw Failure(numbers::KeyAlreadyInUse);
    }
    const std::uint32_t hash = HashOf(arguments[1]);
    Variant released = arguments[1];
    entry.key.Swap(released);
    entry.hash = hash;
    if (!m_index.empty())
        Place(entry);
    return {};
}

Variant Dictionary::Remove(const Variant& key) {
    Entry& entry = Require(key);
    const Entry released{std::exchange(entry.key, Variant::Internal(Kind::Unset, nullptr)),
                         std::exchange(entry.item, Variant()), 0};
    --m_count;
    return {};
}

Variant Dictionary::RemoveAll() noexcept {
    Entries released;
    released.swap(m_entries);
    m_index.clear();
    m_used = 0;
    m_count = 0;
    return {};
}

Variant Dictionary::CompareMode(InvokeKind kind, std::span<Variant> arguments) {
    if (!IsWrite(kind)) {
        RequireCount(arguments, 0);
        return m_compareMode;
    }
    RequireCount(arguments, 1);
    const std::int32_t mode = ToLong(arguments[0]);
    if (m_count != 0 || mode < 0 || mode > 2)
        RaiseInvalidCall();
    RemoveAll(); // hashes of removed entries are of the old mode
    m_compareMode = mode;
    return {};
}

Variant Dictionary::List(Variant Entry::*part) const {
    ArrayBuffer* const array = ArrayBuffer::OfCount(m_count);
    const Variant result(array);
    auto place = array->Elements().begin();
    for (const Entry& entry : m_entries) {
        if (IsLive(entry))
            *place++ = entry.*part;
    }
    return result;
}

Variant Dictionary::Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    const auto read = [&](std::size_t count) { RequireRead(kind, arguments, count, Members[member - 1]); };
    switch (member) {
    case DefaultMemberId:
    case ItemMember: return Item(kind, arguments);
    case AddMember: read(2); return Add(arguments);
    case ExistsMember: read(1); return Find(arguments[0]) != nullptr;
    case KeysMember: read(0); return List(&Entry::key);
    case ItemsMember: read(0); return List(&Entry::item);
    case RemoveMember: read(1); return Remove(arguments[0]);
    case RemoveAllMember: read(0); return RemoveAll();
    case CountMember: read(0); return static_cast<std::int32_t>(m_count);
    case KeyMember: return Rename(kind, arguments);
    case CompareModeMember: return CompareMode(kind, arguments);
    case HashValMember: read(1); return static_cast<std::int32_t>(HashOf(arguments[0]) & 0x7FFFFFFF);
    default: throw Failure(numbers::MemberNotSupported);
    }
}

std::unique_ptr<VariantEnumerator> Dictionary::Walk() {
    return std::make_unique<KeyWalk>(List(&Entry::key));
}

} // namespace quillon::vbscript
