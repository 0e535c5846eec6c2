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
    explicit ListWalk(std::vector<Variant> values)
        : m_values(std::move(values)) {}
    bool Next(Variant& element) override {
        if (m_next == m_values.size())
            return false;
        element = m_values[m_next++];
        return true;
    }

  private:
    std::vector<Variant> m_values;
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
    return std::make_unique<ListWalk>(m_values);
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
        return static_cast<ScriptObject*>(m_subMatches.get())->Access(DefaultMemberId, kind, arguments);
    const MemberId named = member == DefaultMemberId ? MemberId{ValueMember} : member;
    RequireRead(kind, arguments, 0, MatchMembers[named - 1]);
    switch (named) {
    case FirstIndexMember: return m_firstIndex;
    case LengthMember: return static_cast<std::int32_t>(m_value.Length());
    case SubMatchesMember: return m_subMatches;
    default: return m_value;
    }
}

} // namespace quillon::vbscript
