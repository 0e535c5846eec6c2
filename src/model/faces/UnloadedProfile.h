// The profile object that templates find at objAudit.Template: one that nothing has loaded.
#pragma once

#include "platform/ObjectRef.h"

namespace quillon {

// Its members are the readable ones of a profile. Texts are empty, IsLoaded is False and there are no
// includes; reading an include raises 91, as of any profile without a document.
ObjectRef NewUnloadedProfile();

} // namespace quillon
