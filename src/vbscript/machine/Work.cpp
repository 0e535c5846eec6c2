#include "vbscript/machine/Work.h"

#include "vbscript/machine/Builtin.h"

namespace quillon::vbscript {

void Work::Poll() {
    s_done = 0;
    if (s_run != nullptr)
        s_run->Poll();
}

} // namespace quillon::vbscript
