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
    ListWalk(Object* list, std::span<const Variant> values)
        : m_list(list)
        , m_rest(values) {}
    bool Next(Variant& element) override {
        if (m_rest.empty())
            return false;
        element = m_rest.front();
        m_rest = m_rest.subspan(1);
        return true;
    }

  private:
    ObjectRef m_list;
    std::span<const Variant> m_rest; // of the list
};

} // namespace

std::string ValueList::TypeName() const {
    return m_mark == Matches ? "IMatchCollection2" : "ISubMatches";
}

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
        if (index < 0 || static_cast<std::size_t>(index) >= Elements().size())
            throw Failure(numbers::InvalidCall);
        return Elements()[static_cast<std::size_t>(index)];
    }
    case CountMember:
        RequireRead(kind, arguments, 0, "Count");
        return static_cast<std::int32_t>(Elements().size());
    default: throw Failure(numbers::MemberNotSupported);
    }
}

std::unique_ptr<VariantEnumerator> ValueList::Walk() {
    return std::make_unique<ListWalk>(this, Elements());
}

Variant RegExpMatch::Part(regexp::Matcher::Span span) const {
    if (!span.Matched())
        return {};
    return m_text.View().substr(static_cast<std::size_t>(span.start),
                                static_cast<std::size_t>(span.end - span.start));
}

ObjectRef RegExpMatch::SubMatches() {
    HeapVector<Variant> parts;
    parts.reserve(Elements().size() - 1);
    for (const regexp::Matcher::Span group : Elements().subspan(1))
        parts.push_back(Part(group));
    return ValueList::Of(parts, ValueList::SubMatches);
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
    const regexp::Matcher::Span whole = Elements().front();
    const MemberId named = member == DefaultMemberId ? MemberId{ValueMember} : member;
    RequireRead(kind, arguments, 0, MatchMembers[named - 1]);
    switch (named) {
    case FirstIndexMember: return whole.start;
    case LengthMember: return whole.end - whole.start;
    case SubMatchesMember: return SubMatches();
    default: return Part(whole);
    }
}

} // namespace quillon::vbscript
