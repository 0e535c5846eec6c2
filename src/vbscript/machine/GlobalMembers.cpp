#include "vbscript/machine/GlobalMembers.h"

namespace quillon::vbscript {

std::optional<GlobalMembers::Found> GlobalMembers::Find(std::string_view name) const {
    for (const ObjectRef& object : m_objects)
        if (const std::optional<MemberId> member = object->FindMember(name))
            return Found{object, *member};
    return std::nullopt;
}

} // namespace quillon::vbscript
