// The objects RegExp, its matches and their parts, as New RegExp and CreateObject("VBScript.RegExp") give
// them.
//
// A pattern is compiled when it is first used, and again only when pattern or flags change; that is when the
// failures of its syntax come. Matches hold the text that was searched and outlive the RegExp.
#pragma once

#include <memory>
#include <optional>
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

// A read-only list of values with Count and Item: the matches of a search, the parts of a match.
class ValueList final : public LeafObject {
  public:
    // `typeName` must live as long as the process.
    ValueList(const char* typeName, HeapVector<Variant> values)
        : m_typeName(typeName)
        , m_values(std::move(values)) {}

    std::string TypeName() const override { return m_typeName; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override;
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;
    std::unique_ptr<VariantEnumerator> Walk() override;

  private:
    const char* m_typeName;
    HeapVector<Variant> m_values;
};

// One match. FirstIndex counts from 0.
class RegExpMatch final : public LeafObject {
  public:
    // Of the last match that `matcher` found in `text`.
    RegExpMatch(Text text, const regexp::Matcher& matcher, std::int32_t groups);

    std::string TypeName() const override { return "IMatch2"; }
    std::optional<MemberId> FindMember(std::string_view name) const override;
    const void* Shape() const noexcept override;
    Variant Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) override;

  private:
    Variant Part(regexp::Matcher::Span span) const; // Empty for a group that took no part
    ObjectRef SubMatches() const;

    Text m_text;
    regexp::Matcher::Span m_whole;
    HeapVector<regexp::Matcher::Span> m_groups;
};

} // namespace quillon::vbscript
