// The entries of a dictionary, in the order they were added.
//
// One piece of memory, and no more than the entries need while there are few, since scripts make small
// dictionaries by the million: those are looked through. Behind more entries stands an index by the hashes of
// their keys; there a removed entry keeps its slot, with an Unset key, until the table is rebuilt.
//
// What a call takes out of the table it hands to the caller, who lets go of it last: that may run script code
// that uses this very table.
#pragma once

#include <cstdint>
#include <span>

#include "vbscript/builtins/DictionaryKeys.h"
#include "vbscript/machine/Heap.h"

namespace quillon::vbscript {

class DictionaryTable {
  public:
    struct Entry {
        Variant key;
        Variant item;
    };

    DictionaryTable() noexcept = default;
    DictionaryTable(const DictionaryTable&) = delete;
    DictionaryTable& operator=(const DictionaryTable&) = delete;
    ~DictionaryTable() { Clear(); }

    std::size_t Count() const noexcept { return m_block == nullptr ? 0 : m_block->count; }
    // In order, removed ones among them.
    std::span<const Entry> Slots() const noexcept { return UsedSlots(); }
    static bool IsLive(const Entry& slot) noexcept { return slot.key.kind() != Kind::Unset; }

    // --- one rule for as long as the table has been filled; the calls raise 5 as KeyRule does, and 7 where
    // --- memory ends, and then change nothing
    // Null where there is none. Valid until the next change.
    Entry* Find(const Variant& key, KeyRule rule) const;
    // For a key that is not there; with an Empty item.
    Entry& Append(const Variant& key, KeyRule rule);
    // Of an entry that is there, to a key that no other one has. Gives the old key.
    Variant Rename(const Variant& from, const Variant& to, KeyRule rule);
    // Of an entry that is there.
    Entry Remove(const Variant& key, KeyRule rule);

    void Clear() noexcept;

  private:
    static constexpr std::uint32_t MostUnindexed = 8;
    static constexpr std::uint32_t FirstIndexed = 12; // entries; three quarters of a power of two, as all

    struct Block {
        std::uint32_t count;
        std::uint32_t capacity; // entries that there is room for behind this
    };
    // A place of the index: free, taken by a slot (counted from 1), or by one that is no longer meant.
    struct Place {
        static constexpr std::uint32_t Free = 0, Gone = 0xFFFFFFFF;
        std::uint32_t hash;
        std::uint32_t slot;
    };
    // Stands behind the entries, and its places behind it: a third more than there is room for entries.
    struct Index {
        std::uint32_t slots; // used ones, removed ones among them
        std::uint32_t taken; // places; no more than the capacity
    };

    static std::size_t Bytes(std::uint32_t capacity) noexcept;
    static std::uint32_t PlacesFor(std::uint32_t capacity) noexcept { return capacity / 3 * 4; }

    std::span<Entry> UsedSlots() const noexcept;
    bool IsIndexed() const noexcept { return m_block != nullptr && m_block->capacity > MostUnindexed; }
    Entry* Entries() const noexcept { return reinterpret_cast<Entry*>(m_block + 1); }
    Index& TheIndex() const noexcept { return *reinterpret_cast<Index*>(Entries() + m_block->capacity); }
    Place* Places() const noexcept { return reinterpret_cast<Place*>(&TheIndex() + 1); }

    Place& PlaceOf(const Variant& key, std::uint32_t hash, KeyRule rule) const;
    Place& FreePlaceFor(std::uint32_t hash) const noexcept;
    void Take(std::uint32_t hash, std::uint32_t slot) noexcept;
    Entry& AddSlot(const Variant& key) noexcept;
    void MakeRoom(KeyRule rule);
    HeapVector<std::uint32_t> Hashes(KeyRule rule) const; // of the slots that are live
    void Rebuild(std::uint32_t capacity, KeyRule rule);
    void Resize(std::uint32_t capacity);

    Block* m_block = nullptr;
};

} // namespace quillon::vbscript
