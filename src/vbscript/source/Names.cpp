#include "vbscript/source/Names.h"

#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Text.h"

namespace quillon::vbscript {
namespace {

std::u16string Lowered(std::u16string_view name) {
    std::u16string lowered(name);
    std::ranges::transform(lowered, lowered.begin(), LowerOf);
    return lowered;
}

} // namespace

NameId Names::Intern(std::u16string_view name) {
    const auto [found, isNew] = m_ids.try_emplace(Lowered(name), static_cast<NameId>(m_spellings.size()));
    if (isNew)
        m_spellings.push_back(ToUtf8(name));
    return found->second;
}

NameId Names::InternAscii(std::string_view name) {
    return Intern(std::u16string(name.begin(), name.end()));
}

std::optional<NameId> Names::Find(std::u16string_view name) const {
    const auto found = m_ids.find(Lowered(name));
    return found == m_ids.end() ? std::nullopt : std::optional(found->second);
}

std::optional<NameId> Names::FindUtf8(std::string_view name) const {
    return Find(Text::FromUtf8(name).View());
}

} // namespace quillon::vbscript
