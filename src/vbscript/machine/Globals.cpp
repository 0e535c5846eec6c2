#include "vbscript/machine/Globals.h"

#include "platform/FailureNumbers.h"
#include "vbscript/source/Place.h"

namespace quillon::vbscript {

Globals::Globals()
    : m_variables(std::make_unique<Variant[]>(SpaceSize)) {}

Globals::~Globals() = default;

std::uint16_t Globals::PlaceOf(NameId name) {
    const auto [found, isNew] = m_places.try_emplace(name, static_cast<std::uint16_t>(m_names.size()));
    if (!isNew)
        return found->second;
    if (m_names.size() == SpaceSize) {
        m_places.erase(found);
        throw CompileFailure(numbers::CompileOutOfMemory, {1, 0});
    }
    m_names.push_back(name);
    m_variables[found->second] = Variant::Internal(Kind::Unset, nullptr);
    return found->second;
}

std::optional<std::uint16_t> Globals::Find(NameId name) const {
    const auto found = m_places.find(name);
    return found == m_places.end() ? std::nullopt : std::optional(found->second);
}

void Globals::Clear() {
    for (std::size_t place = 0; place < m_names.size(); ++place)
        m_variables[place] = Variant::Internal(Kind::Unset, nullptr);
}

void Globals::ForgetNames() {
    Clear();
    m_places.clear();
    m_names.clear();
}

} // namespace quillon::vbscript
