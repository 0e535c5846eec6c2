#include "console/Interruption.h"

#include <csignal>

#include "console/ConsoleFrontEnd.h"
#include "shell/Session.h"

namespace quillon::console {
namespace {

volatile std::sig_atomic_t isAsked = 0;

extern "C" void Ask(int) {
    isAsked = 1;
    std::signal(SIGINT, SIG_DFL);
}

} // namespace

Interruption::Interruption(ConsoleFrontEnd& frontEnd) {
    isAsked = 0;
    std::signal(SIGINT, Ask);
    frontEnd.OnTurn = [] {
        if (isAsked != 0)
            g_bolStop = true;
    };
}

Interruption::~Interruption() {
    std::signal(SIGINT, SIG_DFL);
}

void Interruption::EndAtOnce() {
    std::signal(SIGINT, SIG_DFL);
}

} // namespace quillon::console
