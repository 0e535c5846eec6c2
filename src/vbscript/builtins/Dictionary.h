// Scripting.Dictionary: keys of any sub-type but arrays to values of any, in the order they were added.
//
// Reading an unknown key through Item adds it with Empty, as scripts rely on. Failures: 457 for a key already
// there, 32811 for one that is not, 5 for an array as key and for a change of CompareMode when not empty.
#pragma once

#include "vbscript/builtins/DictionaryTable.h"
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
    // The mark of the object is its CompareMode: two bits of their own would make it a third larger.
    KeyRule Rule() const noexcept { return KeyRule(m_mark != 0); }
    DictionaryTable::Entry& Require(const Variant& key) const; // raises 32811
    Variant& ItemOf(const Variant& key);                       // adds the key if it is not there

    Variant Add(std::span<Variant> arguments);
    Variant Item(InvokeKind kind, std::span<Variant> arguments);
    Variant Rename(InvokeKind kind, std::span<Variant> arguments);
    Variant Remove(const Variant& key);
    Variant RemoveAll() noexcept;
    Variant CompareMode(InvokeKind kind, std::span<Variant> arguments);
    Variant List(Variant DictionaryTable::Entry::*part) const;

    DictionaryTable m_table;
};

} // namespace quillon::vbscript
