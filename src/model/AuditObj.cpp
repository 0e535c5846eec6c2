#include "model/AuditObj.h"

#include "model/faces/UnloadedProfile.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "shell/Session.h"

namespace quillon {

const ObjectRef& AuditObj::Template() {
    if (!m_template)
        m_template = NewUnloadedProfile();
    return m_template;
}

AuditObj& TheModel() {
    if (!g_objAudit)
        throw Failure(numbers::ObjectNotSet);
    return *g_objAudit;
}

} // namespace quillon
