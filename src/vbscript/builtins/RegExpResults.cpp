// The objects that a search gives: lists and matches.
#include "vbscript/builtins/Members.h"
#include "vbscript/builtins/RegExp.h"
#include "vbscript/machine/Convert.h"

namespace quillon::vbscript {
namespace {

enum ListMember : MemberId { ItemMember = 1, CountMember };
constexpr std::string_view ListMembers[] = {"Item", "Count"};

enum MatchMember : MemberId { ValueMember = 1, FirstIndexMember, LengthMember, SubMatchesMember };
constexpr std::string_view MatchMembers[] = {"Value", "FirstIndex", "Length", "SubMatches"};

class ListWalk final : public VariantEnumerator {
  public:
    ListWalk(Object* list, const HeapVector<Variant>& values)
        : m_list(list)
        , m_values(values) {}
    bool Next(Variant& element) override {
        if (m_next == m_values.size())
            return false;
        element = m_values[m_next++];
        return true;
    }

  private:
    ObjectRef m_list;
    const HeapVector<Variant>& m_values; // of the list
    std::size_t m_next = 0;
};

} // namespace

std::optional<MemberId> ValueList::FindMember(std::string_view name) const {
    return FindInTable(ListMembers, name);
}

const void* ValueList::Shape() const noexcept {
    return ListMembers;
}

Variant ValueList::Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    switch (member) {
    case DefaultMemberId:
    case ItemMember: {
        RequireRead(kind, arguments, 1, "Item");
        const std::int32_t index = ToLong(arguments[0]);
        if (index < 0 || static_cast<std::size_t>(index) >= m_values.size())
            throw Failure(numbers::InvalidCall);
        return m_values[static_cast<std::size_t>(index)];
    }
    case CountMember:
        RequireRead(kind, arguments, 0, "Count");
        return static_cast<std::int32_t>(m_values.size());
    default: throw Failure(numbers::MemberNotSupported);
    }
}

std::unique_ptr<VariantEnumerator> ValueList::Walk() {
    return std::make_unique<ListWalk>(this, m_values);
}

RegExpMatch::RegExpMatch(Text text, const regexp::Matcher& matcher, std::int32_t groups)
    : m_text(std::move(text))
    , m_whole(matcher.Group(0)) {
    m_groups.reserve(static_cast<std::size_t>(groups));
    for (std::int32_t group = 1; group <= groups; ++group)
        m_groups.push_back(matcher.Group(group));
}

Variant RegExpMatch::Part(regexp::Matcher::Span span) const {
    if (!span.Matched())
        return {};
    return m_text.View().substr(static_cast<std::size_t>(span.start),
                                static_cast<std::size_t>(span.end - span.start));
}

ObjectRef RegExpMatch::SubMatches() const {
    HeapVector<Variant> parts;
    parts.reserve(m_groups.size());
    for (const regexp::Matcher::Span span : m_groups)
        parts.push_back(Part(span));
    return MakeObject<ValueList>("ISubMatches", std::move(parts));
}

std::optional<MemberId> RegExpMatch::FindMember(std::string_view name) const {
    return FindInTable(MatchMembers, name);
}

const void* RegExpMatch::Shape() const noexcept {
    return MatchMembers;
}

Variant RegExpMatch::Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    if (member < DefaultMemberId || member > SubMatchesMember)
        throw Failure(numbers::MemberNotSupported);
    // `match.SubMatches(0)` is the list's item: a property without parameters hands its arguments on.
    if (member == SubMatchesMember && !IsWrite(kind) && !arguments.empty())
        return static_cast<ValueList*>(SubMatches().get())->Access(DefaultMemberId, kind, arguments);
    const MemberId named = member == DefaultMemberId ? MemberId{ValueMember} : member;
    RequireRead(kind, arguments, 0, MatchMembers[named - 1]);
    switch (named) {
    case FirstIndexMember: return m_whole.start;
    case LengthMember: return m_whole.end - m_whole.start;
    case SubMatchesMember: return SubMatches();
    default: return Part(m_whole);
    }
}

} // namespace quillon::vbscript
