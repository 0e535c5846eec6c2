#include "model/KeyIndex.h"

#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Object.h"
#include "template/TextCase.h"

namespace quillon {
namespace {

constexpr std::size_t SearchedInARow = 8;

} // namespace

bool KeyIndex::Matches(std::size_t position, std::string_view key, std::uint32_t hash) const noexcept {
    const Entry& entry = m_entries[position];
    return entry.hash == hash && !entry.key.empty() && EqualFolded(entry.key.str(), key);
}

std::optional<std::size_t> KeyIndex::FindHashed(std::string_view key, std::uint32_t hash) const noexcept {
    if (m_slots.empty()) {
        for (std::size_t position = 0; position < m_entries.size(); ++position) {
            if (Matches(position, key, hash))
                return position;
        }
        return std::nullopt;
    }
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t slot = hash & mask; m_slots[slot] != 0; slot = (slot + 1) & mask) {
        if (Matches(m_slots[slot] - 1, key, hash))
            return m_slots[slot] - 1;
    }
    return std::nullopt;
}

std::optional<std::size_t> KeyIndex::Find(std::string_view key) const noexcept {
    return FindHashed(key, FoldedHash(key));
}

void KeyIndex::Add(const InternedText& key) {
    const std::uint32_t hash = FoldedHash(key.str());
    if (!key.empty() && FindHashed(key.str(), hash))
        throw Failure(numbers::KeyAlreadyInUse);
    m_entries.push_back({key, hash});
    if (m_entries.size() <= SearchedInARow)
        return;
    if (m_entries.size() * 4 > m_slots.size() * 3)
        Rebuild();
    else
        Enter(m_entries.size() - 1);
}

void KeyIndex::Remove(std::size_t position) {
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
    m_slots.clear();
    if (m_entries.size() > SearchedInARow)
        Rebuild();
}

// Makes the table at most three quarters full and enters everything anew.
void KeyIndex::Rebuild() {
    std::size_t size = 16;
    while (m_entries.size() * 4 > size * 3)
        size *= 2;
    m_slots.assign(size, 0);
    for (std::size_t position = 0; position < m_entries.size(); ++position)
        Enter(position);
}

void KeyIndex::Enter(std::size_t position) noexcept {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = m_entries[position].hash & mask;
    while (m_slots[slot] != 0)
        slot = (slot + 1) & mask;
    m_slots[slot] = static_cast<std::uint32_t>(position + 1);
}

std::size_t KeyIndex::Locate(const Value& indexKey) const {
    const Value plain = PlainValue(indexKey);
    if (const auto* key = plain.If<std::string>()) {
        const auto position = Find(*key);
        if (!position)
            throw Failure(numbers::InvalidCall);
        return *position;
    }
    if (!conversion::IsNumeric(plain))
        throw Failure(numbers::TypeMismatch);
    const double position = conversion::RoundHalfEven(conversion::ToDouble(plain));
    if (!(position >= 1 && position <= static_cast<double>(size())))
        throw Failure(numbers::SubscriptOutOfRange);
    return static_cast<std::size_t>(position) - 1;
}

std::optional<std::size_t> KeyIndex::LocateOrNone(const Value& indexKey) const {
    const Value plain = PlainValue(indexKey);
    if (conversion::IsNumeric(plain) && conversion::ToDouble(plain) > static_cast<double>(size()))
        return std::nullopt;
    return Locate(plain);
}

Value PlainValue(const Value& value) {
    Value plain = value;
    while (plain.IsObject()) {
        const ObjectRef object = plain.As<ObjectRef>();
        if (!object)
            throw Failure(numbers::ObjectNotSet);
        plain = object->Invoke(DefaultMemberId, InvokeKind::Get, {});
    }
    return plain;
}

} // namespace quillon
