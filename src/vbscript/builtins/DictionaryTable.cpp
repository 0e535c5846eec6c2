#include "vbscript/builtins/DictionaryTable.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace quillon::vbscript {

std::size_t DictionaryTable::Bytes(std::uint32_t capacity) noexcept {
    const std::size_t entries = sizeof(Block) + capacity * sizeof(Entry);
    return capacity <= MostUnindexed ? entries
                                     : entries + sizeof(Index) + PlacesFor(capacity) * sizeof(Place);
}

std::span<DictionaryTable::Entry> DictionaryTable::UsedSlots() const noexcept {
    if (m_block == nullptr)
        return {};
    return {Entries(), IsIndexed() ? TheIndex().slots : m_block->count};
}

// The place of the key's entry, or the free one where the search for it ends.
DictionaryTable::Place& DictionaryTable::PlaceOf(const Variant& key, std::uint32_t hash, KeyRule rule) const {
    const std::uint32_t mask = PlacesFor(m_block->capacity) - 1;
    for (std::uint32_t at = hash & mask;; at = (at + 1) & mask) {
        Place& place = Places()[at];
        if (place.slot == Place::Free)
            return place;
        if (place.hash == hash && place.slot != Place::Gone &&
            rule.AreSame(Entries()[place.slot - 1].key, key))
            return place;
    }
}

DictionaryTable::Place& DictionaryTable::FreePlaceFor(std::uint32_t hash) const noexcept {
    const std::uint32_t mask = PlacesFor(m_block->capacity) - 1;
    std::uint32_t at = hash & mask;
    while (Places()[at].slot != Place::Free)
        at = (at + 1) & mask;
    return Places()[at];
}

void DictionaryTable::Take(std::uint32_t hash, std::uint32_t slot) noexcept {
    FreePlaceFor(hash) = {hash, slot + 1};
    ++TheIndex().taken;
}

DictionaryTable::Entry* DictionaryTable::Find(const Variant& key, KeyRule rule) const {
    if (IsIndexed()) {
        const std::uint32_t slot = PlaceOf(key, rule.HashOf(key), rule).slot;
        return slot == Place::Free ? nullptr : Entries() + slot - 1;
    }
    KeyRule::Require(key);
    for (Entry& entry : UsedSlots())
        if (rule.AreSame(entry.key, key))
            return &entry;
    return nullptr;
}

DictionaryTable::Entry& DictionaryTable::AddSlot(const Variant& key) noexcept {
    const std::size_t slot = IsIndexed() ? TheIndex().slots++ : m_block->count;
    ++m_block->count;
    return *new (Entries() + slot) Entry{key, Variant()};
}

DictionaryTable::Entry& DictionaryTable::Append(const Variant& key, KeyRule rule) {
    MakeRoom(rule);
    if (IsIndexed())
        Take(rule.HashOf(key), TheIndex().slots);
    return AddSlot(key);
}

Variant DictionaryTable::Rename(const Variant& from, const Variant& to, KeyRule rule) {
    if (!IsIndexed())
        return std::exchange(Find(from, rule)->key, to);
    MakeRoom(rule);
    const std::uint32_t hash = rule.HashOf(to);
    Place& place = PlaceOf(from, rule.HashOf(from), rule);
    const std::uint32_t slot = std::exchange(place.slot, Place::Gone) - 1;
    Take(hash, slot);
    return std::exchange(Entries()[slot].key, to);
}

DictionaryTable::Entry DictionaryTable::Remove(const Variant& key, KeyRule rule) {
    if (IsIndexed()) {
        Place& place = PlaceOf(key, rule.HashOf(key), rule);
        Entry& entry = Entries()[std::exchange(place.slot, Place::Gone) - 1];
        --m_block->count;
        return {std::exchange(entry.key, Variant::Internal(Kind::Unset, nullptr)), std::move(entry.item)};
    }
    Entry* const entry = Find(key, rule);
    Entry removed = std::move(*entry);
    std::destroy_at(std::move(entry + 1, Entries() + m_block->count, entry));
    --m_block->count;
    return removed;
}

void DictionaryTable::Clear() noexcept {
    const std::span<Entry> slots = UsedSlots();
    Block* const block = std::exchange(m_block, nullptr);
    std::ranges::destroy(slots);
    if (block != nullptr)
        Heap::Free(block, Bytes(block->capacity));
}

// For one more key. While there are few entries the room is exact; later it doubles, unless half of it is
// taken by what is no longer meant.
void DictionaryTable::MakeRoom(KeyRule rule) {
    if (IsIndexed()) {
        const std::uint32_t capacity = m_block->capacity;
        if (TheIndex().taken == capacity)
            Rebuild(m_block->count > capacity / 2 ? capacity * 2 : capacity, rule);
    } else if (m_block == nullptr || m_block->count == m_block->capacity) {
        if (Count() == MostUnindexed)
            Rebuild(FirstIndexed, rule);
        else
            Resize(static_cast<std::uint32_t>(Count() + 1));
    }
}

HeapVector<std::uint32_t> DictionaryTable::Hashes(KeyRule rule) const {
    HeapVector<std::uint32_t> hashes(Slots().size());
    if (IsIndexed()) {
        for (const Place& place : std::span(Places(), PlacesFor(m_block->capacity)))
            if (place.slot != Place::Free && place.slot != Place::Gone)
                hashes[place.slot - 1] = place.hash;
    } else {
        std::ranges::transform(Slots(), hashes.begin(),
                               [&](const Entry& entry) { return rule.HashOf(entry.key); });
    }
    return hashes;
}

// Drops the removed entries and makes the index anew.
void DictionaryTable::Rebuild(std::uint32_t capacity, KeyRule rule) {
    HeapVector<std::uint32_t> hashes = Hashes(rule);
    Resize(capacity);
    std::uint32_t kept = 0;
    for (std::uint32_t slot = 0; slot < hashes.size(); ++slot) {
        if (!IsLive(Entries()[slot]))
            continue;
        if (kept != slot)
            Entries()[kept] = std::move(Entries()[slot]);
        hashes[kept++] = hashes[slot];
    }
    std::destroy(Entries() + kept, Entries() + hashes.size());
    TheIndex() = {kept, 0};
    std::fill_n(Places(), PlacesFor(capacity), Place{0, Place::Free});
    for (std::uint32_t slot = 0; slot < kept; ++slot)
        Take(hashes[slot], slot);
}

void DictionaryTable::Resize(std::uint32_t capacity) {
    if (m_block == nullptr)
        m_block = new (Heap::Allocate(Bytes(capacity))) Block{0, 0};
    else
        m_block = static_cast<Block*>(Heap::Reallocate(m_block, Bytes(m_block->capacity), Bytes(capacity)));
    m_block->capacity = capacity;
}

} // namespace quillon::vbscript
