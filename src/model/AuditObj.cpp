#include "model/AuditObj.h"

#include "model/faces/UnloadedProfile.h"

namespace quillon {

const ObjectRef& AuditObj::Template() {
    if (!m_template)
        m_template = NewUnloadedProfile();
    return m_template;
}

} // namespace quillon
