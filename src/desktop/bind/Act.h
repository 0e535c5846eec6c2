// The door through which a person's act enters the system.
//
// No exception may pass through Qt's event loop, so every slot and event handler that calls a control or a
// screen does it through Act. A failure that no procedure of the system has reported is reported here. The
// end of the process is remembered; whoever turns an event loop asks for it afterwards and throws it on.
#pragma once

#include <functional>

namespace quillon::desktop {

void Act(const std::function<void()>& act);

// The process has been ended by an act. Quits all loops.
bool IsEnded();
// Raises ProcessEnded if it has.
void ThrowIfEnded();
// For a next session in the same process (tests).
void ForgetEnd();

} // namespace quillon::desktop
