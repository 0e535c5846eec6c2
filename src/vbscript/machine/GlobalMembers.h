// Objects of the host whose members are global names of the module.
//
// A member is what its name means where the module itself declares nothing of that name: it can be read,
// called and assigned to.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/Object.h"

namespace quillon::vbscript {

class GlobalMembers {
  public:
    struct Found {
        ObjectRef object;
        MemberId member;
    };

    void Add(const ObjectRef& object) { m_objects.push_back(object); }
    void Clear() noexcept { m_objects.clear(); }
    bool IsEmpty() const noexcept { return m_objects.empty(); }

    // The member of the object that was given first, among those that have one of this name.
    std::optional<Found> Find(std::string_view name) const;

  private:
    std::vector<ObjectRef> m_objects;
};

} // namespace quillon::vbscript
