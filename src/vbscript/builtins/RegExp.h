// The objects RegExp, its matches and their parts, as New RegExp and CreateObject("VBScript.RegExp") give
// them.
//
// A pattern is compiled when it is first used, and again only when pattern or flags change; that is when the
// failures of its syntax come. Matches hold the text that was searched and outlive the RegExp.
#pragma once

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>

#include "vbscript/builtins/RegExpMatcher.h"
#include "vbscript/builtins/RegExpProgram.h"
#include "vbscript/machine/Heap.h"
#include "vbscript/machine/ScriptObject.h"

namespace quillon::vbscript {

class RegExp final : public LeafObject {
  public:
    static ObjectRef Create();

    std::string TypeName() const override { return "IRegExp2"; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override;
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;

  private:
    const regexp::Program& Compiled();
    Variant Flag(bool& flag, InvokeKind kind, std::span<Variant> arguments);
    Variant Pattern(InvokeKind kind, std::span<Variant> arguments);
    Variant Test(const Variant& text);
    Variant Execute(const Variant& text);
    Variant Replace(const Variant& text, const Variant& replacement);

    Text m_pattern;
    bool m_global = false, m_ignoreCase = false, m_multiLine = false;
    std::unique_ptr<const regexp::Program> m_program;
};

// A leaf whose elements lie behind it in one piece of memory: a search can give a million of them.
template <class Own, class Element>
class LeafOfElements : public LeafObject {
  public:
    // With the elements moved out of `elements`.
    template <class... Arguments>
    static ObjectRef Of(std::span<Element> elements, Arguments&&... arguments) {
        void* const memory = Heap::Allocate(sizeof(Own) + elements.size_bytes());
        auto* const own = ::new (memory) Own(std::forward<Arguments>(arguments)...);
        own->m_count = static_cast<std::uint32_t>(elements.size());
        std::ranges::uninitialized_move(elements, own->Elements());
        return ObjectRef(own);
    }

    void operator delete(LeafOfElements* leaf, std::destroying_delete_t) noexcept {
        const std::span<Element> elements = leaf->Elements();
        std::ranges::destroy(elements);
        auto* const own = static_cast<Own*>(leaf);
        own->~Own();
        Heap::Free(own, sizeof(Own) + elements.size_bytes());
    }

  protected:
    std::span<Element> Elements() noexcept {
        static_assert(sizeof(Own) % alignof(Element) == 0);
        return {reinterpret_cast<Element*>(static_cast<Own*>(this) + 1), m_count};
    }

  private:
    std::uint32_t m_count = 0;
};

// A read-only list of values with Count and Item: the matches of a search, the parts of a match.
class ValueList final : public LeafOfElements<ValueList, Variant> {
  public:
    enum Content : std::uint8_t { Matches, SubMatches };

    explicit ValueList(Content content) { m_mark = static_cast<std::uint32_t>(content) & 1; }

    std::string TypeName() const override;
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override;
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;
    std::unique_ptr<VariantEnumerator> Walk() override;
};

// One match: where it and its groups lie in the text. FirstIndex counts from 0.
class RegExpMatch final : public LeafOfElements<RegExpMatch, regexp::Matcher::Span> {
  public:
    explicit RegExpMatch(Text text)
        : m_text(std::move(text)) {}

    std::string TypeName() const override { return "IMatch2"; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override;
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;

  private:
    Variant Part(regexp::Matcher::Span span) const; // Empty for a group that took no part
    ObjectRef SubMatches();

    Text m_text;
};

} // namespace quillon::vbscript
