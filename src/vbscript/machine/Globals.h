// The global names of an engine: each has one place, and keeps it whatever is forgotten or redefined.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "vbscript/machine/Code.h"

namespace quillon::vbscript {

class Globals {
  public:
    Globals();
    ~Globals();
    Globals(const Globals&) = delete;
    Globals& operator=(const Globals&) = delete;

    // The place of a name; a new one is Unset. Raises 1001 when all places are taken.
    std::uint16_t PlaceOf(NameId name);
    std::optional<std::uint16_t> Find(NameId name) const;
    NameId NameAt(std::uint16_t place) const { return m_names[place]; }

    Variant* Variables() noexcept { return m_variables.get(); }
    Variant& operator[](std::uint16_t place) noexcept { return m_variables[place]; }

    std::size_t Count() const noexcept { return m_names.size(); }
    // Every name becomes Unset again; releases what they held, in the order of their places.
    void Clear();
    // Gives up the names and their places. Nothing that was compiled may run afterwards.
    void ForgetNames();

  private:
    std::unique_ptr<Variant[]> m_variables;
    std::unordered_map<NameId, std::uint16_t> m_places;
    std::vector<NameId> m_names;
};

} // namespace quillon::vbscript
