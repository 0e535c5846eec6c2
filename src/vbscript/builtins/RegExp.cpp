#include "vbscript/builtins/RegExp.h"

#include "vbscript/builtins/Members.h"
#include "vbscript/builtins/RegExpCompiler.h"
#include "vbscript/machine/Convert.h"

namespace quillon::vbscript {
namespace {

using regexp::Matcher;

enum Member : MemberId {
    PatternMember = 1,
    GlobalMember,
    IgnoreCaseMember,
    MultilineMember,
    TestMember,
    ExecuteMember,
    ReplaceMember
};

constexpr std::string_view Members[] = {"Pattern", "Global",  "IgnoreCase", "Multiline",
                                        "Test",    "Execute", "Replace"};

std::u16string_view Slice(std::u16string_view text, Matcher::Span span) {
    if (!span.Matched())
        return {};
    return text.substr(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.end - span.start));
}

// Where the search goes on: behind the match, and one further behind an empty one.
std::size_t NextStart(Matcher::Span match) {
    return static_cast<std::size_t>(match.end) + (match.end == match.start ? 1 : 0);
}

// The replacement with its $ forms filled in for one match.
class ReplacementWriter {
  public:
    ReplacementWriter(std::u16string_view form, std::u16string_view text, std::int32_t groups)
        : m_form(form)
        , m_text(text)
        , m_groups(groups) {}

    void Append(Text& out, const Matcher& matcher) const {
        std::size_t copied = 0;
        for (std::size_t at = m_form.find(u'$'); at != m_form.npos && at + 1 < m_form.size();) {
            std::size_t length = 2;
            std::u16string_view filled;
            if (!Fill(at, matcher, filled, length)) {
                at = m_form.find(u'$', at + 1);
                continue;
            }
            out.Append(m_form.substr(copied, at - copied));
            out.Append(filled);
            copied = at + length;
            at = m_form.find(u'$', copied);
        }
        out.Append(m_form.substr(copied));
    }

  private:
    // False if the dollar sign stands for itself.
    bool Fill(std::size_t at, const Matcher& matcher, std::u16string_view& filled,
              std::size_t& length) const {
        const Matcher::Span whole = matcher.Group(0);
        switch (m_form[at + 1]) {
        case u'$': filled = u"$"; return true;
        case u'&': filled = Slice(m_text, whole); return true;
        case u'`': filled = m_text.substr(0, static_cast<std::size_t>(whole.start)); return true;
        case u'\'': filled = m_text.substr(static_cast<std::size_t>(whole.end)); return true;
        case u'_': filled = m_text; return true;
        case u'+':
            filled = Slice(m_text, m_groups == 0 ? Matcher::Span{} : matcher.Group(m_groups));
            return true;
        default: break;
        }
        const std::int32_t group = GroupAt(at + 1, length);
        if (group == 0)
            return false;
        filled = Slice(m_text, matcher.Group(group));
        return true;
    }

    // $1 to $99: two digits if there are so many groups, one digit otherwise.
    std::int32_t GroupAt(std::size_t at, std::size_t& length) const {
        std::int32_t group = 0, best = 0;
        for (std::size_t digits = 1; digits <= 2 && at + digits <= m_form.size(); ++digits) {
            const char16_t c = m_form[at + digits - 1];
            if (c < u'0' || c > u'9')
                break;
            group = group * 10 + (c - u'0');
            if (group >= 1 && group <= m_groups) {
                best = group;
                length = digits + 1;
            }
        }
        return best;
    }

    std::u16string_view m_form, m_text;
    std::int32_t m_groups;
};

// The text of an argument as automation objects take it: of a Boolean its number.
Text TextOf(const Variant& argument) {
    const Variant plain = PlainValue(argument);
    return ToText(plain.kind() == Kind::Boolean ? Variant(ToInteger(plain)) : plain);
}

} // namespace

ObjectRef RegExp::Create() {
    return MakeObject<RegExp>();
}

std::optional<MemberId> RegExp::FindMember(std::string_view name) const {
    return FindInTable(Members, name);
}

const void* RegExp::Shape() const noexcept {
    return Members;
}

const regexp::Program& RegExp::Compiled() {
    if (!m_program)
        m_program = std::make_unique<const regexp::Program>(
            regexp::Compile(m_pattern.View(), m_ignoreCase, m_multiLine));
    return *m_program;
}

Variant RegExp::Flag(bool& flag, InvokeKind kind, std::span<Variant> arguments) {
    RequireCount(arguments, IsWrite(kind) ? 1 : 0);
    if (!IsWrite(kind))
        return flag;
    flag = ToBoolean(arguments[0]);
    m_program.reset();
    return {};
}

Variant RegExp::Pattern(InvokeKind kind, std::span<Variant> arguments) {
    RequireCount(arguments, IsWrite(kind) ? 1 : 0);
    if (!IsWrite(kind))
        return m_pattern;
    m_pattern = TextOf(arguments[0]);
    m_program.reset();
    return {};
}

Variant RegExp::Test(const Variant& argument) {
    const Text text = TextOf(argument);
    return Matcher(Compiled(), text.View()).Find(0);
}

Variant RegExp::Execute(const Variant& argument) {
    const Text text = TextOf(argument);
    const regexp::Program& program = Compiled();
    Matcher matcher(program, text.View());
    std::vector<Matcher::Span> groups(static_cast<std::size_t>(program.groups) + 1);
    HeapVector<Variant> matches;
    for (std::size_t from = 0; from <= text.Length() && matcher.Find(from);
         from = NextStart(matcher.Group(0))) {
        for (std::size_t group = 0; group < groups.size(); ++group)
            groups[group] = matcher.Group(static_cast<std::int32_t>(group));
        matches.push_back(RegExpMatch::Of(groups, text));
        if (!m_global)
            break;
    }
    return ValueList::Of(matches, ValueList::Matches);
}

Variant RegExp::Replace(const Variant& argument, const Variant& form) {
    const Text text = TextOf(argument), replacement = TextOf(form);
    const regexp::Program& program = Compiled();
    Matcher matcher(program, text.View());
    const ReplacementWriter writer(replacement.View(), text.View(), program.groups);
    Text result;
    std::size_t copied = 0;
    for (std::size_t from = 0; from <= text.Length() && matcher.Find(from);
         from = NextStart(matcher.Group(0))) {
        const Matcher::Span match = matcher.Group(0);
        result.Append(text.View().substr(copied, static_cast<std::size_t>(match.start) - copied));
        writer.Append(result, matcher);
        copied = static_cast<std::size_t>(match.end);
        if (!m_global)
            break;
    }
    if (copied == 0 && result.Length() == 0)
        return text;
    result.Append(text.View().substr(copied));
    return result;
}

Variant RegExp::Access(MemberId member, InvokeKind kind, std::span<Variant> arguments) {
    const auto call = [&](std::size_t count) { RequireRead(kind, arguments, count, Members[member - 1]); };
    switch (member) {
    case PatternMember: return Pattern(kind, arguments);
    case GlobalMember: return Flag(m_global, kind, arguments);
    case IgnoreCaseMember: return Flag(m_ignoreCase, kind, arguments);
    case MultilineMember: return Flag(m_multiLine, kind, arguments);
    case TestMember: call(1); return Test(arguments[0]);
    case ExecuteMember: call(1); return Execute(arguments[0]);
    case ReplaceMember: call(2); return Replace(arguments[0], arguments[1]);
    default: throw Failure(numbers::MemberNotSupported);
    }
}

} // namespace quillon::vbscript
