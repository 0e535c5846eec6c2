#include "vbscript/machine/Work.h"

namespace quillon::vbscript {

void Work::Poll() {
    s_done = 0;
    if (s_watcher != nullptr)
        s_watcher->Poll();
}

} // namespace quillon::vbscript
