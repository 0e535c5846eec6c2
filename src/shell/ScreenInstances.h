// The one instance of each screen, created on first use.
//
// Used by: whoever shows a screen or reaches its state: TheScreen<frmOptions>().ShowModal(). An instance
// lives until ForgetScreen, and is otherwise left to the end of the process: a front end may still look at it
// while static objects go.
#pragma once

#include <memory>

namespace quillon {

template <class ScreenClass>
std::unique_ptr<ScreenClass>& ScreenInstance() {
    static auto* instance = new std::unique_ptr<ScreenClass>;
    return *instance;
}

template <class ScreenClass>
ScreenClass& TheScreen() {
    auto& instance = ScreenInstance<ScreenClass>();
    if (!instance)
        instance = std::make_unique<ScreenClass>();
    return *instance;
}

// Destroys the instance; the next use makes a new one. Not while one of its methods is at work.
template <class ScreenClass>
void ForgetScreen() {
    ScreenInstance<ScreenClass>().reset();
}

} // namespace quillon
