// Scripting.Dictionary: keys of any sub-type but arrays to values of any, in the order they were added.
//
// Texts and numbers are different keys; numbers of all sub-types are equal by value, objects by identity.
// Reading an unknown key through Item adds it with Empty, as scripts rely on. Failures: 457 for a key already
// there, 32811 for one that is not, 5 for an array as key and for a change of CompareMode when not empty.
#pragma once

#include <cstdint>
#include <vector>

#include "vbscript/machine/Heap.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

class Dictionary final : public NativeObject {
  public:
    static ObjectRef Create();

    std::string TypeName() const override { return "Dictionary"; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override;
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;
    std::unique_ptr<VariantEnumerator> Walk() override;
    void DropContents() noexcept override { RemoveAll(); }

  private:
    // A slot in the order of adding; removed ones stay, marked by an Unset key, until the table is rebuilt.
    struct Entry {
        Variant key;
        Variant item;
        std::uint32_t hash;
    };
    using Entries = std::vector<Entry, HeapAllocator<Entry>>;
    // Places in m_entries plus one, by open addressing; a power of two, at most three quarters full. Empty
    // while there are few entries: those are looked through.
    using Index = std::vector<std::uint32_t, HeapAllocator<std::uint32_t>>;

    static constexpr std::size_t MostUnindexed = 8;

    std::uint32_t HashOf(const Variant& key) const;
    bool SameKey(const Variant& left, const Variant& right) const;
    // Where the index holds the key, or the free place where it would.
    std::size_t PlaceOf(const Variant& key, std::uint32_t hash) const;
    Entry* Find(const Variant& key);
    Entry& Require(const Variant& key);
    Entry& FindOrAdd(const Variant& key);
    Entry& Append(const Variant& key, std::uint32_t hash);
    void MakeRoom(); // for one more key
    void Place(const Entry& entry);
    void Rebuild();
    static bool IsLive(const Entry& entry) { return entry.key.kind() != Kind::Unset; }

    Variant Add(std::span<Variant> arguments);
    Variant Item(InvokeKind kind, std::span<Variant> arguments);
    Variant Rename(InvokeKind kind, std::span<Variant> arguments);
    Variant Remove(const Variant& key);
    Variant RemoveAll() noexcept;
    Variant CompareMode(InvokeKind kind, std::span<Variant> arguments);
    Variant List(Variant Entry::*part) const;

    Entries m_entries;
    Index m_index;
    std::uint32_t m_used = 0; // places of the index that are taken: by an entry, or by a key it had once
    std::uint32_t m_count = 0;
    std::int32_t m_compareMode = 0;
};

} // namespace quillon::vbscript
